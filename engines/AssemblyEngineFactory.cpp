#include "engines/CAssemblyFile.h"
#include "engines/CCSVAssembly.h"
#include "engines/CTxtAssembly.h"
#include "engines/CXLSAssembly.h"
#include "engines/columns/Words.h"
#include "platform/Diagnostics.h"
#include "platform/MessageBox.h"

#include <array>
#include <string_view>

namespace {

using MakeEngine = std::unique_ptr<CAssemblyFile> (*)();

template <class Engine>
std::unique_ptr<CAssemblyFile> Make() {
  return std::make_unique<Engine>();
}

struct FileType {
  std::string_view extension;
  MakeEngine make;
};

constexpr std::array kFileTypes = {FileType{".xls", Make<CXLSAssembly>}, FileType{".csv", Make<CCSVAssembly>},
                                   FileType{".txt", Make<CTxtAssembly>}};

// From the last dot of the file name on.
std::string_view ExtensionOf(std::string_view path) {
  const std::size_t dot = path.find_last_of("./\\:");
  return dot == std::string_view::npos || path[dot] != '.' ? std::string_view() : path.substr(dot);
}

}  // namespace

std::unique_ptr<CAssemblyFile> CreateAssemblyEngine(const char* path) {
  const std::string_view name = path == nullptr ? "" : path;
  for (const FileType& type : kFileTypes)
    if (qv::EqualsIgnoringCase(ExtensionOf(name), type.extension)) return type.make();
  if (qv::DiagnosticsWanted())
    qv::Report({std::string(name),
                0,
                {},
                DiagnosticCode::UnsupportedFileType,
                std::string(ExtensionOf(name)),
                {},
                "the file type is none of .txt, .csv and .xls; save it as one of these"});
  qv::ShowMessage("File Format Error!");
  return nullptr;
}
