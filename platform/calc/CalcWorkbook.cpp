#include "platform/calc/CalcWorkbook.h"

#include "platform/calc/CalcSheet.h"
#include "platform/calc/OfficeCall.h"

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/frame/XStorable.hpp>
#include <com/sun/star/util/XCloseable.hpp>

#include <filesystem>

namespace qv {
namespace {

constexpr char kExcelFilter[] = "MS Excel 97";

void CloseDocument(const css::uno::Reference<css::lang::XComponent>& document) {
  css::uno::Reference<css::util::XCloseable>(document, css::uno::UNO_QUERY_THROW)->close(true);
}

}  // namespace

CalcWorkbook::CalcWorkbook(const css::uno::Reference<css::lang::XComponent>& document, sal_Int32 activeSheet)
    : activeSheet_(activeSheet),
      component_(document),
      model_(document, css::uno::UNO_QUERY),
      document_(document, css::uno::UNO_QUERY) {
  if (document_.is() && model_.is()) return;
  CallOffice("a document cannot be closed", [&] { CloseDocument(document); });
  throw SpreadsheetError("it is no workbook");
}

CalcWorkbook::~CalcWorkbook() {
  try {
    if (component_.is()) CloseDocument(component_);
  } catch (const css::uno::Exception&) {
    // What the office will not close goes with the office.
  }
}

css::uno::Reference<css::sheet::XSpreadsheets> CalcWorkbook::Sheets() const { return document_->getSheets(); }

std::unique_ptr<Worksheet> CalcWorkbook::SheetCalled(const OUString& name) const {
  const css::uno::Reference<css::uno::XInterface> sheet(Sheets()->getByName(name), css::uno::UNO_QUERY_THROW);
  return std::make_unique<CalcSheet>(sheet, model_);
}

void CalcWorkbook::NameFirstSheet() {
  const auto sheets = Sheets();
  const OUString name = sheets->getElementNames()[0];
  css::uno::Reference<css::container::XNamed>(sheets->getByName(name), css::uno::UNO_QUERY_THROW)
      ->setName("Sheet1");
}

std::unique_ptr<Worksheet> CalcWorkbook::ActiveSheet() {
  return CallOffice("the workbook has no active sheet", [this] {
    const css::uno::Reference<css::container::XIndexAccess> sheets(Sheets(), css::uno::UNO_QUERY_THROW);
    const sal_Int32 rank = activeSheet_ < sheets->getCount() ? activeSheet_ : 0;
    const css::uno::Reference<css::uno::XInterface> sheet(sheets->getByIndex(rank),
                                                          css::uno::UNO_QUERY_THROW);
    return std::make_unique<CalcSheet>(sheet, model_);
  });
}

std::unique_ptr<Worksheet> CalcWorkbook::FindSheet(const char* name) {
  return CallOffice("the sheets cannot be listed", [&]() -> std::unique_ptr<Worksheet> {
    for (const OUString& there : Sheets()->getElementNames())
      if (there.equalsIgnoreAsciiCaseAscii(name)) return SheetCalled(there);
    return nullptr;
  });
}

std::unique_ptr<Worksheet> CalcWorkbook::AddSheet() {
  return CallOffice("no sheet can be added", [this] {
    const auto sheets = Sheets();
    sal_Int32 number = sheets->getElementNames().getLength() + 1;
    while (sheets->hasByName("Sheet" + OUString::number(number))) ++number;
    const OUString name = "Sheet" + OUString::number(number);
    sheets->insertNewByName(name, static_cast<sal_Int16>(sheets->getElementNames().getLength()));
    return SheetCalled(name);
  });
}

void CalcWorkbook::SaveAs(const std::string& path) {
  CallOffice("the workbook cannot be saved", [&] {
    css::beans::PropertyValue filter;
    filter.Name = "FilterName";
    filter.Value <<= OUString(kExcelFilter);
    const css::uno::Reference<css::frame::XStorable> storable(component_, css::uno::UNO_QUERY_THROW);
    storable->storeToURL(FileUrl(std::filesystem::absolute(path).string()), {&filter, 1});
  });
}

void CalcWorkbook::Close() {
  CallOffice("the workbook cannot be closed", [this] { CloseDocument(component_); });
  component_.clear();
}

}  // namespace qv
