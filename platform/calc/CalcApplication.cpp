#include "platform/calc/CalcApplication.h"

#include "platform/calc/ActiveSheet.h"
#include "platform/calc/CalcPlugin.h"
#include "platform/calc/CalcWorkbook.h"
#include "platform/calc/OfficeCall.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace qv {
namespace {

template <class Value>
css::beans::PropertyValue Property(const char* name, const Value& value) {
  css::beans::PropertyValue property;
  property.Name = OUString::createFromAscii(name);
  property.Value <<= value;
  return property;
}

}  // namespace

CalcApplication::CalcApplication(const std::string& programFolder) {
  connection_ = CallOffice("LibreOffice does not start",
                           [&] { return std::make_unique<OfficeConnection>(programFolder); });
}

CalcApplication::~CalcApplication() {
  try {
    if (connection_ != nullptr) connection_->Quit();
  } catch (const css::uno::Exception&) {
    // An office that refuses is ended with its connection.
  }
}

std::unique_ptr<CalcWorkbook> CalcApplication::Load(const OUString& url, bool readOnly,
                                                    sal_Int32 activeSheet) {
  // Without a window, without a lock file beside the workbook, and without running anything that it holds.
  const css::beans::PropertyValue how[] = {
      Property("Hidden", true), Property("ReadOnly", readOnly),
      Property("MacroExecutionMode", css::document::MacroExecMode::NEVER_EXECUTE),
      Property("UpdateDocMode", css::document::UpdateDocMode::NO_UPDATE)};
  const auto document = connection_->Desktop()->loadComponentFromURL(url, "_blank", 0, {how, std::size(how)});
  if (!document.is()) throw SpreadsheetError("it is no document");
  return std::make_unique<CalcWorkbook>(document, activeSheet);
}

std::unique_ptr<Workbook> CalcApplication::OpenWorkbook(const std::string& path) {
  if (access(path.c_str(), R_OK) != 0) throw SpreadsheetError(std::strerror(errno));
  return CallOffice("the file cannot be opened", [&] {
    const OUString url = FileUrl(std::filesystem::absolute(path).string());
    return Load(url, true, ActiveSheetOf(connection_->Context(), url));
  });
}

std::unique_ptr<Workbook> CalcApplication::AddWorkbook() {
  return CallOffice("no workbook can be added", [this] {
    auto workbook = Load("private:factory/scalc", false, 0);
    workbook->NameFirstSheet();
    return workbook;
  });
}

void CalcApplication::CloseWorkbooks() {
  // Each workbook closes itself; the office keeps no list that would outlive them.
}

void CalcApplication::Quit() {
  CallOffice("LibreOffice does not quit", [this] { connection_->Quit(); });
  connection_.reset();
}

}  // namespace qv

extern "C" __attribute__((visibility("default"))) qv::SpreadsheetApplication* QVStartCalc(
    int version, const char* programFolder, std::string* reason) {
  try {
    if (version == qv::kCalcPluginVersion) return new qv::CalcApplication(programFolder);
    *reason = "the LibreOffice component belongs to another version of the library";
  } catch (const std::exception& exception) {
    *reason = exception.what();
  }
  return nullptr;
}
