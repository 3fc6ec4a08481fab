#pragma once

#include "platform/SpreadsheetApplication.h"
#include "platform/calc/OfficeText.h"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheets.hpp>

namespace qv {

/// A Calc document.
class CalcWorkbook : public Workbook {
 public:
  /// Throws SpreadsheetError when the document is no spreadsheet. `activeSheet` is a rank.
  CalcWorkbook(const css::uno::Reference<css::lang::XComponent>& document, sal_Int32 activeSheet);
  ~CalcWorkbook() override;

  std::unique_ptr<Worksheet> ActiveSheet() override;
  std::unique_ptr<Worksheet> FindSheet(const char* name) override;
  std::unique_ptr<Worksheet> AddSheet() override;
  void SaveAs(const std::string& path) override;
  void Close() override;

  /// Calls the first sheet of a new document "Sheet1" whatever the office's language. Throws
  /// css::uno::Exception.
  void NameFirstSheet();

 private:
  css::uno::Reference<css::sheet::XSpreadsheets> Sheets() const;
  std::unique_ptr<Worksheet> SheetCalled(const OUString& name) const;

  sal_Int32 activeSheet_;
  css::uno::Reference<css::lang::XComponent> component_;  // null after Close()
  css::uno::Reference<css::frame::XModel> model_;
  css::uno::Reference<css::sheet::XSpreadsheetDocument> document_;
};

}  // namespace qv
