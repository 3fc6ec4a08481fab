#pragma once

#include <QVAssemblyFile/Export.h>

#include <cstdint>
#include <string>

/// What the library did not take as it stood. Results never change because of a diagnostic: an import that
/// reports fifty of them still returns true, as it does without a handler.
enum class DiagnosticCode {
  FileNotOpened,         ///< the file could not be opened or read to its end; nothing (more) was read
  FileNotWritten,        ///< the file could not be written whole; an existing one stays as it was
  ConfigurationInvalid,  ///< the format file is not well formed (the built-in format is used) or not a format
                         ///< file
  ConfigurationMissing,  ///< the format file is not there; the built-in format is used
  UnsupportedFileType,   ///< the extension is none of .txt, .csv, .xls
  NoSpreadsheet,         ///< no spreadsheet application could be started
  SpreadsheetFailed,     ///< the spreadsheet application refused a call
  UnknownColumn,         ///< a column keyword that this kind of record does not know
  PositionTaken,         ///< two items of a format claim one column position; the first keeps it
  InvalidPosition,       ///< the Order text of a format's item is no column position
  RowLeftOut,            ///< a row gave no record
  RowTooShort,           ///< a row has fewer fields than the format has columns
  NoHeaderRow,           ///< the file or worksheet ends before the line of the header row
  NoColumns,             ///< the format has no columns for this kind of record
  RowTooLong,            ///< a row has more fields than the format has columns; the surplus was ignored
  NotANumber,            ///< no digits; stored as 0
  TrailingText,          ///< text after a number; ignored
  NumberOutOfRange,      ///< a number that the field cannot hold
  EmptyValue,     ///< an empty cell that set a number or a choice to something else than a fresh record has
  UnknownWord,    ///< a word that is none of the field's choices
  TextCut,        ///< a text longer than the field
  OpenQualifier,  ///< a text qualifier was still open at the end of the line
  StrayQuote,     ///< a double quote that encloses nothing was taken away, alone or with its field
  ByteOrderMark,  ///< the file starts with a byte-order mark, which became part of the first field
  NulByte,        ///< a line holds NUL bytes
  FormulaLike,    ///< a written cell that a spreadsheet would run as a formula
  DelimiterInValue,  ///< a written value holds the delimiter or the qualifier; a reader will split it
  CarriageReturn,    ///< a line holds a carriage return that does not belong to its end
  EndOfText,         ///< the file goes on behind the byte that ends a text on this platform; that is not read
  UnknownFormat,     ///< no format bears the name that was chosen; an empty format is used
  DoubledQuote,      ///< a quoted cell of a .csv file ended at a doubled quote, which is no escape there
  Cancelled,         ///< the progress handler ended the work on a file
};

/// The code's stable name for machines, such as "row-left-out".
QVASSEMBLY_API const char* DiagnosticCodeName(DiagnosticCode code);

/// One remark. `line` is the 1-based physical line (worksheet row) or 0 where the remark is about the whole
/// file; `column` is the column's keyword or empty; `text` is the text as found, `stored` what went into the
/// record. Texts are in the system's code page, those out of a file as its bytes are.
struct Diagnostic {
  std::string file;
  std::int64_t line = 0;
  std::string column;
  DiagnosticCode code = DiagnosticCode::FileNotOpened;
  std::string text;
  std::string stored;
  std::string message;  ///< one sentence for a person
};

/// Called on the thread that is inside the library, before the call returns. It must not throw, and must not
/// call back into the manager that is at work.
using DiagnosticHandler = void (*)(const Diagnostic& diagnostic, void* context);

/// Sets the process's handler; null (the default) means silence. Not to be called while another thread is
/// inside the library.
QVASSEMBLY_API void SetDiagnosticHandler(DiagnosticHandler handler, void* context);
