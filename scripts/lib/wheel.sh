# shellcheck shell=bash
# Makes the Python package with the library in it. Source this after common.sh, do not run it.

# make_wheel SOURCE LIBRARY FOLDER: writes the wheel for this machine into the folder, and nothing else there.
make_wheel() {
  local source=$1 library=$2 folder=$3 work
  work=$(mktemp -d)
  cp -r "$source"/python/{README.md,pyproject.toml,qvassembly} "$work"
  find "$work" -name __pycache__ -prune -exec rm -r {} +
  project_version "$source" >"$work/VERSION"
  # By the name that other programs load it by, and that the package looks for.
  strip -o "$work/qvassembly/libQVAssemblyFile.so.0" "$library"
  mkdir -p "$folder"
  (cd "$work" && /usr/bin/python3 -c 'from setuptools import setup; setup()' -q bdist_wheel --python-tag py3 \
    --plat-name "$(/usr/bin/python3 -c 'import sysconfig; print(sysconfig.get_platform())')" --dist-dir "$work/dist") >"$work/log" 2>&1 ||
    { cat "$work/log" >&2; return 1; }
  rm -f "$folder"/*.whl
  cp "$work"/dist/*.whl "$folder"
  rm -r "$work"
}
