# Completion of qvassembly's command line for fish. What there is to offer is asked of the program itself, whose help
# pages list commands, options and choices.

function __qvassembly_listed_commands
    string join \n -- $argv | sed -n '/^Subcommands:/,/^$/p' | sed -nE 's/^  ([a-z-]+) +(.*)/\1\t\2/p'
end

function __qvassembly_listed_options
    string join \n -- $argv | sed '/^Examples:/,$d' | sed -nE 's/^  (-h,)?(--[a-z-]+)( [A-Z][^ ]*)?( REQUIRED)? *(.*)/\2\t\5/p'
end

# All files, those with one of the suffixes first.
function __qvassembly_files
    for suffix in $argv
        __fish_complete_suffix $suffix
    end
end

# Of a value: the formats and keywords that there are, or the choices that stand behind the option.
function __qvassembly_values --argument-names program option
    set -l help $argv[3..]
    switch $option
        case --format --from --to
            $program formats list $__qvassembly_config 2>/dev/null | string sub -s 3
        case --config
            __qvassembly_files .xml
        case --records
            __qvassembly_files .json .jsonl
        case --rejects --sample --from-headers
            __qvassembly_files .csv .txt .xls
        case --encoding --to-encoding
            string join \n utf-8 windows-1252 shift_jis
        case --columns
            set -l typed (string match -r '^.*,' -- (commandline -ct))
            $program keywords $__qvassembly_kind --as json 2>/dev/null |
                sed -nE 's/.*"keyword":"([^" ]+)".*/\1/p' | sort -u | string replace -r '^' "$typed"
            echo $typed"Ignore"
        case '*'
            string join \n -- $help | sed -nE "s/^  $option [A-Z=]+(.*)/\1/p" |
                sed -E 's/^:\{([^}]*)\}.*/\1/; t; s/\([^)]*\)//g; s/^.*(: | of )//; s/ or |,/,/g' |
                tr , \n | sed -nE 's/^ *([A-Za-z-]+) *$/\1/p'
    end
end

function __qvassembly_candidates
    set -l words (commandline -opc)
    set -l program $words[1]
    set -l common ($program --help 2>/dev/null)
    set -l help $common
    set -l command
    set -l option
    set -l arguments 0
    set -g __qvassembly_config
    set -g __qvassembly_kind
    for word in $words[2..]
        if test -n "$option"
            test $option = --config; and set __qvassembly_config --config $word
            test $option = --kind; and set __qvassembly_kind --kind $word
            set option
        else if string match -q -- '--*' $word
            string match -rq -- "^  $word [A-Z]" $help $common; and set option $word
        else if not string match -q -- '-*' $word
            if contains -- $word (__qvassembly_listed_commands $help | string replace -r '\t.*' '')
                set -a command $word
                set help ($program $command --help 2>/dev/null)
            else
                set arguments (math $arguments + 1)
            end
        end
    end

    if test -n "$option"
        __qvassembly_values $program $option $help $common
    else if string match -q -- '-*' (commandline -ct)
        __qvassembly_listed_options $help
        set -q command[1]; and __qvassembly_listed_options $common | string match -v -- '--version*'
    else if __qvassembly_listed_commands $help | string length -q
        __qvassembly_listed_commands $help
    else
        switch "$command $arguments"
            case 'formats add 0' 'formats remove 0' 'formats show 0' 'formats use 0' 'format-name set 1'
                $program formats list $__qvassembly_config 2>/dev/null | string sub -s 3
            case 'import 0' 'export 0' 'check 0' 'headers 0' 'format-name get 0' 'format-name set 0' 'convert 0' 'convert 1'
                __qvassembly_files .csv .txt .xls
        end
    end
end

complete -c qvassembly -c qvassembly.exe -f -a '(__qvassembly_candidates)'
