# shellcheck shell=bash
# What every host's compiler makes of the installed headers. Source this, after expect.sh.

# check_headers INCLUDE-FOLDER COMPILER...: each stands alone, records are copied without a warning, and an older
# standard is refused by name.
check_headers() {
  local include=$1 compiler header flags
  shift
  for compiler in "$@"; do
    echo "the headers, by $compiler"
    flags=(-Wall -Wextra -Wpedantic -Wdeprecated -Wdeprecated-copy-dtor -Werror "-I$include" -fsyntax-only -x c++ -)
    for header in "$include"/QVAssemblyFile/*.h; do
      printf '#include <QVAssemblyFile/%s>\n' "${header##*/}" | "$compiler" -std=c++20 "${flags[@]}" || miss "${header##*/}"
    done
    "$compiler" -std=c++20 "${flags[@]}" <<'END' || miss "copies of records"
#include <QVAssemblyFile/QVAssemblyFile.h>
template <class... Records>
struct Copied {
  void Copy(const Records&... records) { (static_cast<void>(Records(records) = records), ...); }
};
template struct Copied<PartInformation, ToolInformation, MaterialInfomation, ShtInfo, PrtInfo, MatAmncITInfo,
                       MatLibraryInfo, JobProgressInfo, CString, CAssemblyFileMgr, Diagnostic>;
END
    expect "errors as C++17" "$(LC_ALL=C "$compiler" -std=c++17 "${flags[@]}" 2>&1 \
      <<<'#include <QVAssemblyFile/QVAssemblyFile.h>' | grep -o 'error: .*' | tr -d '#"' | sed 's/error: error/error:/')" \
      "error: QVAssemblyFile needs C++20 (-std=c++20)"
  done
}
