#pragma once

#include "text/Numbers.h"

namespace qv {

/// What a reader noticed while it put a cell into a record.
enum class CellRemark : unsigned char {
  None,
  NotANumber,
  TrailingText,
  NumberOutOfRange,
  EmptyValue,
  UnknownWord,
  TextCut,
  AbandonRow,  ///< the cell says that the row is no record at all
};

constexpr CellRemark RemarkOn(NumberFault fault) {
  switch (fault) {
    case NumberFault::Empty:
      return CellRemark::EmptyValue;
    case NumberFault::NoDigits:
      return CellRemark::NotANumber;
    case NumberFault::TrailingText:
      return CellRemark::TrailingText;
    case NumberFault::OutOfRange:
      return CellRemark::NumberOutOfRange;
    default:
      return CellRemark::None;
  }
}

}  // namespace qv
