# shellcheck shell=bash
# What the scripts share: the packages that each purpose needs, and a few helpers. Source this, do not run it.

# shellcheck disable=SC2034  # used by the scripts that source this
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

# Debian packages by purpose.
declare -A packages=(
  [native]="g++ cmake ninja-build pkg-config libexpat1-dev libcli11-dev rapidjson-dev nlohmann-json3-dev libgtest-dev locales"
  [checks]="shellcheck man-db zsh fish python3-pytest mono-mcs mono-runtime fp-compiler"
  [packages]="dpkg-dev python3-pip python3-setuptools python3-wheel"
  [workbook]="libreoffice-calc-nogui libreoffice-dev python3-xlrd"
  [dialog]="libgtk-3-dev xvfb xauth xdotool"
  [pictures]="imagemagick"
  [windows]="g++-mingw-w64-x86-64-posix googletest wine wine64 fonts-wine xvfb xauth mandoc llvm lld clang"
  [windows32]="g++-mingw-w64-i686-posix mandoc llvm lld clang"
  [bench]="libbenchmark-dev time python3-pandas python3-matplotlib miller"
  [npm]="nodejs npm"
  [fuzz]="clang libclang-rt-14-dev"
  [analyse]="clang clang-tidy cppcheck"
  [coverage]="gcovr"
)

say() { printf '== %s\n' "$*" >&2; }

fail() {
  printf '%s: %s\n' "$(basename "$0")" "$*" >&2
  exit 1
}

# The value as a path that does not depend on the current folder.
absolute() { realpath -m -- "$1"; }

job_count() { printf '%s\n' "${JOBS:-$(nproc)}"; }

# project_version SOURCE: the version, whose one place is CMakeLists.txt.
project_version() { sed -nE 's/^project\(QVAssemblyFile VERSION ([0-9.]+).*/\1/p' "$1/CMakeLists.txt"; }

is_installed() { [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

as_root() {
  if [ "$(id -u)" = 0 ]; then
    "$@"
  else
    sudo "$@"
  fi
}

apt_get() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=300 -qq "$@" </dev/null
}

# install_packages PURPOSE...: installs what is missing of the purposes' packages, and asks for nothing when nothing is.
install_packages() {
  local purpose package missing=()
  for purpose in "$@"; do
    for package in ${packages[$purpose]}; do
      is_installed "$package" || missing+=("$package")
    done
  done
  [ ${#missing[@]} -gt 0 ] || return 0

  command -v apt-get >/dev/null || fail "this system has no apt-get; install by other means: ${missing[*]}"
  [ "$(id -u)" = 0 ] || command -v sudo >/dev/null ||
    fail "these packages are missing: ${missing[*]}. Run this as root, install sudo, or have them installed."
  say "installing ${missing[*]}"
  { apt_get update && apt_get install --no-install-recommends -y "${missing[@]}" >/dev/null; } ||
    fail "these packages could not be installed: ${missing[*]}"
}

# Compiles through ccache where there is one.
use_ccache() {
  if command -v ccache >/dev/null; then
    export CCACHE_SLOPPINESS=${CCACHE_SLOPPINESS-pch_defines,time_macros}
    export CMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER-ccache}
  fi
}
