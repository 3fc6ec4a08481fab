#include "manager/CAssemblyFileMgr.h"

#include "engines/CAssemblyFile.h"
#include "engines/RecordStreams.h"
#include "format/FormatConfiguration.h"
#include "manager/FileStart.h"
#include "manager/FormatOptionDialog.h"
#include "manager/ManagerState.h"
#include "platform/Handlers.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace {

constexpr std::size_t kNameCapacity = 100;        // of the buffers for format names
constexpr std::size_t kStoredNameCapacity = 255;  // what a stored name may fill of one of kTextSize

// A name that does not fit is the caller's error: cut, it would name another format.
void CopyName(const std::string& name, char* buffer) {
  if (name.size() >= kNameCapacity)
    qv::InvalidParameter("a format name does not fit the caller's 100 characters");
  std::memcpy(buffer, name.c_str(), name.size() + 1);
}

void CopyCut(std::string_view text, std::size_t capacity, char* buffer) {
  text = text.substr(0, std::min(text.find('\0'), capacity - 1));
  std::memcpy(buffer, text.data(), text.size());
  buffer[text.size()] = '\0';
  buffer[CAssemblyFileMgr::kTextSize - 1] = '\0';
}

bool HasConfiguration(const std::shared_ptr<FormatConfiguration>& configuration) {
  if (configuration != nullptr) return true;
  qv::ShowMessage("Please Load Format Configuration!");
  return false;
}

const FormatList& FormatsOf(const std::shared_ptr<FormatConfiguration>& configuration) {
  static const FormatList kNone;
  return configuration != nullptr && configuration->Formats ? *configuration->Formats : kNone;
}

/// The current format; an empty one when no format bears the current name.
OptionForm CurrentForm(const FormatList& formats) {
  OptionForm form;
  FindFormat(formats, formats.CurrentFormat, form);
  return form;
}

/// The names of all formats, as a part of a sentence.
std::string FormatChoice(const FormatList& formats) {
  std::string names;
  for (const OptionForm& form : formats.Formats) names += (names.empty() ? "" : ", ") + qv::Quoted(form.Name);
  return names.empty() ? "there is none" : "there are " + names;
}

using Configuration = std::shared_ptr<FormatConfiguration>;
using Engine = std::shared_ptr<CAssemblyFile>;

bool Import(const Configuration& configuration, Engine& engine, RecordKind kind, const char* path) {
  qv::FileDiagnostics diagnostics(path);
  if (!qv::StartEngine(configuration, engine, kind, diagnostics)) return false;
  qv::ImportRecords(*engine, kind, diagnostics);
  return true;
}

template <class Record>
bool Export(const Configuration& configuration, Engine& engine, const char* path,
            const std::vector<std::shared_ptr<qv::AttachedRecord>>& attached) {
  qv::FileDiagnostics diagnostics(path);
  if (!qv::StartEngine(configuration, engine, kRecordKindOf<Record>, diagnostics)) return false;
  for (const auto& record : attached) engine->StagedRecords.Of<Record>().Stage(record);
  qv::ExportRecords(*engine, diagnostics);
  return true;
}

template <class Record>
int Count(const Engine& engine) {
  return engine == nullptr ? 0 : static_cast<int>(engine->StagedRecords.Of<Record>().Size());
}

template <class Record>
Record* AtRank(const Engine& engine, int rank) {
  if (rank < 0 || rank >= Count<Record>(engine)) return nullptr;
  return engine->StagedRecords.Of<Record>()[static_cast<std::size_t>(rank)];
}

template <class Record>
void Attach(std::vector<std::shared_ptr<qv::AttachedRecord>>& list, Record* record) {
  if (record != nullptr) list.push_back(qv::AttachedRecord::Of(record));
}

template <class Record>
void ClearRecords(const Engine& engine) {
  if (engine != nullptr) engine->StagedRecords.Of<Record>().Clear();
}

}  // namespace

bool qv::StartEngine(const Configuration& configuration, Engine& engine, RecordKind kind,
                     FileDiagnostics& diagnostics) {
  if (!HasConfiguration(configuration)) return false;
  engine.reset();
  engine = CreateAssemblyEngine(diagnostics.File().c_str());
  if (engine == nullptr) return false;
  const FormatList& formats = FormatsOf(configuration);
  OptionForm form;
  if (!FindFormat(formats, formats.CurrentFormat, form))
    diagnostics.ReportUnknownFormat(formats.CurrentFormat, FormatChoice(formats));
  bool& flag = engine->KindFlags[static_cast<std::size_t>(kind)];
  flag = true;
  ApplyFormat(*engine, form, diagnostics);
  flag = false;
  engine->FormatName = formats.CurrentFormat;
  engine->ReadsDecimalComma = configuration->ReadsDecimalComma;
  engine->WritesDecimalComma = configuration->WritesDecimalComma;
  return true;
}

CAssemblyFileMgr::CAssemblyFileMgr()
    : configuration_(std::make_shared<FormatConfiguration>()), state_(std::make_unique<State>()) {}

CAssemblyFileMgr::CAssemblyFileMgr(const CAssemblyFileMgr& other)
    : configuration_(other.configuration_),
      engine_(other.engine_),
      state_(std::make_unique<State>(*other.state_)) {}

CAssemblyFileMgr& CAssemblyFileMgr::operator=(const CAssemblyFileMgr& other) {
  configuration_ = other.configuration_;
  engine_ = other.engine_;
  *state_ = *other.state_;
  return *this;
}

CAssemblyFileMgr::~CAssemblyFileMgr() = default;

void qv::ManagerFormats::Set(CAssemblyFileMgr& manager, FormatList formats) {
  manager.configuration_->Formats = std::move(formats);
}

bool CAssemblyFileMgr::LoadFormatConfiguration(const char* path) {
  return configuration_ != nullptr && LoadFromFile(*configuration_, path);
}

void CAssemblyFileMgr::ASSOptionDlgShow(bool mode, char* text, HWND parent, const char* configPath,
                                        const char* secondPath, int option) {
  const auto textOf = [](const char* given) { return std::string(given == nullptr ? "" : given); };
  const FormatOptionRequest request{mode,  textOf(text), parent, textOf(configPath), textOf(secondPath),
                                    option};
  if (ShowFormatOptionDialog(request)) LoadFormatConfiguration(configPath);
}

int CAssemblyFileMgr::GetFormatsCount() {
  return HasConfiguration(configuration_) ? static_cast<int>(FormatsOf(configuration_).Formats.size()) : 0;
}

void CAssemblyFileMgr::GetFormatAtRank(int rank, char* name) {
  if (!HasConfiguration(configuration_) || name == nullptr) return;
  const auto& formats = FormatsOf(configuration_).Formats;
  if (rank < 0 || static_cast<std::size_t>(rank) >= formats.size())
    qv::InvalidParameter("a format rank is outside the list");
  CopyName(formats[static_cast<std::size_t>(rank)].Name, name);
}

void CAssemblyFileMgr::GetCurrentFormat(char* name) {
  if (HasConfiguration(configuration_) && name != nullptr)
    CopyName(FormatsOf(configuration_).CurrentFormat, name);
}

void CAssemblyFileMgr::SetCurrentFormat(const char* name) {
  if (!HasConfiguration(configuration_) || name == nullptr) return;
  if (!configuration_->Formats) configuration_->Formats.emplace();
  configuration_->Formats->CurrentFormat = name;
}

int CAssemblyFileMgr::GetStartLine() {
  HasConfiguration(configuration_);
  char name[kNameCapacity];
  CopyName(FormatsOf(configuration_).CurrentFormat, name);
  return CurrentForm(FormatsOf(configuration_)).StartLine;
}

bool CAssemblyFileMgr::IsPartNameOnly() { return CurrentForm(FormatsOf(configuration_)).PartKey == "Name"; }

void CAssemblyFileMgr::SetDecimalComma(bool whenRead, bool whenWritten) {
  if (configuration_ == nullptr) return;
  configuration_->ReadsDecimalComma = whenRead;
  configuration_->WritesDecimalComma = whenWritten;
}

// NOLINTBEGIN(bugprone-macro-parentheses): types as arguments take none.

// A kind that is read: its class, and what imports, counts and hands out its records.
#define QV_READ_KIND(Record, ImportFile, GetCount, GetAtRank)            \
  bool CAssemblyFileMgr::ImportFile(char* path) {                        \
    return Import(configuration_, engine_, kRecordKindOf<Record>, path); \
  }                                                                      \
  int CAssemblyFileMgr::GetCount() { return Count<Record>(engine_); }    \
  Record* CAssemblyFileMgr::GetAtRank(int rank) { return AtRank<Record>(engine_, rank); }

QV_READ_KIND(PartInformation, ImportAssemblyFile, GetPartsCount, GetPartInfoAtRank)
QV_READ_KIND(ToolInformation, ImportToolsAssemblyFile, GetToolsCount, GetToolInfoAtRank)
QV_READ_KIND(MaterialInfomation, ImportMatsAssemblyFile, GetMatsCount, GetMatInfoAtRank)
QV_READ_KIND(ShtInfo, ImportShtInfoAssemblyFile, GetShtCount, GetShtInfoAtRank)
QV_READ_KIND(PrtInfo, ImportPrtInfoAssemblyFile, GetPrtCountInMenu, GetPrtInfoInMenuAtRank)
QV_READ_KIND(MatAmncITInfo, ImportMatAmncITAssemblyFile, GetMatAmncITCount, GetMatAmncITInfoAtRank)
QV_READ_KIND(MatLibraryInfo, ImportMatLibraryAssemblyFile, GetMatLibraryInfoCount, GetMatLibraryInfoAtRank)

// A kind that is written: its class, and what attaches and exports its records.
#define QV_WRITTEN_KIND(Record, Add, ExportFile)                                       \
  void CAssemblyFileMgr::Add(Record* record) { Attach(state_->Of<Record>(), record); } \
  bool CAssemblyFileMgr::ExportFile(char* path) {                                      \
    return Export<Record>(configuration_, engine_, path, state_->Of<Record>());        \
  }

// NOLINTEND(bugprone-macro-parentheses)

QV_WRITTEN_KIND(PartInformation, AddAndAttachPart, ExportAssemblyFile)
QV_WRITTEN_KIND(ToolInformation, AddAndAttachTool, ExportToolsInfoAssemblyFile)
QV_WRITTEN_KIND(MaterialInfomation, AddAndAttachMat, ExportMatsInfoAssemblyFile)
QV_WRITTEN_KIND(ShtInfo, AddAndAttachShtInfo, ExportShtInfoAssemblyFile)
QV_WRITTEN_KIND(PrtInfo, AddAndAttachPrtInfo, ExportPrtInfoAssemblyFile)
QV_WRITTEN_KIND(JobProgressInfo, AddAndAttachJobProgress, ExportJobProgressAssemblyFile)

void CAssemblyFileMgr::ClearParts() { ClearRecords<PartInformation>(engine_); }
void CAssemblyFileMgr::ClearTools() { ClearRecords<ToolInformation>(engine_); }

int CAssemblyFileMgr::GetHeaderCount() {
  return engine_ == nullptr ? 0 : static_cast<int>(engine_->HeaderFields.Size());
}

void CAssemblyFileMgr::GetHeaderAtRank(int rank, char* header) {
  if (rank < 0 || rank >= GetHeaderCount()) qv::InvalidParameter("a header rank is outside the list");
  if (header != nullptr) CopyCut(engine_->HeaderFields[static_cast<std::size_t>(rank)], kTextSize, header);
}

void CAssemblyFileMgr::GetPartHeaders(std::vector<std::string>& headers) {
  headers = engine_ == nullptr ? std::vector<std::string>() : engine_->HeaderFields.All();
}

bool CAssemblyFileMgr::OpenAssemblyFile() { return true; }

void CAssemblyFileMgr::GetCurrentFormatFromFile(char* name, char* path) {
  engine_.reset();
  engine_ = CreateAssemblyEngine(path);
  if (engine_ == nullptr) return;
  std::string stored;
  engine_->ReadFormatName(stored, path);
  OptionForm form;
  if (!FindFormat(FormatsOf(configuration_), stored, form) || name == nullptr) return;
  CopyCut(qv::ExpandFormatName(stored), kStoredNameCapacity, name);
}

void CAssemblyFileMgr::SetCurrentFormatToFile(const char* name, const char* path) {
  engine_.reset();
  engine_ = CreateAssemblyEngine(path);
  if (engine_ != nullptr) engine_->WriteFormatName(name == nullptr ? "" : name, path);
}
