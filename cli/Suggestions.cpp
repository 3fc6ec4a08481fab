#include "cli/Suggestions.h"

#include "cli/FormatColumns.h"
#include "cli/KeywordGuess.h"
#include "cli/LayoutGuess.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/FileSystem.h"
#include "platform/Utf8.h"

#include <algorithm>
#include <optional>

namespace qv {
namespace {

constexpr std::size_t kSampleSize = std::size_t{1} << 18;
constexpr std::size_t kSampleRows = 1000;
constexpr std::size_t kHeaderSearch = 50;
constexpr std::string_view kIgnore = "Ignore";

std::string ReadStart(const Utf8Path& file) {
  std::string reason;
  const auto source = Files().Open(PathFromUtf8(file), OpenMode::Read, reason);
  std::string bytes(source == nullptr ? 0 : kSampleSize, '\0');
  std::size_t size = 0;
  while (size < bytes.size()) {
    const std::ptrdiff_t count = source->Read(bytes.data() + size, bytes.size() - size);
    if (count <= 0) break;
    size += static_cast<std::size_t>(count);
  }
  bytes.resize(size);
  if (kEndOfText >= 0) bytes.resize(std::min(bytes.find(static_cast<char>(kEndOfText)), size));
  return bytes;
}

/// Whole lines without their line ends; one that the sample's end cuts is left out.
std::vector<std::string_view> LinesOf(std::string_view bytes) {
  if (bytes.size() == kSampleSize) bytes = bytes.substr(0, bytes.rfind('\n') + 1);
  std::vector<std::string_view> lines;
  while (!bytes.empty() && lines.size() < kSampleRows) {
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines.push_back(line);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
  }
  return lines;
}

/// Files that are no text of this kind at all, by how they start.
struct FileShape {
  std::string_view start;
  const char* code;
  const char* message;
};

using namespace std::string_view_literals;

constexpr const char* kWebPage = "this looks like a web page or XML; save the list as text or CSV";

constexpr FileShape kShapes[] = {
    {"\xFF\xFE\0\0"sv, "suggest-encoding",
     "the file is UTF-32; save it as UTF-8 or in the system's code page"},
    {"\0\0\xFE\xFF"sv, "suggest-encoding",
     "the file is UTF-32; save it as UTF-8 or in the system's code page"},
    {"\x1F\x8B"sv, "suggest-file-type", "this is a compressed file (gzip); unpack it first"},
    {"7z\xBC\xAF"sv, "suggest-file-type", "this is an archive (7z); unpack it first"},
    {"Rar!"sv, "suggest-file-type", "this is an archive (RAR); unpack it first"},
    {"\x89PNG"sv, "suggest-file-type",
     "this is a picture (PNG); save the list as text or CSV where it comes from"},
    {"PK\x03\x04"sv, "suggest-file-type",
     "this is a workbook or an archive under the name of a text file; save it as text or CSV where it comes "
     "from"},
    {"\xD0\xCF\x11\xE0"sv, "suggest-file-type",
     "this is a workbook under the name of a text file; name it .xls, or save it as text or CSV"},
    {"%PDF"sv, "suggest-file-type",
     "this is a PDF document; save the list as text or CSV where it comes from"},
    {"<?xml"sv, "suggest-file-type", kWebPage},
    {"<!doctype"sv, "suggest-file-type", kWebPage},
    {"<html"sv, "suggest-file-type", kWebPage},
    {"<table"sv, "suggest-file-type", kWebPage},
    {"{\\rtf"sv, "suggest-file-type", "this is a text with layout (RTF); save it as plain text"},
    {"\xFF\xFE"sv, "suggest-encoding", "the file is UTF-16; save it as UTF-8 or in the system's code page"},
    {"\xFE\xFF"sv, "suggest-encoding", "the file is UTF-16; save it as UTF-8 or in the system's code page"},
};

/// As in UTF-16 without a mark; zeros that a disk left behind the text stand in a row.
bool IsEverySecondByteNul(std::string_view bytes) {
  std::size_t nuls[2] = {0, 0};
  for (std::size_t at = 0; at < bytes.size(); ++at) nuls[at % 2] += bytes[at] == '\0';
  const auto [fewer, more] = std::minmax(nuls[0], nuls[1]);
  return bytes.size() > 3 && 3 * more > bytes.size() && 8 * fewer < more;
}

bool HasLoss(std::string_view text) { return text.find(kReplacementCharacter) != text.npos; }

/// Whether bytes of the line were taken together to characters, as they hardly are by accident.
bool IsSurelyText(const std::string& text, std::string_view line) {
  const auto characters = std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
  return !HasLoss(text) && static_cast<std::size_t>(characters) < line.size();
}

/// The usual encodings that all of the lines may be of, as a choice; UTF-8 stands alone.
std::string EncodingsThatFit(const std::vector<std::string_view>& lines, const TextCoding& coding) {
  std::string choice;
  for (const char* name : {"utf-8", "windows-1252", "cp932"}) {
    const bool fits = std::all_of(lines.begin(), lines.end(), [&](std::string_view line) {
      const auto text = DecodeText(line, name);
      const std::string now = coding.Decode(line);
      return text && !HasLoss(*text) && (!IsSurelyText(now, line) || now == *text);
    });
    if (!fits) continue;
    choice.append(choice.empty() ? "" : " or ").append(name);
    if (choice == "utf-8") break;
  }
  return choice;
}

class Survey {
 public:
  Survey(const DataFile& file, const TextCoding& coding)
      : file_(file.path),
        formats_(file.formats),
        form_(file.form),
        type_(RecordTypeOf(file.kind)),
        coding_(coding),
        columns_(ColumnsOf(file.form)) {}

  std::vector<Remark> Take(std::int64_t rows, bool hasMisfits) {
    LookAtKeywords();
    if (IsWorkbook(file_) || IsStream(file_)) return std::move(found_);
    LookAtFormat();
    LookAtFile(rows, hasMisfits);
    return std::move(found_);
  }

 private:
  void Add(std::int64_t line, std::string column, std::string code, std::string text, std::string message) {
    found_.push_back({file_, line, std::move(column), std::move(code), std::move(text), std::move(message)});
  }

  void LookAtKeywords();
  void LookAtFormat();
  void LookAtFile(std::int64_t rows, bool hasMisfits);
  bool IsOfAnotherShape(std::string_view bytes);
  void LookAtEncoding(const std::vector<std::string_view>& lines);
  void LookAtHeader(const std::vector<std::string_view>& lines, std::size_t header, std::size_t width);
  void LookAtOrder(const std::vector<std::string>& headers, std::size_t header);
  std::size_t Agreeing(std::string_view line) const;

  const Utf8Path& file_;
  const FormatFile& formats_;
  const OptionForm& form_;
  const RecordType& type_;
  const TextCoding& coding_;
  std::vector<FormatColumn> columns_;
  std::string storedName_;  // of a format, in the file's first line
  std::vector<Remark> found_;
};

void Survey::LookAtKeywords() {
  std::vector<std::string> keywords;
  for (const FormatColumn& column : columns_)
    if (column.keyword != kIgnore) keywords.push_back(column.keyword);
  if (const std::string_view kind = GuessKind(type_, keywords); !kind.empty()) {
    Add(0, "", "suggest-kind", form_.Name,
        "the format \"" + ToUtf8(form_.Name) + "\" has the columns of another kind; --kind " +
            std::string(kind) + "?");
    return;
  }
  for (const auto& [keyword, meant] : GuessKeywords(type_, keywords))
    Add(0, ToUtf8(keyword), "suggest-keyword", ToUtf8(keyword),
        "column " + ToUtf8(keyword) + " is not a keyword; " + meant + "?");
}

void Survey::LookAtFormat() {
  storedName_ = StoredName(file_, coding_);
  if (!storedName_.empty() && storedName_ != form_.Name)
    Add(1, "", "suggest-format", ToUtf8(storedName_),
        "the file names the format \"" + ToUtf8(storedName_) + "\"" +
            (formats_.Lookup(storedName_) != nullptr ? "" : ", which the configuration does not hold") +
            "; it was read by \"" + ToUtf8(form_.Name) + "\"");
  if (formats_.HasSavedFlag(form_) && !IsCsv(file_))
    Add(0, "TreatAsOne", "suggest-treat-as-one", "1",
        "the format \"" + ToUtf8(form_.Name) + "\" in " + formats_.Path() +
            " says TreatAsOne=\"1\", which is read as off; to count consecutive delimiters as one, "
            "put \"true\" there by hand");
}

void Survey::LookAtFile(std::int64_t rowCount, bool hasMisfits) {
  const std::string bytes = ReadStart(file_);
  if (IsOfAnotherShape(bytes)) return;
  const std::vector<std::string_view> lines = LinesOf(bytes);
  LookAtEncoding(lines);
  const auto header = static_cast<std::size_t>(std::max(form_.StartLine, 1)) - 1;
  const bool isRemarkedOn = !lines.empty() && header >= lines.size();
  if (rowCount == 0 && !isRemarkedOn)
    Add(0, "", "suggest-rows", "",
        bytes.empty() ? "the file is empty"
                      : "the file has no row below line " + std::to_string(header + 1) +
                            ", where the format expects the header row");
  if (header + 1 >= lines.size()) return;
  const std::vector<std::string_view> rows(lines.begin() + static_cast<std::ptrdiff_t>(header) + 1,
                                           lines.end());
  const bool isDirective =
      (header == 0 && !storedName_.empty()) || SameIgnoringCase(lines[header].substr(0, 4), "sep=");
  const LayoutGuess guess =
      GuessLayout({lines[header + isDirective], rows, columns_.size(), hasMisfits || columns_.empty()}, form_,
                  IsCsv(file_));
  if (!guess.code.empty())
    Add(0, "", guess.code, "", guess.message);
  else
    LookAtHeader(lines, header, UsualWidth(rows, LayoutOf(form_, IsCsv(file_))).fields);
}

bool Survey::IsOfAnotherShape(std::string_view bytes) {
  const std::size_t known = found_.size();
  for (const FileShape& shape : kShapes)
    if (found_.size() == known && SameIgnoringCase(bytes.substr(0, shape.start.size()), shape.start))
      Add(0, "", shape.code, "", shape.message);
  const auto count = [&](char c) { return std::count(bytes.begin(), bytes.end(), c); };
  if (found_.size() == known && IsEverySecondByteNul(bytes))
    Add(0, "", "suggest-encoding", "",
        "the file looks like UTF-16; save it as UTF-8 or in the system's code page");
  if (found_.size() == known && count('\r') > 0 && count('\n') == 0 && bytes.find('\r') + 1 < bytes.size())
    Add(0, "", "suggest-line-ends", "",
        "the lines end with CR alone, so the file is one single line; save it with LF or CR LF");
  return found_.size() > known;
}

void Survey::LookAtEncoding(const std::vector<std::string_view>& lines) {
  std::int64_t firstBad = 0;
  bool areOthersSure = false;
  for (std::size_t rank = 0; rank < lines.size(); ++rank) {
    const std::string_view line = lines[rank];
    if (IsAscii(line) || HasLoss(line)) continue;
    const std::string text = coding_.Decode(line);
    if (firstBad == 0 && HasLoss(text)) firstBad = static_cast<std::int64_t>(rank) + 1;
    areOthersSure = areOthersSure || IsSurelyText(text, line);
  }
  if (firstBad == 0) return;
  std::string message = "the line holds bytes that are not of the encoding";
  if (const std::string choice = EncodingsThatFit(lines, coding_); !choice.empty())
    message += "; name the file's one, such as --encoding " + choice;
  else if (areOthersSure)
    message += ", while other lines are of it";
  Add(firstBad, "", "suggest-encoding", "", message);
}

/// How many columns bear their own keyword in this line.
std::size_t Survey::Agreeing(std::string_view line) const {
  const auto headers = PlainFields(line, LayoutOf(form_, IsCsv(file_)));
  std::size_t agreeing = 0;
  for (std::size_t rank = 0; rank < std::min(headers.size(), columns_.size()); ++rank)
    agreeing += columns_[rank].keyword != kIgnore && SameIgnoringCase(headers[rank], columns_[rank].keyword);
  return agreeing;
}

void Survey::LookAtHeader(const std::vector<std::string_view>& lines, std::size_t header, std::size_t width) {
  const auto wanted = static_cast<std::size_t>(std::count_if(
      columns_.begin(), columns_.end(), [](const FormatColumn& c) { return c.keyword != kIgnore; }));
  if (wanted < 2 || Agreeing(lines[header]) == wanted) return;
  for (std::size_t rank = 0; rank < std::min(lines.size(), kHeaderSearch); ++rank)
    if (Agreeing(lines[rank]) == wanted) {
      Add(static_cast<std::int64_t>(rank) + 1, "", "suggest-header-line", "",
          "the header row stands here, but the format expects it in line " + std::to_string(header + 1));
      return;
    }
  if (header == 0 && !storedName_.empty())
    Add(1, "", "suggest-header-line", "",
        "the line that names the file's format is taken for the header row, as the format's start line is 1");
  else if (const auto headers = PlainFields(lines[header], LayoutOf(form_, IsCsv(file_)));
           headers.size() == width || headers.size() == columns_.size())
    LookAtOrder(headers, header);  // one more or fewer may be a header that holds a delimiter
}

void Survey::LookAtOrder(const std::vector<std::string>& headers, std::size_t header) {
  for (std::size_t rank = 0; rank < std::min(headers.size(), columns_.size()); ++rank) {
    const std::string& keyword = columns_[rank].keyword;
    if (keyword == kIgnore || SameIgnoringCase(headers[rank], keyword)) continue;
    const bool isOther = std::any_of(columns_.begin(), columns_.end(), [&](const FormatColumn& column) {
      return column.keyword != kIgnore && SameIgnoringCase(column.keyword, headers[rank]);
    });
    if (isOther)
      Add(static_cast<std::int64_t>(header) + 1, ToUtf8(keyword), "suggest-column-order",
          coding_.Decode(headers[rank]),
          "column " + std::to_string(rank + 1) + " is headed \"" + coding_.Decode(headers[rank]) +
              "\"; the format reads it as " + ToUtf8(keyword));
  }
}

}  // namespace

std::vector<Remark> Suggestions(const DataFile& file, std::int64_t rows, bool hasMisfits,
                                const TextCoding& coding) {
  return Survey(file, coding).Take(rows, hasMisfits);
}

}  // namespace qv
