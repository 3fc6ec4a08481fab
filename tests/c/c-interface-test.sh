#!/usr/bin/env bash
# The C interface as hosts use it: its header in every dialect, the example in C, the C++ wrapper, and natively the
# Python package, the C# file, and the declarations for VBA and Pascal.
# usage: c-interface-test.sh SOURCE LIBRARY_FOLDER INCLUDE_FOLDER C-COMPILER C++-COMPILER --flags=FLAGS [WINE-RUN PREFIX]
set -euo pipefail
source=$1 library=$2 include=$3 cc=$4 cxx=$5
read -ra flags <<<"${6#--flags=}"
shift 6
runner=("$@")
# shellcheck source=tests/house/expect.sh
. "$source/tests/house/expect.sh"
work=$(mktemp -d)
trap 'rm -rf "$work"; [ "$failures" = 0 ] || exit 1' EXIT

compilers=("$cxx")
link=("-I$include" "-L$library" -lQVAssemblyFile)
if [ ${#runner[@]} -gt 0 ]; then
  # Nothing but the library stands beside the programs, and they carry their own C++ runtime.
  cp "$library/bin/QVAssemblyFile.dll" "$work"
  link+=(-static)
  export WINEPATH=
else
  link+=("-Wl,-rpath,$library")
  # Two compilers' sanitizers do not go together.
  if [ ${#flags[@]} = 0 ] && command -v clang++ >/dev/null; then compilers+=(clang++); fi
fi
run() { (cd "$work" && "${runner[@]}" "./$1.exe" "${@:2}" | tr -d '\r'); }

strict=(-Wall -Wextra -Wpedantic -Werror)
echo '#include <QVAssemblyFile/qvassembly.h>' >"$work/header.c"
for dialect in c99 c11; do
  "$cc" "-std=$dialect" "${strict[@]}" -Wstrict-prototypes "-I$include" -fsyntax-only "$work/header.c" || miss "$dialect"
done
printf '#include <QVAssemblyFile/qvassembly.%s>\n' h hpp >"$work/header.cpp"
for dialect in c++17 c++20; do
  "$cxx" "-std=$dialect" "${strict[@]}" "-I$include" -fsyntax-only "$work/header.cpp" || miss "$dialect"
done

"$cc" -std=c99 "${strict[@]}" -Wstrict-prototypes "${flags[@]}" "$source/examples/c/main.c" -o "$work/c-host.exe" "${link[@]}"
formats=$source/examples/AssemblyFormats.xml parts=$source/examples/parts.csv
run c-host "$formats" orders "$parts" doubled.csv >"$work/printed"
grep -qx 'BRACKET-L-100 16' "$work/printed" || miss "the C host did not print the first part"
[ "$(wc -l <"$work/printed")" = "$(($(wc -l <"$parts") - 1))" ] || miss "the C host did not print every part"

cat >"$work/copy.cpp" <<'END'
#include <QVAssemblyFile/qvassembly.hpp>

#include <cstdio>

static void Expect(bool holds, const char* what) {
  if (!holds) std::printf("%s\n", what);
}

static qva_status StatusOf(void (*call)(qva::Manager&), qva::Manager& manager) {
  try {
    call(manager);
    return QVA_OK;
  } catch (const qva::Error& error) {
    return *error.what() == '\0' ? -1 : error.status();
  }
}

int main(int, char** arguments) {
  qva::Manager in, out;
  for (qva::Manager* manager : {&in, &out}) {
    manager->loadFormats(arguments[1]);
    manager->selectFormat("orders");
  }
  Expect(in.currentFormat() == "orders" && in.formats().size() > 1, "formats");
  {
    qva::Writer writer = out.write(arguments[3], qva::Kind::Parts);
    for (qva::Record& part : in.read(arguments[2], qva::Kind::Parts)) {
      part.set("PartQuantity", part.integer("PartQuantity") * 2);
      writer.put(part);
    }
    writer.commit();
  }
  {
    qva::Writer abandoned = out.write(arguments[3], qva::Kind::Parts);
    abandoned.put(qva::Record(qva::Kind::Parts));
  }
  const qva_status statuses[] = {
      StatusOf([](qva::Manager& m) { m.selectFormat("none of them"); }, in),
      StatusOf([](qva::Manager& m) { m.read("missing.csv", qva::Kind::Parts); }, in),
      StatusOf([](qva::Manager& m) { m.read("list.pdf", qva::Kind::Parts); }, in),
      StatusOf([](qva::Manager& m) { m.read("list.csv", qva::Kind::JobProgress); }, in),
      StatusOf([](qva::Manager&) { qva::Record(qva::Kind::Parts).set("PartName", std::string(256, 'x')); }, in),
      StatusOf([](qva::Manager&) { qva::Record(qva::Kind::Parts).text("PartQuantity"); }, in),
      StatusOf([](qva::Manager&) { qva::Record(qva::Kind::Parts).set("PartName", "\xFF"); }, in),
#ifdef _WIN32  // the code page of the tests' Windows is a western one
      StatusOf([](qva::Manager&) { qva::Record(qva::Kind::Parts).set("PartName", "\xE3\x81\x82"); }, in),
#endif
      StatusOf([](qva::Manager& m) { m.storeFormat("missing.csv", "orders"); }, in)};
  const qva_status expected[] = {QVA_NOT_FOUND,     QVA_FILE_ERROR, QVA_FILE_TYPE,
                                 QVA_NOT_AVAILABLE, QVA_TOO_LONG,   QVA_INVALID_ARGUMENT,
                                 QVA_NOT_ENCODABLE,
#ifdef _WIN32
                                 QVA_NOT_ENCODABLE,
#endif
                                 QVA_FILE_ERROR};
  for (int at = 0; at < static_cast<int>(sizeof expected / sizeof *expected); ++at)
    if (statuses[at] != expected[at]) std::printf("status %d is %d\n", at, statuses[at]);
  in.onProgress([](std::int64_t, std::int64_t) { return false; });
  Expect(StatusOf([](qva::Manager& m) {
           for (qva::Record& part : m.read("big.csv", qva::Kind::Parts)) part.flag("IsMachineAvailable");
         }, in) == QVA_CANCELLED, "cancel");

  qva::Record umlaut(qva::Kind::Parts);
  umlaut.set("PartName", "Tr\xC3\xA4ger");
  Expect(umlaut.text("PartName") == "Tr\xC3\xA4ger", "a text with an umlaut");
  qva::Record program(qva::Kind::PartPrograms);
  program.resizeList("HoleInfo", 2);
  const qva::Record copy = program.clone();
  Expect(copy.listSize("HoleInfo") == 2 && copy.listSize("BendInfo") == 0, "lists");
}
END
{ head -n 1 "$parts" && for _ in $(seq 400); do sed -n 2,21p "$parts"; done; } >"$work/big.csv"
for compiler in "${compilers[@]}"; do
  "$compiler" -std=c++17 "${strict[@]}" "${flags[@]}" "$work/copy.cpp" -o "$work/copy.exe" "${link[@]}"
  run copy "$formats" "$parts" copied.csv >"$work/missed"
  [ ! -s "$work/missed" ] || miss "the C++ wrapper by $compiler: $(cat "$work/missed")"
  cmp "$work/doubled.csv" "$work/copied.csv" || miss "C and C++ write different files"
  rm "$work/copied.csv"
done

[ ${#runner[@]} = 0 ] || exit 0
case "${flags[*]}" in *sanitize*) exit ;; esac
cp -r "$source/python" "$work/python"
ln -s "$source/examples" "$work/examples"
(cd "$work/python" && QVASSEMBLY_LIBRARY=$library/libQVAssemblyFile.so /usr/bin/python3 -m pytest -q -p no:cacheprovider) ||
  miss "the Python package's tests"

# example LANGUAGE: the first one of the documentation.
example() { awk -v start="\`\`\`$1" '$0 == start { on = 1; next } on && /^```/ { exit } on' "$source/docs/embedding.md"; }
cp "$formats" "$parts" "$work"
example cpp >"$work/documented.cpp"
"$cxx" -std=c++17 "${strict[@]}" "$work/documented.cpp" -o "$work/documented.exe" "${link[@]}"
run documented >"$work/documented"
expect "what the C++ example prints" "$(wc -l <"$work/documented") $(head -n 1 "$work/documented")" "48 BRACKET-L-100 8"
(cd "$work" && example python | PYTHONPATH=python QVASSEMBLY_LIBRARY=$library/libQVAssemblyFile.so /usr/bin/python3 -) |
  cmp - "$work/documented" || miss "the Python example prints something else"

mcs -nologo -warnaserror "-out:$work/sample.exe" "$source/dotnet/QVAssembly.cs" "$source/dotnet/sample/Program.cs" ||
  miss "the C# file does not compile"
# sample ARGUMENT...: runs it, with nothing but the library's folder to find it by.
sample() { (cd "$work" && LD_LIBRARY_PATH=$library mono sample.exe "$@"); }
expect "what C# read" "$(sample "$formats" orders "$parts" sharp.csv)" "48 parts"
cmp "$work/doubled.csv" "$work/sharp.csv" || miss "C and C# write different files"
expect "what C# says of an unknown format" "$(sample "$formats" none "$parts" sharp.csv 2>&1 | cut -d';' -f1)" \
  'there is no format "none"'

"$source/scripts/update-declarations" "$work/declarations"
diff -r "$source/docs/declarations" "$work/declarations" || miss "the header has changed; scripts/update-declarations writes them anew"
expect "what they declare" "$(grep -c 'PtrSafe' "$work/declarations/qvassembly.bas") $(grep -c external "$work/declarations/qvassembly.pas")" \
  "$(grep -c '^QVA_API' "$source/c/qvassembly.h") $(grep -c '^QVA_API' "$source/c/qvassembly.h")"
cat >"$work/host.pas" <<'END'
program host;

uses qvassembly;

var
  manager: TQvaManager;
  format: Integer;

begin
  if (qva_manager_create(@manager) = QVA_OK) and
     (qva_formats_load(manager, PAnsiChar(AnsiString(ParamStr(1)))) = QVA_OK) and
     (qva_formats_find(manager, 'none', @format) = QVA_NOT_FOUND) then
    WriteLn(AnsiString(qva_last_error));
  qva_manager_destroy(manager);
end.
END
fpc -v0 -Mdelphi "-Fu$work/declarations" "-FE$work" "-Fl$library" "-k-rpath=$library" "$work/host.pas" >"$work/fpc.log" ||
  miss "the Pascal declarations do not compile: $(cat "$work/fpc.log")"
expect "what Pascal is told" "$("$work/host" "$formats" | cut -d';' -f1)" 'there is no format "none"'
