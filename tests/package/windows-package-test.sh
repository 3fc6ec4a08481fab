#!/usr/bin/env bash
# Makes the archive for Windows and uses it as its receiver would: everything is in it, a host built against nothing but
# its content runs, and so does qvassembly.exe.
set -euo pipefail
# shellcheck source=tests/house/expect.sh
. "$(dirname "${BASH_SOURCE[0]}")/../house/expect.sh"

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
bin/libgcc_s_seh-1.dll
bin/libstdc++-6.dll
bin/libwinpthread-1.dll
bin/qvassembly.exe
lib/cmake/QVAssemblyFile/QVAssemblyFileConfig.cmake
lib/cmake/QVAssemblyFile/QVAssemblyFileConfigVersion.cmake
lib/cmake/QVAssemblyFile/QVAssemblyFileTargets-release.cmake
lib/cmake/QVAssemblyFile/QVAssemblyFileTargets.cmake
lib/libQVAssemblyFile.dll.a
lib/pkgconfig/QVAssemblyFile.pc
share/doc/QVAssemblyFile/CHANGELOG.md
share/doc/QVAssemblyFile/README.md
share/doc/QVAssemblyFile/docs/images/dialog-linux.png
share/doc/QVAssemblyFile/docs/images/dialog-windows-144dpi.png
share/doc/QVAssemblyFile/docs/images/dialog-windows.png
share/doc/QVAssemblyFile/docs/performance.md
share/doc/QVAssemblyFile/docs/reliability.md
share/doc/QVAssemblyFile/licences/CLI11.txt
share/doc/QVAssemblyFile/licences/GPL-3.txt
share/doc/QVAssemblyFile/licences/gcc-runtime.txt
share/doc/QVAssemblyFile/licences/mingw-w64.txt
share/doc/QVAssemblyFile/licences/nlohmann-json.txt
LIST
diff -r "$source/examples" "$package/share/doc/QVAssemblyFile/examples" || miss "the examples are others"
for file in "$package"/share/doc/QVAssemblyFile/licences/*; do [ -s "$file" ] || miss "$file is empty"; done

echo "each header on its own"
for header in "$package"/include/QVAssemblyFile/*.h; do
  printf '#include <QVAssemblyFile/%s>\n' "$(basename "$header")" |
    "$compiler" -std=c++20 -Wall -Wextra -Wpedantic -Werror -I"$package/include" -fsyntax-only -x c++ - ||
    miss "$(basename "$header")"
done

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

echo "the command line"
expect "the records" "$("${wine[@]}" "$package/bin/qvassembly.exe" import --kind parts --format orders --as jsonl \
  --config "$source/examples/AssemblyFormats.xml" "$source/examples/parts.csv" | wc -l)" 48
