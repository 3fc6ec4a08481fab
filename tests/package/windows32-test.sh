#!/usr/bin/env bash
# The 32-bit library by its tables, as such programs may not run here: what it exports and imports, and that programs of
# two compilers, which know its functions by decorated names, import the plain ones.
set -euo pipefail
# shellcheck source=tests/house/expect.sh
. "$(dirname "${BASH_SOURCE[0]}")/../house/expect.sh"

[ $# -eq 2 ] || { echo "usage: $0 SOURCE-TREE BUILD-TREE" >&2; exit 2; }
source=$1 build=$2
# shellcheck source=scripts/lib/exports.sh
. "$source/scripts/lib/exports.sh"
# shellcheck disable=SC2034  # of exports.sh
cross=i686-w64-mingw32
scratch=$build/windows32-test
rm -rf "$scratch"
mkdir -p "$scratch"
trap '[ "$failures" = 0 ] || exit 1' EXIT

listed_exports "$source/module/exports-windows.def" | grep '^qva_' >"$scratch/names"
[ "$(wc -l <"$scratch/names")" -gt 60 ] || miss "the list holds too few names; this test looks in the wrong place"
exported_by_dll "$build/bin/QVAssemblyFile.dll" | diff "$scratch/names" - || miss "the library exports other names"
diff <(decorated_in_coff "$build/libqv_core.a") <(grep -o 'qva_.*' "$source/module/exports-windows32.def") ||
  miss "the functions have other decorations; scripts/update-exports writes the list anew"

# dlls_of FILE: what it needs beside it, or of the system.
dlls_of() { "$cross-objdump" -p "$1" | awk '/DLL Name:/ { print toupper($3) }' | LC_ALL=C sort -u; }
cut -d' ' -f1 "$source/module/imports-windows.txt" | tr '[:lower:]' '[:upper:]' | LC_ALL=C sort -u >"$scratch/system"
for file in QVAssemblyFile.dll qvassembly.exe; do
  beside=$(dlls_of "$build/bin/$file" | LC_ALL=C comm -23 - "$scratch/system")
  [ -z "$beside" ] || miss "$file needs $beside"
done

host=$source/examples/c/main.c
"$cross-gcc-posix" -std=c99 "-I$build/include" "$host" -o "$scratch/gcc.exe" "-L$build" -lQVAssemblyFile
for unit in "$host" "$source/tests/package/msvc/start.c"; do
  clang --target=i686-pc-windows-msvc -std=c99 -ffreestanding -mno-stack-arg-probe "-I$build/include" \
    "-I$source/tests/package/msvc" -c "$unit" -o "$scratch/$(basename "$unit" .c).obj"
done
printf '%s\n' LIBRARY\ msvcrt.dll EXPORTS printf fprintf __iob_func __getmainargs exit >"$scratch/msvcrt.def"
llvm-dlltool -m i386 -d "$scratch/msvcrt.def" -l "$scratch/msvcrt.lib"
lld-link /entry:start /subsystem:console /nodefaultlib /safeseh:no "/out:$scratch/clang.exe" "$scratch/main.obj" \
  "$scratch/start.obj" "$build/QVAssemblyFile.lib" "$scratch/msvcrt.lib"
for program in gcc clang; do
  "$cross-objdump" -p "$scratch/$program.exe" |
    awk '/DLL Name:/ { ours = $3 == "QVAssemblyFile.dll" } ours && /\tqva_|  qva_/ { print $NF }' >"$scratch/imported"
  [ "$(wc -l <"$scratch/imported")" -gt 10 ] || miss "the program of $program imports too few functions"
  others=$(LC_ALL=C sort "$scratch/imported" | LC_ALL=C comm -23 - "$scratch/names")
  [ -z "$others" ] || miss "the program of $program imports what the library does not export: $others"
done
