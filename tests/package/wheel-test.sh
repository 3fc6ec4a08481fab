#!/usr/bin/env bash
# Makes the wheel, installs it into an environment of its own, reads a file by it, and removes it without a rest.
set -euo pipefail

[ $# -eq 3 ] || { echo "usage: $0 SOURCE-TREE LIBRARY VERSION" >&2; exit 2; }
source=$1 library=$2 version=$3
# shellcheck source=tests/house/expect.sh
. "$source/tests/house/expect.sh"
# shellcheck source=scripts/lib/common.sh
. "$source/scripts/lib/common.sh"
# shellcheck source=scripts/lib/wheel.sh
. "$source/scripts/lib/wheel.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"; [ "$failures" = 0 ] || exit 1' EXIT

make_wheel "$source" "$library" "$work/wheel"
wheel=$(echo "$work"/wheel/*.whl)
expect "the wheel's name" "$(basename "$wheel" | cut -d- -f1-4)" "qvassembly-$version-py3-none"

unset QVASSEMBLY_LIBRARY PYTHONPATH
/usr/bin/python3 -m venv --without-pip "$work/environment"
python=$work/environment/bin/python
pip() { /usr/bin/python3 -m pip --disable-pip-version-check --python "$python" "$@" >/dev/null; }
pip install --no-index "$wheel" || miss "the wheel cannot be installed"
expect "what was read" "$(cd / && "$python" - "$source/examples" <<'END'
import pathlib
import sys

import qvassembly

examples = pathlib.Path(sys.argv[1])
parts = list(qvassembly.read(examples / "parts.csv", "parts", formats=examples / "AssemblyFormats.xml", format="orders"))
print(len(parts), parts[0]["PartName"], qvassembly.__version__)
END
)" "48 BRACKET-L-100 $version"
find "$work/environment" -name __pycache__ -prune -exec rm -r {} +
pip uninstall -y qvassembly || miss "the wheel cannot be removed"
expect "what stays of it" "$(find "$work/environment" -iname '*qvassembly*')" ""
