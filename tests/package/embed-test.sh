#!/usr/bin/env bash
# Installs a built tree into a scratch prefix and embeds it as a host would: by find_package and by pkg-config, after
# the prefix has been moved.
set -euo pipefail
# shellcheck source=tests/house/expect.sh
. "$(dirname "${BASH_SOURCE[0]}")/../house/expect.sh"
# shellcheck source=tests/package/headers.sh
. "$(dirname "${BASH_SOURCE[0]}")/headers.sh"

[ $# -ge 3 ] || { echo "usage: $0 SOURCE-TREE BUILD-TREE COMPILER [COMPILER-FLAGS]" >&2; exit 2; }
source=$1 build=$2 compiler=$3
read -ra flags <<<"${4:-}"
scratch=$build/embed-test
prefix="$scratch/moved prefix"
rm -rf "$scratch"

installed=$scratch/prefix
cmake --install "$build" --prefix "$installed" >/dev/null
mv "$installed" "$prefix"
library=$(dirname "$(find "$prefix" -name 'libQVAssemblyFile.so')")

run_host() {
  local lasers
  lasers=$(grep -c 'Laser 3015' "$source/examples/parts.csv")
  "$1" "$source/examples/AssemblyFormats.xml" "$source/examples/parts.csv" "$scratch/laser.txt" >"$scratch/output"
  expect "what was read" "$(head -n 1 "$scratch/output" | cut -d. -f1)" "48 parts, 17 columns in the file"
  expect "what was written" "$(tail -n 1 "$scratch/output")" "$lasers parts written to $scratch/laser.txt"
  expect "the name line" "$(head -n 1 "$scratch/laser.txt")" '[FMT_Name=laser-list]'
  expect "the rows below line 3" "$(tail -n +4 "$scratch/laser.txt" | grep -c 'Laser 3015')" "$lasers"
}

echo "by find_package"
cmake -S "$source/examples/host" -B "$scratch/host" -G Ninja -DCMAKE_PREFIX_PATH="$prefix" \
  -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS="${flags[*]}" >/dev/null
cmake --build "$scratch/host" >/dev/null
run_host "$scratch/host/host"

echo "by pkg-config"
export PKG_CONFIG_PATH=$library/pkgconfig
expect "the version" "$(pkg-config --modversion QVAssemblyFile)" \
  "$(sed -n 's/^set(PACKAGE_VERSION "\(.*\)")/\1/p' "$library"/cmake/*/*ConfigVersion.cmake)"
eval "package=($(pkg-config --cflags --libs QVAssemblyFile))" # it quotes for a shell
# shellcheck disable=SC2154  # package is set by the line above
"$compiler" -std=c++20 "${flags[@]}" "$source/examples/host/main.cpp" "${package[@]}" -Wl,-rpath,"$library" -o "$scratch/host-pc"
run_host "$scratch/host-pc"

compilers=("$compiler")
if command -v clang++ >/dev/null; then compilers+=(clang++); fi
check_headers "$prefix/include" "${compilers[@]}"

if [ -x "$prefix/bin/qvassembly" ]; then
  echo "the installed command line"
  "$prefix/bin/qvassembly" import --kind parts --format orders --as jsonl "$source/examples/parts.csv" >"$scratch/parts.jsonl"
  expect "the records" "$(wc -l <"$scratch/parts.jsonl")" 48
  # The component for workbooks is found beside the library, wherever that has been moved.
  if [ -e "$library/qvassembly/QVAssemblyFileCalc.so" ]; then
    convert() {
      "$prefix/bin/qvassembly" convert --kind parts --config "$source/examples/AssemblyFormats.xml" --to laser-list "$@"
    }
    convert --from orders "$source/examples/parts.csv" "$scratch/parts.csv"
    convert "$scratch/parts.csv" "$scratch/parts.xls"
    convert "$scratch/parts.xls" "$scratch/back.csv"
    cmp "$scratch/parts.csv" "$scratch/back.csv" || miss "the parts do not come back from a workbook"
  fi

  if [ -e "$library/qvassembly/QVAssemblyFileDialog.so" ] && command -v xvfb-run xdotool >/dev/null; then
    echo "the installed dialog"
    sed 's/Current="orders"/Current="tools"/' "$source/examples/AssemblyFormats.xml" >"$scratch/formats.xml"
    # shellcheck disable=SC2016  # for the inner shell
    NO_AT_BRIDGE=1 timeout 60 xvfb-run -a bash -c '
      "$0" options --config "$1" & dialog=$!
      # A key that comes before the window has the focus is lost.
      while kill -0 $dialog 2>/dev/null; do
        xdotool search --onlyvisible --name "^Option$" windowfocus key Return
        sleep 0.2
      done 2>/dev/null
      wait $dialog' "$prefix/bin/qvassembly" "$scratch/formats.xml" || miss "the dialog did not end with OK"
    expect "the formats that OK completed" "$(grep -c '<Priority ' "$scratch/formats.xml")" \
      "$(grep -c '<OptionForm' "$scratch/formats.xml")"
  fi
fi
