#include "platform/spreadsheet/WorkbookFacts.h"

#include "platform/FileSystem.h"
#include "platform/spreadsheet/CompoundFile.h"
#include "platform/spreadsheet/SpreadsheetApplication.h"

#include <algorithm>
#include <vector>

namespace qv {
namespace {

// A workbook is a sequence of records: each has a type, a length and that many bytes. The first part tells of
// the workbook and where the part of each sheet is.
constexpr std::uint16_t kBegin = 0x0809, kEnd = 0x000A, kEncryption = 0x002F, kWindow = 0x003D,
                        kSheet = 0x0085, kFormula = 0x0006, kTruthOrError = 0x0205;
constexpr std::size_t kRecordHead = 4;

constexpr std::uint8_t kWorksheet = 0, kChart = 2, kCode = 6;

struct Sheet {
  std::size_t at;
  std::uint8_t type;
};

// Calls `see` for each record of the part that starts there. Throws DamagedFile when it does not end.
template <class See>
void ForEachRecord(std::string_view records, std::size_t at, See see) {
  int depth = 0;  // a chart in a sheet is a part within the part
  do {
    const auto type = NumberAt<std::uint16_t>(records, at);
    const auto size = NumberAt<std::uint16_t>(records, at + 2);
    if (type == 0 || (depth == 0 && type != kBegin) || records.size() - at - kRecordHead < size)
      throw DamagedFile();
    depth += type == kBegin ? 1 : type == kEnd ? -1 : 0;
    if (depth == 1) see(type, records.substr(at + kRecordHead, size));
    at += kRecordHead + size;
  } while (depth > 0);
}

void MarkCell(WorkbookFacts& facts, std::string_view record, bool isError, std::uint8_t value) {
  const auto row = NumberAt<std::uint16_t>(record, 0), column = NumberAt<std::uint16_t>(record, 2);
  const char* const name = isError ? ErrorName(value) : nullptr;
  if (name != nullptr || !isError) (*facts.marks)[WorkbookFacts::PlaceOf(row + 1, column + 1)] = name;
}

// A formula's result is eight bytes. No number ends with FFFF; then the first byte is the type.
void SeeCell(WorkbookFacts& facts, std::uint16_t type, std::string_view record) {
  constexpr std::uint8_t kTruth = 1, kError = 2;
  if (type == kTruthOrError) {
    MarkCell(facts, record, NumberAt<std::uint8_t>(record, 7) != 0, NumberAt<std::uint8_t>(record, 6));
  } else if (type == kFormula && NumberAt<std::uint16_t>(record, 12) == 0xFFFF) {
    const auto kind = NumberAt<std::uint8_t>(record, 6);
    if (kind == kTruth || kind == kError)
      MarkCell(facts, record, kind == kError, NumberAt<std::uint8_t>(record, 8));
  }
}

// What the first part tells. Without a window the first sheet is the active one.
struct Overview {
  explicit Overview(std::string_view records) {
    ForEachRecord(records, 0, [this](std::uint16_t type, std::string_view record) {
      isEncrypted = isEncrypted || type == kEncryption;
      if (type == kWindow && !hasWindow) active = NumberAt<std::uint16_t>(record, 10);
      hasWindow = hasWindow || type == kWindow;
      if (type == kSheet)
        sheets.push_back({NumberAt<std::uint32_t>(record, 0), NumberAt<std::uint8_t>(record, 5)});
    });
  }

  bool isEncrypted = false;
  bool hasWindow = false;
  std::size_t active = 0;  // among all sheets
  std::vector<Sheet> sheets;
};

WorkbookFacts InspectRecords(std::string_view records) {
  const Overview overview(records);
  WorkbookFacts facts;
  facts.isEncrypted = overview.isEncrypted;
  if (overview.isEncrypted) return facts;  // the records' bytes say nothing then, only their lengths do
  facts.marks.emplace();
  for (std::size_t index = 0; index < overview.sheets.size(); ++index) {
    const Sheet& sheet = overview.sheets[index];
    if (sheet.type != kCode && index < overview.active) ++facts.activeSheet;
    if (sheet.type == kChart && index == overview.active)
      throw SpreadsheetError("its active sheet is a chart; activate the sheet with the list, and save it");
    if (sheet.type != kWorksheet) continue;
    ForEachRecord(records, sheet.at, [&](std::uint16_t type, std::string_view record) {
      if (index == overview.active) SeeCell(facts, type, record);
    });
  }
  return facts;
}

WorkbookFacts InspectContainer(std::string_view bytes) {
  const CompoundFile file(bytes);
  for (const char* name : {"Workbook", "Book"})
    if (const auto records = file.Stream(name)) return InspectRecords(*records);
  WorkbookFacts facts;
  facts.isEncrypted = file.Stream("EncryptedPackage").has_value();
  if (!facts.isEncrypted) throw DamagedFile();
  return facts;
}

bool StartsLikeAWorkbook(std::string_view bytes) {
  for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE"})
    if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  const bool isMarkup =
      bytes.substr(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size())).starts_with('<');
  const bool isZip = bytes.starts_with("PK\x03\x04");
  // The records of Excel 2 to 4 come without a container.
  const bool isRecords = bytes.size() > kRecordHead && bytes[0] == '\x09' && bytes[3] == '\0' &&
                         (bytes[1] == 0 || bytes[1] == 2 || bytes[1] == 4);
  return isMarkup || isZip || isRecords;
}

bool IsText(std::string_view bytes) {
  return !bytes.empty() && std::none_of(bytes.begin(), bytes.end(), [](char c) {
    return c >= 0 && c < ' ' && c != '\t' && c != '\r' && c != '\n';
  });
}

}  // namespace

WorkbookFacts InspectBytes(std::string_view bytes) try {
  if (CompoundFile::IsOne(bytes)) return InspectContainer(bytes);
  if (StartsLikeAWorkbook(bytes)) return {};
  if (!IsText(bytes)) throw DamagedFile();
  throw SpreadsheetError("it is text and no workbook; named .txt or .csv it can be read");
} catch (const DamagedFile& damage) {
  throw SpreadsheetError(damage.what());
}

WorkbookFacts InspectWorkbook(const std::string& path) {
  std::string reason;
  const std::optional<std::string> bytes = ReadFile(path, reason);
  if (!bytes) throw SpreadsheetError(reason);
  return InspectBytes(*bytes);
}

const char* ErrorName(int number) {
  static constexpr struct {
    int number;
    const char* name;
  } kNames[] = {{0, "#NULL!"},  {7, "#DIV/0!"}, {15, "#VALUE!"}, {23, "#REF!"},
                {29, "#NAME?"}, {36, "#NUM!"},  {42, "#N/A"}};
  for (const auto& row : kNames)
    if (row.number == number) return row.name;
  return nullptr;
}

}  // namespace qv
