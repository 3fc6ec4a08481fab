#include "platform/spreadsheet/calc/CalcPlugin.h"
#include "platform/spreadsheet/calc/CalcSheet.h"
#include "platform/spreadsheet/calc/Office.h"
#include "platform/spreadsheet/calc/OfficeConnection.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/document/MacroExecMode.hpp>
#include <com/sun/star/document/UpdateDocMode.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheets.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include <filesystem>

namespace qv {
namespace {

void CloseDocument(const css::uno::Reference<css::lang::XComponent>& document) {
  css::uno::Reference<css::util::XCloseable>(document, css::uno::UNO_QUERY_THROW)->close(true);
}

template <class Value>
css::beans::PropertyValue Property(const char* name, const Value& value) {
  css::beans::PropertyValue property;
  property.Name = OUString::createFromAscii(name);
  property.Value <<= value;
  return property;
}

// What the office takes for text is none of the workbooks that it is to read: it takes everything for text in
// the end.
bool IsText(const css::uno::Reference<css::frame::XModel>& document) {
  for (const css::beans::PropertyValue& property : document->getArgs()) {
    OUString filter;
    if (property.Name == "FilterName" && (property.Value >>= filter))
      return filter.startsWith("Text") || filter.startsWith("Rich Text");
  }
  return false;
}

class CalcWorkbook final : public Workbook {
 public:
  /// Throws SpreadsheetError when the document is no spreadsheet.
  CalcWorkbook(const css::uno::Reference<css::lang::XComponent>& document, WorkbookFacts facts)
      : facts_(std::move(facts)),
        component_(document),
        model_(document, css::uno::UNO_QUERY),
        document_(document, css::uno::UNO_QUERY) {
    if (document_.is() && model_.is() && !IsText(model_)) return;
    CallOffice("a document cannot be closed", [&] { CloseDocument(document); });
    throw SpreadsheetError("it is damaged, or no workbook");
  }
  ~CalcWorkbook() override {
    try {
      if (component_.is()) CloseDocument(component_);
    } catch (const css::uno::Exception&) {
      // What the office will not close goes with the office.
    }
  }

  std::unique_ptr<Worksheet> ActiveSheet() override {
    return CallOffice("the workbook has no active sheet", [this] {
      const css::uno::Reference<css::container::XIndexAccess> sheets(Sheets(), css::uno::UNO_QUERY_THROW);
      const sal_Int32 index = facts_.activeSheet < sheets->getCount() ? facts_.activeSheet : 0;
      const css::uno::Reference<css::uno::XInterface> sheet(sheets->getByIndex(index),
                                                            css::uno::UNO_QUERY_THROW);
      return MakeCalcSheet(sheet, model_, facts_.marks);
    });
  }

  std::unique_ptr<Worksheet> FindSheet(const char* name) override {
    return CallOffice("the sheets cannot be listed", [&]() -> std::unique_ptr<Worksheet> {
      for (const OUString& there : Sheets()->getElementNames())
        if (there.equalsIgnoreAsciiCaseAscii(name)) return SheetCalled(there);
      return nullptr;
    });
  }

  std::unique_ptr<Worksheet> AddSheet() override {
    return CallOffice("no sheet can be added", [this] {
      const auto sheets = Sheets();
      sal_Int32 number = sheets->getElementNames().getLength() + 1;
      while (sheets->hasByName("Sheet" + OUString::number(number))) ++number;
      const OUString name = "Sheet" + OUString::number(number);
      sheets->insertNewByName(name, static_cast<sal_Int16>(sheets->getElementNames().getLength()));
      return SheetCalled(name);
    });
  }

  void SaveAs(const std::string& path) override {
    CallOffice("the workbook cannot be saved", [&] {
      const css::beans::PropertyValue filter = Property("FilterName", OUString("MS Excel 97"));
      const css::uno::Reference<css::frame::XStorable> storable(component_, css::uno::UNO_QUERY_THROW);
      storable->storeToURL(FileUrl(std::filesystem::absolute(path).string()), {&filter, 1});
    });
  }

  void Close() override {
    CallOffice("the workbook cannot be closed", [this] { CloseDocument(component_); });
    component_.clear();
  }

  /// Calls the first sheet of a new document "Sheet1" whatever the office's language. Throws
  /// css::uno::Exception.
  void NameFirstSheet() {
    const auto sheets = Sheets();
    const OUString name = sheets->getElementNames()[0];
    css::uno::Reference<css::container::XNamed>(sheets->getByName(name), css::uno::UNO_QUERY_THROW)
        ->setName("Sheet1");
  }

 private:
  css::uno::Reference<css::sheet::XSpreadsheets> Sheets() const { return document_->getSheets(); }

  std::unique_ptr<Worksheet> SheetCalled(const OUString& name) const {
    const css::uno::Reference<css::uno::XInterface> sheet(Sheets()->getByName(name),
                                                          css::uno::UNO_QUERY_THROW);
    return MakeCalcSheet(sheet, model_);
  }

  WorkbookFacts facts_;
  css::uno::Reference<css::lang::XComponent> component_;  // null after Close()
  css::uno::Reference<css::frame::XModel> model_;
  css::uno::Reference<css::sheet::XSpreadsheetDocument> document_;
};

/// LibreOffice Calc, without a window.
class CalcApplication final : public SpreadsheetApplication {
 public:
  /// Throws SpreadsheetError.
  CalcApplication(const std::string& programFolder, WorkbookInspector inspect) : inspect_(inspect) {
    connection_ = CallOffice("LibreOffice does not start",
                             [&] { return std::make_unique<OfficeConnection>(programFolder); });
  }
  ~CalcApplication() override {
    try {
      if (connection_ != nullptr) connection_->Quit();
    } catch (const css::uno::Exception&) {
      // An office that refuses is ended with its connection.
    }
  }

  std::unique_ptr<Workbook> OpenWorkbook(const std::string& path) override {
    WorkbookFacts facts = inspect_(path);
    return CallOffice("LibreOffice cannot open it", [&] {
      return Load(FileUrl(std::filesystem::absolute(path).string()), true, std::move(facts));
    });
  }

  std::unique_ptr<Workbook> AddWorkbook() override {
    return CallOffice("no workbook can be added", [this] {
      auto workbook = Load("private:factory/scalc", false, {});
      workbook->NameFirstSheet();
      return workbook;
    });
  }

  // Each workbook closes itself; the office keeps no list that would outlive them.
  void CloseWorkbooks() override {}

  void Quit() override {
    CallOffice("LibreOffice does not quit", [this] { connection_->Quit(); });
    connection_.reset();
  }

 private:
  std::unique_ptr<CalcWorkbook> Load(const OUString& url, bool readOnly, WorkbookFacts facts) {
    // Without a window, without a lock file beside the workbook, and without running anything that it holds.
    const css::beans::PropertyValue how[] = {
        Property("Hidden", true), Property("ReadOnly", readOnly),
        Property("MacroExecutionMode", css::document::MacroExecMode::NEVER_EXECUTE),
        Property("UpdateDocMode", css::document::UpdateDocMode::NO_UPDATE)};
    const auto document =
        connection_->Desktop()->loadComponentFromURL(url, "_blank", 0, {how, std::size(how)});
    if (!document.is())
      throw SpreadsheetError(facts.isEncrypted ? "a password is needed" : "it is damaged, or no workbook");
    return std::make_unique<CalcWorkbook>(document, std::move(facts));
  }

  WorkbookInspector inspect_;
  std::unique_ptr<OfficeConnection> connection_;  // null after Quit()
};

}  // namespace
}  // namespace qv

extern "C" __attribute__((visibility("default"))) qv::SpreadsheetApplication* QVStartCalc(
    int version, const char* programFolder, qv::WorkbookInspector inspect, std::string* reason) {
  try {
    if (version == qv::kCalcPluginVersion) return new qv::CalcApplication(programFolder, inspect);
    *reason = "the LibreOffice component belongs to another version of the library";
  } catch (const std::exception& exception) {
    *reason = exception.what();
  }
  return nullptr;
}
