# shellcheck shell=bash
# Completion of qvassembly's command line for bash.

# The options that every command takes, and those of each command. A test holds them against the help pages.
_qvassembly_common='--help --diagnostics --encoding --strict --all-remarks'
declare -gA _qvassembly_options=(
  [qvassembly]='--version'
  [import]='--kind --config --format --decimal-comma --as --type'
  [export]='--kind --config --format --to-decimal-comma --records --type'
  [convert]='--kind --config --from --to --decimal-comma --to-decimal-comma --to-encoding --type'
  [headers]='--config --format --type'
  [check]='--kind --config --format --decimal-comma --as --rejects --type'
  [formats]='--config'
  [formats list]='--config --as'
  [formats show]='--config --as'
  [formats init]='--config'
  [formats add]='--config --from-headers --kind --start-line --delimiters --other --qualifier --treat-as-one --part-key --columns --set'
  [formats remove]='--config'
  [formats use]='--config'
  [keywords]='--kind --as'
  [format-name]=''
  [format-name get]='--config'
  [format-name set]=''
  [options]='--config --sample --format'
)
declare -gA _qvassembly_commands=(
  [qvassembly]='import export convert headers check formats keywords format-name options'
  [formats]='list show init add remove use'
  [format-name]='get set'
)
_qvassembly_all_kinds='parts tools materials sheets part-programs material-inventory material-library job-progress'
declare -gA _qvassembly_kinds=(
  [import]='parts tools materials sheets part-programs material-inventory material-library'
  [check]='parts tools materials sheets part-programs material-inventory material-library'
  [export]='parts tools materials sheets part-programs job-progress'
  [formats add]="$_qvassembly_all_kinds"
  [keywords]="$_qvassembly_all_kinds"
  [convert]='parts tools materials sheets part-programs'
)

# Whether the option is followed by a value.
_qvassembly_takes_value() {
  case $1 in
    --kind | --type | --config | --format | --from | --to | --as | --records | --rejects | --sample | --diagnostics | --encoding | --to-encoding) ;;
    --from-headers | --start-line | --delimiters | --other | --qualifier | --part-key | --columns | --set) ;;
    *) return 1 ;;
  esac
}

# The format names of the configuration that the command line names, one a line.
_qvassembly_formats() {
  local word config=()
  for ((word = 1; word + 1 < ${#COMP_WORDS[@]}; word++)); do
    [ "${COMP_WORDS[word]}" = --config ] && config=(--config "${COMP_WORDS[word + 1]/#\~/$HOME}")
  done
  "${COMP_WORDS[0]}" formats list "${config[@]}" 2>/dev/null </dev/null | sed 's/^..//'
}

# What is typed of a list of columns up to its last comma, with each keyword of the kind that the command line names.
_qvassembly_keywords() {
  local word kind=() typed=${COMP_WORDS[COMP_CWORD]}
  for ((word = 1; word + 1 < ${#COMP_WORDS[@]}; word++)); do
    [ "${COMP_WORDS[word]}" = --kind ] && kind=(--kind "${COMP_WORDS[word + 1]}")
  done
  { echo Ignore
    "${COMP_WORDS[0]}" keywords "${kind[@]}" --as json 2>/dev/null </dev/null | sed -nE 's/.*"keyword":"([^" ]+)".*/\1/p'; } |
    sort -u | while IFS= read -r word; do printf '%s%s\n' "${typed%"${typed##*,}"}" "$word"; done
}

# Offers words that start with what has been typed; a word may hold blanks.
_qvassembly_offer() {
  local typed=${COMP_WORDS[COMP_CWORD]} word
  while IFS= read -r word; do
    if [[ -n $word && $word == "$typed"* ]]; then COMPREPLY+=("$(printf '%q' "$word")"); fi
  done
}

_qvassembly_offer_words() { _qvassembly_offer < <(tr ' ' '\n' <<<"$1"); }

# Offers folders and the files that end in one of the patterns, in any case.
_qvassembly_offer_files() {
  local typed=${COMP_WORDS[COMP_CWORD]} name pattern=$1
  compopt -o filenames 2>/dev/null
  while IFS= read -r name; do
    if [ -d "$name" ] || [[ ${name,,} =~ \.($pattern)$ ]]; then COMPREPLY+=("$name"); fi
  done < <(compgen -f -- "$typed")
}

_qvassembly_value() {
  local option=$1 command=$2
  case $option in
    --kind) _qvassembly_offer_words "${_qvassembly_kinds[$command]-}" ;;
    --format | --from | --to) _qvassembly_offer < <(_qvassembly_formats) ;;
    --columns)
      compopt -o nospace 2>/dev/null
      _qvassembly_offer < <(_qvassembly_keywords)
      ;;
    --config) _qvassembly_offer_files 'xml' ;;
    --records) _qvassembly_offer_files 'json|jsonl' ;;
    --rejects) _qvassembly_offer_files 'csv|txt' ;;
    --sample | --from-headers) _qvassembly_offer_files 'csv|txt|xls' ;;
    --as)
      case $command in
        import) _qvassembly_offer_words 'table json jsonl' ;;
        keywords) _qvassembly_offer_words 'table json' ;;
        *) _qvassembly_offer_words 'text json' ;;
      esac
      ;;
    --diagnostics) _qvassembly_offer_words 'text json' ;;
    --encoding | --to-encoding) _qvassembly_offer_words 'utf-8 windows-1252 shift_jis' ;;
    --type) _qvassembly_offer_words 'csv txt' ;;
    --qualifier) _qvassembly_offer_words 'double single none' ;;
    --part-key) _qvassembly_offer_words 'Name Path' ;;
    --delimiters) _qvassembly_offer_words 'Tab Semicolon Comma Space Other' ;;
  esac
}

_qvassembly() {
  COMPREPLY=()
  local command=qvassembly arguments=0 word at skip=0
  for ((at = 1; at < COMP_CWORD; at++)); do
    word=${COMP_WORDS[at]}
    if [ $skip = 1 ]; then
      skip=0
    elif _qvassembly_takes_value "$word"; then
      skip=1
    elif [[ $word != -* ]]; then
      if [[ " ${_qvassembly_commands[$command]-} " == *" $word "* ]]; then
        command="$command $word"
        command=${command#qvassembly }
      else
        arguments=$((arguments + 1))
      fi
    fi
  done

  if [ $skip = 1 ]; then
    _qvassembly_value "${COMP_WORDS[COMP_CWORD - 1]}" "$command"
  elif [[ ${COMP_WORDS[COMP_CWORD]} == -* ]]; then
    _qvassembly_offer_words "${_qvassembly_options[$command]-} $_qvassembly_common"
  elif [ -n "${_qvassembly_commands[$command]-}" ]; then
    _qvassembly_offer_words "${_qvassembly_commands[$command]}"
  elif [ $arguments = 0 ]; then
    case $command in
      'formats show' | 'formats remove' | 'formats use' | 'formats add') _qvassembly_offer < <(_qvassembly_formats) ;;
      import | export | convert | headers | check | format-name*) _qvassembly_offer_files 'csv|txt|xls' ;;
    esac
  elif [ $arguments = 1 ]; then
    case $command in
      convert) _qvassembly_offer_files 'csv|txt|xls' ;;
      'format-name set') _qvassembly_offer < <(_qvassembly_formats) ;;
    esac
  fi
}

complete -F _qvassembly qvassembly qvassembly.exe
