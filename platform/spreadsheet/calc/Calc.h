#pragma once

#include "platform/spreadsheet/SpreadsheetApplication.h"
#include "platform/spreadsheet/WorkbookFacts.h"
#include "platform/spreadsheet/calc/Office.h"
#include "platform/spreadsheet/calc/OfficeConnection.h"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheets.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <com/sun/star/util/XNumberFormats.hpp>

#include <map>
#include <optional>
#include <vector>

namespace qv {

/// A sheet of a Calc document. Cells are read and written in blocks of rows, as each call to the office takes
/// a while, of a cell as of a thousand.
class CalcSheet : public Worksheet {
 public:
  /// Throws css::uno::Exception. `marks` are those of WorkbookFacts; nothing where it knows nothing.
  CalcSheet(const css::uno::Reference<css::uno::XInterface>& sheet,
            const css::uno::Reference<css::frame::XModel>& document,
            std::optional<WorkbookFacts::Marks> marks = {});

  std::int32_t UsedRows() override;
  std::int32_t UsedColumns() override;
  std::int32_t FirstUsedRow() override;
  std::string ReadCell(std::int32_t row, std::int32_t column) override;
  void WriteCell(std::int32_t row, std::int32_t column, std::string_view text,
                 std::optional<double> number) override;
  void Flush() override;
  void FormatAsText(std::int32_t column) override;
  void Activate() override;

 private:
  using Cells = css::uno::Sequence<css::uno::Sequence<css::uno::Any>>;  // by row
  enum class NumberKind : char { General, Number, Boolean, Time, Date };

  /// Rows that were read together.
  struct Block {
    css::table::CellRangeAddress range;
    Cells values;
    std::vector<NumberKind> kinds;                              // row by row; empty until they are needed
    css::uno::Sequence<css::uno::Sequence<OUString>> formulas;  // likewise

    bool Holds(sal_Int32 row, sal_Int32 column) const {
      return row >= range.StartRow && row < range.StartRow + values.getLength() && column <= range.EndColumn;
    }
  };

  // Rows and columns count from 0 here, as they do for the office.
  const css::table::CellRangeAddress& UsedRange();
  void CheckPlace(sal_Int32 row, sal_Int32 column) const;
  css::uno::Reference<css::table::XCellRange> RangeOf(const css::table::CellRangeAddress& range) const;
  void ReadBlock(sal_Int32 row, sal_Int32 column);
  void ReadKinds();
  NumberKind KindOfFormat(sal_Int32 key);
  NumberKind KindOf(sal_Int32 row, sal_Int32 column);
  std::string NumberCellText(sal_Int32 row, sal_Int32 column, double value);
  bool IsBoolean(sal_Int32 row, sal_Int32 column, NumberKind kind);
  std::string ErrorCellText(sal_Int32 row, sal_Int32 column);
  std::string ShownText(sal_Int32 row, sal_Int32 column) const;
  void Put(sal_Int32 row, sal_Int32 column, const Cells& cells) const;
  void WriteEachCell(const Cells& cells) const;

  css::uno::Reference<css::sheet::XSpreadsheet> sheet_;
  css::uno::Reference<css::util::XNumberFormats> formats_;
  std::map<sal_Int32, NumberKind> kinds_;
  std::optional<WorkbookFacts::Marks> marks_;
  double firstDay_;  // what the document's dates count from, in days since 30 December 1899
  css::table::CellRangeAddress end_;
  std::optional<css::table::CellRangeAddress> used_;
  Block block_;
  sal_Int32 blockRows_;                               // how many the next one has
  sal_Int32 heldRow_ = 0;                             // the first row that is held back
  std::vector<std::vector<css::uno::Any>> heldBack_;  // cells that are yet to be written
};

/// A Calc document.
class CalcWorkbook : public Workbook {
 public:
  /// Throws SpreadsheetError when the document is no spreadsheet.
  CalcWorkbook(const css::uno::Reference<css::lang::XComponent>& document, WorkbookFacts facts);
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

  WorkbookFacts facts_;
  css::uno::Reference<css::lang::XComponent> component_;  // null after Close()
  css::uno::Reference<css::frame::XModel> model_;
  css::uno::Reference<css::sheet::XSpreadsheetDocument> document_;
};

/// LibreOffice Calc, without a window.
class CalcApplication : public SpreadsheetApplication {
 public:
  /// Throws SpreadsheetError.
  CalcApplication(const std::string& programFolder, WorkbookInspector inspect);
  ~CalcApplication() override;

  std::unique_ptr<Workbook> OpenWorkbook(const std::string& path) override;
  std::unique_ptr<Workbook> AddWorkbook() override;
  void CloseWorkbooks() override;
  void Quit() override;

 private:
  std::unique_ptr<CalcWorkbook> Load(const OUString& url, bool readOnly, WorkbookFacts facts);

  WorkbookInspector inspect_;
  std::unique_ptr<OfficeConnection> connection_;  // null after Quit()
};

}  // namespace qv
