# shellcheck shell=bash
# The names that the library exports, as they stand in the committed lists, in the libraries, and in the objects that
# these are made of. Source this, do not run it.

cross=x86_64-w64-mingw32

# The names in a committed list.
listed_exports() { grep -oE '\b(_Z|qva_)\w+' "$1" | LC_ALL=C sort; }

exported_by_elf() { nm --dynamic --defined-only --format=just-symbols "$1" | LC_ALL=C sort; }

exported_by_dll() {
  "$cross-objdump" -p "$1" | awk '/^\[Ordinal\/Name Pointer\] Table/ { on = 1; next } NF == 0 { on = 0 } on { print $NF }' |
    LC_ALL=C sort
}

# What the headers mark as public: the functions that the archive's objects define for everyone.
public_in_elf() {
  readelf --symbols --wide "$1" |
    awk '$4 == "FUNC" && $5 == "GLOBAL" && $6 == "DEFAULT" && $7 != "UND" { print $8 }' | LC_ALL=C sort -u
}

# Tells functions apart by what they are called in the source, as a size is another type on each platform. Reads
# mangled names; writes each behind its readable name.
with_readable_names() {
  local names
  names=$(cat)
  paste -d '\t' <(c++filt <<<"$names" | sed 's/unsigned long long/unsigned long/g') - <<<"$names"
}

# The same functions in an archive of objects for Windows, which do not say who may see them.
public_in_coff() {
  local elf=$1 coff=$2
  LC_ALL=C join -t $'\t' -o 2.2 \
    <(public_in_elf "$elf" | with_readable_names | cut -f1 | LC_ALL=C sort -u) \
    <("$cross-nm" --defined-only --format=posix "$coff" 2>/dev/null | awk '$2 == "T" && /^(_Z|qva_)/ { print $1 }' |
      LC_ALL=C sort -u | with_readable_names | LC_ALL=C sort) | LC_ALL=C sort -u
}

# The functions of the C interface in an archive of objects for 32-bit Windows, with the bytes that each takes off the
# stack.
decorated_in_coff() {
  "$cross-nm" --defined-only --format=posix "$1" 2>/dev/null | awk '$2 == "T" && /^_qva_/ { print substr($1, 2) }' | LC_ALL=C sort
}
