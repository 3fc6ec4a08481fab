#pragma once

namespace qv {

/// What a reader noticed while it put a cell into a record.
enum class Remark : unsigned char {
  None,
  NotANumber,
  TrailingText,
  NumberOutOfRange,
  EmptyValue,
  UnknownWord,
  TextCut,
  AbandonRow,  ///< the cell says that the row is no record at all
};

}  // namespace qv
