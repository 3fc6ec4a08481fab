#include "cli/formats/FormatFromHeaders.h"

#include "cli/DataFile.h"
#include "cli/check/EncodingGuess.h"
#include "cli/check/Suggestions.h"
#include "format/FormatColumns.h"
#include "guess/Headings.h"
#include "guess/LayoutGuess.h"
#include "manager/FileStart.h"
#include "platform/ConsoleProgram.h"
#include "text/Utf8.h"

#include <algorithm>
#include <charconv>

namespace qv {
namespace {

/// The start of the file in UTF-8. What does not decode is taken to be of the encoding that it surely is of,
/// which is told.
std::string StartOf(const DataStart& start, Session& session) {
  std::string_view bytes = start.Bytes();
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  std::string text = session.coding.Decode(bytes);
  const EncodingGuess guess =
      IsAscii(bytes) ? EncodingGuess() : GuessEncoding(SampleLines(bytes, true), session.coding);
  if (!guess.isSure) return text;
  session.diagnostics.Advise(
      {start.File(), 0, "", "suggest-encoding", "",
       "the texts are of another encoding; read the file with --encoding " + guess.names.front()});
  return TextCoding(guess.names.front()).Decode(bytes);
}

void TakeDelimiter(FormatWishes& wishes, char delimiter) {
  if (delimiter == '\0') return;
  const std::size_t known = kDelimiterCharacters.find(delimiter);
  const bool isOther = known == kDelimiterCharacters.npos;
  wishes.delimiters = kDelimiterNames[isOther ? static_cast<std::size_t>(Delimiter::Other) : known];
  if (isOther) wishes.otherDelimiters = delimiter;
}

void TakeQualifier(FormatWishes& wishes, char qualifier) {
  wishes.qualifier = qualifier == '"' ? "double" : qualifier == '\0' ? "none" : "single";
}

/// The headings of a text file, after its layout has been found as far as the user does not give it.
std::vector<std::string> TextHeadings(FormatWishes& wishes, const Utf8Path& file, const RecordType& type,
                                      Session& session) {
  const DataStart start(file);
  if (const auto shape = OtherShapeOf(start)) throw FileError(*shape);
  const std::string text = StartOf(start, session);
  const auto lines = SampleLines(text, start.Bytes().size() < DataStart::kSize);
  const LayoutProposal found = ProposeLayout(lines, type);
  const bool isGiven = wishes.delimiters || !wishes.otherDelimiters.empty() || wishes.qualifier ||
                       wishes.startLine || wishes.treatAsOne;
  if (IsCsv(file) && !isGiven && found.delimiter != ',' && found.delimiter != '\0')
    session.diagnostics.Advise(
        {file, 0, "", "suggest-delimiter", "",
         "the columns are not separated by commas, but a .csv file always is; name the "
         "file .txt"});
  if (!wishes.delimiters && wishes.otherDelimiters.empty()) TakeDelimiter(wishes, found.delimiter);
  if (!wishes.qualifier) TakeQualifier(wishes, found.qualifier);
  if (!wishes.startLine) wishes.startLine = static_cast<int>(found.headerLine);
  if (!isGiven) return found.headings;
  const auto header = static_cast<std::size_t>(std::max(*wishes.startLine, 1)) - 1;
  FormatWishes layout = wishes;
  layout.settings.clear();
  if (header >= lines.size()) return {};
  return PlainFields(lines[header], LayoutOf(BuildFormat(layout), false));
}

std::vector<std::string> SheetHeadings(FormatWishes& wishes, const Utf8Path& file, Session& session) {
  if (!wishes.startLine) wishes.startLine = 1;
  const auto headings = ReadHeaders(BuildFormat(wishes), PathFromUtf8(file).c_str());
  if (session.diagnostics.HasFailed()) throw ReportedFileError();
  return DecodedHeaders(session, headings);
}

/// Keeps a proposed column out of the way of one that the user sets: "KEYWORD=ORDER".
void GiveWayTo(const std::string& setting, std::vector<std::string>& columns) {
  const std::size_t equals = std::min(setting.find('='), setting.size() - 1);
  const std::string keyword = setting.substr(0, equals);
  for (std::string& column : columns)
    if (ItemNameOf(column) == ItemNameOf(keyword)) column = kIgnore;
  std::size_t position = columns.size();
  std::from_chars(setting.data() + equals + 1, setting.data() + setting.size(), position);
  if (position < columns.size()) columns[position] = keyword;
}

}  // namespace

std::vector<std::string> CompleteFromHeaders(FormatWishes& wishes, const Utf8Path& file,
                                             const RecordType& type, Session& session) {
  std::vector<std::string> headings =
      IsWorkbook(file) ? SheetHeadings(wishes, file, session) : TextHeadings(wishes, file, type, session);
  if (headings.empty())
    throw FileError({file, wishes.startLine.value_or(0), "", DiagnosticCodeName(DiagnosticCode::NoHeaderRow),
                     "", "there is no header row"});
  if (wishes.columns.empty()) {
    std::vector<std::string> columns = ProposeColumns(type, headings);
    for (const std::string& setting : wishes.settings) GiveWayTo(setting, columns);
    for (const std::string& column : columns)
      wishes.columns.append(wishes.columns.empty() ? "" : ",").append(column);
  }
  return headings;
}

}  // namespace qv
