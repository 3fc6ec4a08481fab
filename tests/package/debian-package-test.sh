#!/usr/bin/env bash
# Makes the Debian packages, installs them into an empty root, uses the program and the library there, and removes them
# without a rest.
set -euo pipefail
# shellcheck source=tests/house/expect.sh
. "$(dirname "${BASH_SOURCE[0]}")/../house/expect.sh"

[ $# -eq 3 ] || { echo "usage: $0 SOURCE-TREE BUILD-TREE VERSION" >&2; exit 2; }
source=$1 build=$2 version=$3
command -v dpkg-shlibdeps >/dev/null || { echo "this system makes no Debian packages"; exit 77; }
scratch=$build/debian-package-test
rm -rf "$scratch" "$build/package"
root=$scratch/root
mkdir -p "$root/var/lib/dpkg/"{info,updates} "$root/usr"
touch "$root/var/lib/dpkg/"{status,available}

(cd "$build" && cpack >"$scratch/cpack.log" 2>&1) || { cat "$scratch/cpack.log"; exit 1; }
field() { dpkg-deb --field "$build/package/$1_${version}_$(dpkg --print-architecture).deb" "$2"; }
expect "what the headers need" "$(field libqvassemblyfile-dev Depends)" "libqvassemblyfile0 (= $version)"
for package in qvassembly libqvassemblyfile0; do
  depends=$(field $package Depends)
  [[ $depends == *libstdc++6* && $depends != *gtk* && $depends != *office* ]] || miss "$package depends on $depends"
done
if [ -e "$build/package/qvassembly-calc_${version}_amd64.deb" ]; then
  [[ $(field qvassembly Recommends) == *"qvassembly-calc (= $version)"* ]] || miss "qvassembly does not recommend Calc"
fi

# What the packages depend on is on this machine, not in the root, and this machine's cache of libraries is left alone.
mkdir "$scratch/bin"
ln -s "$(command -v true)" "$scratch/bin/ldconfig"
install_here() {
  PATH=$scratch/bin:$PATH dpkg --root="$root" --force-not-root --force-depends --force-script-chrootless --no-triggers \
    "$@" >"$scratch/dpkg.log" 2>&1
}
install_here --install "$build"/package/*.deb || { cat "$scratch/dpkg.log"; exit 1; }
cat >"$scratch/soname" <<<"$(readelf -d "$root/usr/lib/libQVAssemblyFile.so.0" | grep -o 'soname: .*')"
expect "the library's name" "$(cat "$scratch/soname")" "soname: [libQVAssemblyFile.so.0]"

cd "$root/usr/share/doc/QVAssemblyFile/examples"
export LD_LIBRARY_PATH=$root/usr/lib
expect "the first format" "$("$root/usr/bin/qvassembly" formats list --config AssemblyFormats.xml | grep -c orders)" 1
expect "the records" "$("$root/usr/bin/qvassembly" import --kind parts --format orders --as jsonl parts.csv | wc -l)" 48
gcc -std=c99 -o "$scratch/c-host" c/main.c "-I$root/usr/include" "-L$root/usr/lib" -lQVAssemblyFile
expect "a host in C" "$("$scratch/c-host" AssemblyFormats.xml orders parts.csv "$scratch/doubled.csv" | wc -l)" 48

cd "$source"
mapfile -t names < <(dpkg-query --admindir="$root/var/lib/dpkg" --show --showformat='${Package}\n')
[ ${#names[@]} -ge 3 ] || miss "only ${#names[@]} packages were installed"
install_here --purge "${names[@]}" || { cat "$scratch/dpkg.log"; exit 1; }
expect "what stays of them" "$(cd "$root" && find . ! -type d ! -path './var/lib/dpkg/*')" ""
