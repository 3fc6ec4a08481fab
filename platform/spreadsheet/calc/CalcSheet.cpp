#include "platform/spreadsheet/calc/CalcSheet.h"

#include "platform/spreadsheet/calc/CellText.h"
#include "platform/spreadsheet/calc/Office.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/lang/DisposedException.hpp>
#include <com/sun/star/lang/Locale.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XCellRangeFormula.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XUniqueCellFormatRangesSupplier.hpp>
#include <com/sun/star/sheet/XUsedAreaCursor.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/table/XCell.hpp>
#include <com/sun/star/table/XCellRange.hpp>
#include <com/sun/star/text/XTextRange.hpp>
#include <com/sun/star/uno/Sequence.hxx>
#include <com/sun/star/util/Date.hpp>
#include <com/sun/star/util/NumberFormat.hpp>
#include <com/sun/star/util/XNumberFormatTypes.hpp>
#include <com/sun/star/util/XNumberFormats.hpp>
#include <com/sun/star/util/XNumberFormatsSupplier.hpp>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace qv {
namespace {

constexpr sal_Int32 kFirstBlockRows = 16;
constexpr sal_Int32 kMaxBlockRows = 1024;
constexpr sal_Unicode kFeature = 1;  // replaces a tab in the value of a cell of several lines

template <class Interface>
css::uno::Reference<Interface> As(const css::uno::Reference<css::uno::XInterface>& object) {
  return css::uno::Reference<Interface>(object, css::uno::UNO_QUERY_THROW);
}

/// Workbooks of the Macintosh count from 1904.
double FirstDayOf(const css::uno::Reference<css::frame::XModel>& document) {
  css::util::Date first(30, 12, 1899);
  As<css::beans::XPropertySet>(document)->getPropertyValue("NullDate") >>= first;
  return DaysSince1899(first.Year, first.Month, first.Day);
}

/// Without the copy that the office's sequences make of themselves for who may change them.
template <class Value>
const Value& At(const css::uno::Sequence<css::uno::Sequence<Value>>& rows, sal_Int32 row, sal_Int32 column) {
  return rows[row][column];
}

std::string CellName(std::int32_t row, std::int32_t column) {
  return "the cell in row " + std::to_string(row) + ", column " + std::to_string(column);
}

class CalcSheet final : public Worksheet {
 public:
  CalcSheet(const css::uno::Reference<css::uno::XInterface>& sheet,
            const css::uno::Reference<css::frame::XModel>& document,
            std::optional<WorkbookFacts::Marks> marks)
      : sheet_(sheet, css::uno::UNO_QUERY_THROW),
        formats_(As<css::util::XNumberFormatsSupplier>(document)->getNumberFormats()),
        marks_(std::move(marks)),
        firstDay_(FirstDayOf(document)),
        end_(As<css::sheet::XCellRangeAddressable>(sheet_)->getRangeAddress()),
        blockRows_(kFirstBlockRows) {}

  std::int32_t UsedRows() override {
    return CallOffice("the used range cannot be read",
                      [this] { return UsedRange().EndRow - UsedRange().StartRow + 1; });
  }

  std::int32_t UsedColumns() override {
    return CallOffice("the used range cannot be read",
                      [this] { return UsedRange().EndColumn - UsedRange().StartColumn + 1; });
  }

  std::int32_t FirstUsedRow() override {
    return CallOffice("the used range cannot be read", [this] { return UsedRange().StartRow + 1; });
  }

  std::string ReadCell(std::int32_t fromRow, std::int32_t fromColumn) override {
    return CallOffice(CellName(fromRow, fromColumn) + " cannot be read", [&] {
      const sal_Int32 row = fromRow - 1, column = fromColumn - 1;
      CheckPlace(row, column);
      if (!block_.Holds(row, column)) ReadBlock(row, column);
      const css::uno::Any& value = At(block_.values, row - block_.range.StartRow, column);
      if (OUString text; value >>= text)
        return text.indexOf(kFeature) < 0 ? FromOffice(text) : ShownText(row, column);
      if (double number = 0; value >>= number) return NumberCellText(row, column, number);
      return ErrorCellText(row, column);
    });
  }

  void WriteCell(std::int32_t inRow, std::int32_t inColumn, std::string_view text,
                 std::optional<double> number) override {
    CallOffice(CellName(inRow, inColumn) + " cannot be written",
               [&] { CheckPlace(inRow - 1, inColumn - 1); });
    if (inRow - 1 < heldRow_ || inRow - 1 >= heldRow_ + kMaxBlockRows) Flush();
    if (heldBack_.empty()) heldRow_ = inRow - 1;
    const auto row = static_cast<std::size_t>(inRow - 1 - heldRow_),
               column = static_cast<std::size_t>(inColumn - 1);
    if (heldBack_.size() <= row) heldBack_.resize(row + 1);
    if (heldBack_[row].size() <= column) heldBack_[row].resize(column + 1, css::uno::Any(OUString()));
    heldBack_[row][column] = number ? css::uno::Any(*number) : css::uno::Any(ToOffice(text));
  }

  void Flush() override {
    const auto rows = std::exchange(heldBack_, {});
    if (rows.empty()) return;
    std::size_t width = 0;
    for (const auto& row : rows) width = std::max(width, row.size());
    Cells cells(static_cast<sal_Int32>(rows.size()));
    for (std::size_t row = 0; row < rows.size(); ++row) {
      std::vector<css::uno::Any> line = rows[row];
      line.resize(width, css::uno::Any(OUString()));  // an empty text leaves a cell empty
      cells.getArray()[row] = {line.data(), static_cast<sal_Int32>(width)};
    }
    used_.reset();
    block_ = {};
    CallOffice("cells cannot be written", [&] {
      try {
        Put(heldRow_, 0, cells);
      } catch (const css::lang::DisposedException&) {
        throw;  // there is no office any more
      } catch (const css::uno::RuntimeException&) {
        WriteEachCell(cells);
      }
    });
  }

  void FormatAsText(std::int32_t column) override {
    try {
      const sal_Int32 key =
          As<css::util::XNumberFormatTypes>(formats_)->getStandardFormat(css::util::NumberFormat::TEXT, {});
      As<css::beans::XPropertySet>(RangeOf({end_.Sheet, column - 1, 0, column - 1, end_.EndRow}))
          ->setPropertyValue("NumberFormat", css::uno::Any(key));
    } catch (const css::uno::Exception&) {
      // The texts themselves are written all the same.
    }
  }

  // A document without a window is saved with its first sheet as the active one, and sheets are only ever
  // added after that.
  void Activate() override {}

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

  const css::table::CellRangeAddress& UsedRange() {
    if (!used_) {
      const auto area = As<css::sheet::XUsedAreaCursor>(sheet_->createCursor());
      area->gotoStartOfUsedArea(false);
      area->gotoEndOfUsedArea(true);
      used_ = As<css::sheet::XCellRangeAddressable>(area)->getRangeAddress();
    }
    return *used_;
  }

  void CheckPlace(sal_Int32 row, sal_Int32 column) const {
    if (row < 0 || column < 0 || row > end_.EndRow || column > end_.EndColumn)
      throw SpreadsheetError("there is no such cell");
  }

  css::uno::Reference<css::table::XCellRange> RangeOf(const css::table::CellRangeAddress& range) const {
    return sheet_->getCellRangeByPosition(range.StartColumn, range.StartRow, range.EndColumn, range.EndRow);
  }

  /// Blocks grow, so that who wants only the first rows does not wait for many.
  void ReadBlock(sal_Int32 row, sal_Int32 column) {
    if (!heldBack_.empty()) Flush();
    const css::table::CellRangeAddress& used = UsedRange();
    block_ = {};
    block_.range = {end_.Sheet, 0, row, std::max(column, used.EndColumn),
                    std::clamp(row + blockRows_ - 1, row, std::max(row, used.EndRow))};
    block_.values = As<css::sheet::XCellRangeData>(RangeOf(block_.range))->getDataArray();
    blockRows_ = std::min(2 * blockRows_, kMaxBlockRows);
  }

  std::string NumberCellText(sal_Int32 row, sal_Int32 column, double value) {
    NumberKind kind = KindOf(row, column);
    if ((value == 0 || value == 1) && kind <= NumberKind::Number && IsBoolean(row, column, kind))
      kind = NumberKind::Boolean;
    if (kind == NumberKind::Boolean) return BooleanText(value != 0);
    if (kind <= NumberKind::Number) return NumberText(value);
    const bool isTimeOfDay = kind == NumberKind::Time && value >= 0 && value < 1;
    return DateText(isTimeOfDay ? value : value + firstDay_);
  }

  NumberKind KindOf(sal_Int32 row, sal_Int32 column) {
    if (block_.kinds.empty()) ReadKinds();
    const sal_Int32 width = block_.range.EndColumn + 1;
    return block_.kinds[static_cast<std::size_t>((row - block_.range.StartRow) * width + column)];
  }

  /// The office tells all cells of one format at once.
  void ReadKinds() {
    const css::table::CellRangeAddress& block = block_.range;
    const std::size_t width = static_cast<std::size_t>(block.EndColumn) + 1;
    block_.kinds.assign(width * static_cast<std::size_t>(block.EndRow - block.StartRow + 1),
                        NumberKind::General);
    const auto formats =
        As<css::sheet::XUniqueCellFormatRangesSupplier>(RangeOf(block))->getUniqueCellFormatRanges();
    for (sal_Int32 index = 0; index < formats->getCount(); ++index) {
      const css::uno::Reference<css::sheet::XSheetCellRanges> cells(formats->getByIndex(index),
                                                                    css::uno::UNO_QUERY_THROW);
      sal_Int32 key = 0;
      As<css::beans::XPropertySet>(cells)->getPropertyValue("NumberFormat") >>= key;
      const NumberKind kind = KindOfFormat(key);
      if (kind == NumberKind::General) continue;
      for (const css::table::CellRangeAddress& range : cells->getRangeAddresses())
        for (sal_Int32 row = std::max(range.StartRow, block.StartRow);
             row <= std::min(range.EndRow, block.EndRow); ++row)
          std::fill_n(block_.kinds.begin() + static_cast<std::ptrdiff_t>(width) * (row - block.StartRow) +
                          range.StartColumn,
                      std::min(range.EndColumn, block.EndColumn) - range.StartColumn + 1, kind);
    }
  }

  NumberKind KindOfFormat(sal_Int32 key) {
    if (const auto known = kinds_.find(key); known != kinds_.end()) return known->second;
    namespace NumberFormat = css::util::NumberFormat;
    sal_Int16 type = NumberFormat::NUMBER;
    formats_->getByKey(key)->getPropertyValue("Type") >>= type;
    bool isStandard = false;
    formats_->getByKey(key)->getPropertyValue("StandardFormat") >>= isStandard;
    NumberKind kind = NumberKind::Number;
    if ((type & NumberFormat::LOGICAL) != 0)
      kind = NumberKind::Boolean;
    else if ((type & NumberFormat::DATE) != 0)
      kind = NumberKind::Date;
    else if ((type & NumberFormat::TIME) != 0)
      kind = NumberKind::Time;
    else if ((type & NumberFormat::NUMBER) != 0 && isStandard)
      kind = NumberKind::General;
    kinds_[key] = kind;
    return kind;
  }

  /// The office keeps a truth value as a number, and one that a file holds as a formula. A formula without a
  /// format of its own shows it as a word.
  bool IsBoolean(sal_Int32 row, sal_Int32 column, NumberKind kind) {
    if (marks_) {
      const auto mark = marks_->find(WorkbookFacts::PlaceOf(row + 1, column + 1));
      return mark != marks_->end() && mark->second == nullptr;
    }
    if (kind != NumberKind::General) return false;
    if (!block_.formulas.hasElements())
      block_.formulas = As<css::sheet::XCellRangeFormula>(RangeOf(block_.range))->getFormulaArray();
    if (!At(block_.formulas, row - block_.range.StartRow, column).startsWith("=")) return false;
    const std::string shown = ShownText(row, column);
    return shown != "0" && shown != "1";
  }

  /// An error has no value, only a name, and the office has others than files for some.
  std::string ErrorCellText(sal_Int32 row, sal_Int32 column) {
    if (marks_) {
      const auto mark = marks_->find(WorkbookFacts::PlaceOf(row + 1, column + 1));
      if (mark != marks_->end() && mark->second != nullptr) return mark->second;
    }
    std::string shown = ShownText(row, column);
    return shown.starts_with("Err:") ? "#VALUE!" : shown;
  }

  std::string ShownText(sal_Int32 row, sal_Int32 column) const {
    return FromOffice(As<css::text::XTextRange>(sheet_->getCellByPosition(column, row))->getString());
  }

  void Put(sal_Int32 row, sal_Int32 column, const Cells& cells) const {
    const sal_Int32 lastRow = row + cells.getLength() - 1, lastColumn = column + cells[0].getLength() - 1;
    As<css::sheet::XCellRangeData>(RangeOf({end_.Sheet, column, row, lastColumn, lastRow}))
        ->setDataArray(cells);
  }

  /// Finds the one that is refused, and writes all others.
  void WriteEachCell(const Cells& cells) const {
    std::optional<CellRefused> refused;
    for (sal_Int32 row = 0; row < cells.getLength(); ++row)
      for (sal_Int32 column = 0; column < cells[row].getLength(); ++column) {
        const css::uno::Any& value = cells[row][column];
        try {
          const css::uno::Sequence<css::uno::Any> cell(&value, 1);
          Put(heldRow_ + row, column, {&cell, 1});
        } catch (const css::uno::RuntimeException& exception) {
          OUString text;
          double number = 0;
          const bool isNumber = value >>= number;
          value >>= text;
          if (!refused)
            refused.emplace(heldRow_ + row + 1, column + 1, isNumber ? NumberText(number) : FromOffice(text),
                            FromOffice(exception.Message));
        }
      }
    if (refused) throw *refused;
  }

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

}  // namespace

std::unique_ptr<Worksheet> MakeCalcSheet(const css::uno::Reference<css::uno::XInterface>& sheet,
                                         const css::uno::Reference<css::frame::XModel>& document,
                                         std::optional<WorkbookFacts::Marks> marks) {
  return std::make_unique<CalcSheet>(sheet, document, std::move(marks));
}

}  // namespace qv
