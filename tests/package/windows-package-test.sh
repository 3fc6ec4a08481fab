#!/usr/bin/env bash
# Makes the archive for Windows and uses it as its receiver would: everything is in it, a host built against nothing but
# its content runs, and so does qvassembly.exe.
set -euo pipefail
# shellcheck source=tests/house/expect.sh
. "$(dirname "${BASH_SOURCE[0]}")/../house/expect.sh"
# shellcheck source=tests/package/headers.sh
. "$(dirname "${BASH_SOURCE[0]}")/headers.sh"

[ $# -eq 6 ] || { echo "usage: $0 SOURCE-TREE BUILD-TREE TOOLCHAIN-FILE COMPILER WINE-RUN PREFIX"; exit 2; }
source=$1 build=$2 toolchain=$3 compiler=$4
wine=("$5" "$6")
scratch=$build/package-test
rm -rf "$scratch"
mkdir -p "$scratch"
scratch=$(realpath "$scratch")

(cd "$build" && cpack >"$scratch/cpack.log") || { cat "$scratch/cpack.log"; exit 1; }
archive=$(find "$build/package" -maxdepth 1 -name '*.zip')
(cd "$scratch" && cmake -E tar xf "$archive")
mv "$scratch/$(basename "$archive" .zip)" "$scratch/moved prefix"
package="$scratch/moved prefix"

echo "the content"
(cd "$package" && find . -type f ! -path './include/*' ! -path '*/examples/*' -printf '%P\n' | LC_ALL=C sort) >"$scratch/content"
diff - "$scratch/content" <<'LIST' || miss "the archive holds something else"
bin/QVAssemblyFile.dll
bin/QVAssemblyFileCpp.dll
bin/libgcc_s_seh-1.dll
bin/libstdc++-6.dll
bin/libwinpthread-1.dll
bin/qvassembly.exe
lib/QVAssemblyFile.def
lib/QVAssemblyFile.lib
lib/cmake/QVAssemblyFile/QVAssemblyFileConfig.cmake
lib/cmake/QVAssemblyFile/QVAssemblyFileConfigVersion.cmake
lib/cmake/QVAssemblyFile/QVAssemblyFileTargets-release.cmake
lib/cmake/QVAssemblyFile/QVAssemblyFileTargets.cmake
lib/libQVAssemblyFile.dll.a
lib/pkgconfig/QVAssemblyFile.pc
share/doc/QVAssemblyFile/CHANGELOG.md
share/doc/QVAssemblyFile/README.md
share/doc/QVAssemblyFile/docs/columns.md
share/doc/QVAssemblyFile/docs/declarations/qvassembly.bas
share/doc/QVAssemblyFile/docs/declarations/qvassembly.pas
share/doc/QVAssemblyFile/docs/diagnostics.md
share/doc/QVAssemblyFile/docs/embedding.md
share/doc/QVAssemblyFile/docs/formats.md
share/doc/QVAssemblyFile/docs/images/dialog-linux.png
share/doc/QVAssemblyFile/docs/images/dialog-windows-144dpi.png
share/doc/QVAssemblyFile/docs/images/dialog-windows.png
share/doc/QVAssemblyFile/docs/images/peers.svg
share/doc/QVAssemblyFile/docs/performance.md
share/doc/QVAssemblyFile/docs/qvassembly.html
share/doc/QVAssemblyFile/docs/reliability.md
share/doc/QVAssemblyFile/docs/workbooks.md
share/doc/QVAssemblyFile/licences/CLI11.txt
share/doc/QVAssemblyFile/licences/GPL-3.txt
share/doc/QVAssemblyFile/licences/RapidJSON.txt
share/doc/QVAssemblyFile/licences/gcc-runtime.txt
share/doc/QVAssemblyFile/licences/mingw-w64.txt
LIST
diff -r "$source/examples" "$package/share/doc/QVAssemblyFile/examples" || miss "the examples are others"
for file in "$package"/share/doc/QVAssemblyFile/licences/*; do [ -s "$file" ] || miss "$file is empty"; done

echo "the properties of the libraries"
version=$(sed -n 's/^set(PACKAGE_VERSION "\(.*\)")$/\1/p' "$package"/lib/cmake/QVAssemblyFile/QVAssemblyFileConfigVersion.cmake)
# property NAME: what the properties of the library call so.
property() { strings -el "$package/bin/QVAssemblyFile.dll" | grep -xA1 "$1" | tail -n 1; }
expect "the version" "$(property ProductVersion)" "$version"
expect "the name" "$(property OriginalFilename)" QVAssemblyFile.dll

check_headers "$package/include" "$compiler"

echo "a host"
cmake -S "$source/examples/host" -B "$scratch/host" -G Ninja -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
  -DQVAssemblyFile_DIR="$package/lib/cmake/QVAssemblyFile" >"$scratch/host.log"
cmake --build "$scratch/host" >>"$scratch/host.log"
cp "$package"/bin/*.dll "$scratch/host"
lasers=$(grep -c 'Laser 3015' "$source/examples/parts.csv")
cd "$scratch"
"${wine[@]}" "$scratch/host/host.exe" "$source/examples/AssemblyFormats.xml" "$source/examples/parts.csv" laser.txt |
  tr -d '\r' >output
expect "what was read" "$(head -n 1 output | cut -d. -f1)" "48 parts, 17 columns in the file"
expect "what was written" "$(tail -n 1 output)" "$lasers parts written to laser.txt"
expect "the rows below line 3" "$(tail -n +4 laser.txt | grep -c 'Laser 3015'$'.*\r$')" "$lasers"

echo "a host in C by Microsoft's linker, with nothing but the library beside it"
alone=$scratch/alone
mkdir "$alone"
cp "$package/bin/QVAssemblyFile.dll" "$alone"
# Declares what it uses of the C runtime, so it needs no Windows SDK.
printf '%s\n' LIBRARY\ msvcrt.dll EXPORTS printf fprintf __iob_func __getmainargs exit >"$scratch/msvcrt.def"
llvm-dlltool -m i386:x86-64 -d "$scratch/msvcrt.def" -l "$scratch/msvcrt.lib"
for unit in "$source/examples/c/main.c" "$source/tests/package/msvc/start.c"; do
  clang --target=x86_64-pc-windows-msvc -std=c99 -ffreestanding -mno-stack-arg-probe -Wall -Wextra -Werror \
    "-I$package/include" "-I$source/tests/package/msvc" -c "$unit" -o "$scratch/$(basename "$unit" .c).obj"
done
lld-link /entry:start /subsystem:console /nodefaultlib "/out:$alone/host.exe" "$scratch/main.obj" "$scratch/start.obj" \
  "$package/lib/QVAssemblyFile.lib" "$scratch/msvcrt.lib"
WINEPATH='' "${wine[@]}" "$alone/host.exe" "$source/examples/AssemblyFormats.xml" orders "$source/examples/parts.csv" \
  doubled.csv | tr -d '\r' >output
expect "the first part" "$(head -n 1 output)" "BRACKET-L-100 16"
expect "the parts" "$(wc -l <output)" 48
expect "the rows written" "$(wc -l <doubled.csv)" 49

echo "the command line"
expect "the records" "$("${wine[@]}" "$package/bin/qvassembly.exe" import --kind parts --format orders --as jsonl \
  --config "$source/examples/AssemblyFormats.xml" "$source/examples/parts.csv" | wc -l)" 48
