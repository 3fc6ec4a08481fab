#include "cli/FormatFile.h"

#include "cli/Session.h"
#include "manager/StoredFormatName.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/FileSystem.h"
#include "platform/XmlDocument.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>

#include <cstdlib>
#include <filesystem>

namespace qv {
namespace {

constexpr const char* kFileName = "AssemblyFormats.xml";
constexpr const char* kVariable = "QVASSEMBLY_CONFIG";
constexpr const char* kRootName = "CSVOptionSetting";

Utf8Path Beside(const Utf8Path& dataFile) {
  const auto folder = std::filesystem::path(dataFile).parent_path();
  return (folder / kFileName).string();
}

bool Exists(const Utf8Path& path) { return Files().Exists(PathFromUtf8(path)); }

bool IsAboutFormatFile(DiagnosticCode code) {
  return code == DiagnosticCode::ConfigurationMissing || code == DiagnosticCode::ConfigurationInvalid;
}

std::string CodeName(DiagnosticCode code) { return DiagnosticCodeName(code); }

}  // namespace

bool IsStream(const Utf8Path& file) {
  std::error_code ignored;
  return std::filesystem::is_other(std::filesystem::status(PathFromUtf8(file), ignored));
}

std::string StoredName(const Utf8Path& dataFile, const TextCoding& coding) {
  const std::string name = StoredFormatName(PathFromUtf8(dataFile).c_str());
  return FromUtf8(ToUtf8(name)) == name ? name : FromUtf8(coding.Decode(name));
}

bool IsSameFile(const Utf8Path& left, const Utf8Path& right) {
  std::error_code ignored;
  return left == right || std::filesystem::equivalent(PathFromUtf8(left), PathFromUtf8(right), ignored);
}

std::optional<Utf8Path> FormatFile::NamedFile(const std::optional<Utf8Path>& named) {
  if (named) return named;
  const char* const variable = std::getenv(kVariable);
  if (variable == nullptr || *variable == '\0') return std::nullopt;
  return ToUtf8(variable);
}

FormatFile::FormatFile(const std::optional<Utf8Path>& named, const std::vector<Utf8Path>& dataFiles,
                       Remarks& remarks, Missing missing) {
  const std::optional<Utf8Path> chosen = NamedFile(named);
  if (chosen) {
    path_ = *chosen;
    Load(remarks, missing);
    return;
  }
  path_ = dataFiles.empty() ? kFileName : Beside(dataFiles.front());
  for (const Utf8Path& dataFile : dataFiles)
    if (!Exists(path_)) path_ = Beside(dataFile);
  if (Exists(path_))
    Load(remarks, missing);
  else
    CreateDefaultConfiguration(configuration_);
}

void FormatFile::Load(Remarks& remarks, Missing missing) {
  if (IsStream(path_))
    throw FileError({path_, 0, "", CodeName(DiagnosticCode::ConfigurationInvalid), "",
                     "the format file is read more than once, and a pipe or device cannot be"});
  const XmlLoadScope scope;
  const std::string path = PathFromUtf8(path_);
  const std::unique_ptr<XmlDocument> document = XmlDocument::Create();
  XmlError error;
  if (document == nullptr)
    throw FileError({path_, 0, "", CodeName(DiagnosticCode::ConfigurationInvalid), "",
                     "cannot be read: this system has no XML component"});
  if (!document->Load(path.c_str(), error)) {
    if (error.missing && missing == Missing::IsNew) {
      CreateDefaultConfiguration(configuration_);
      return;
    }
    const auto code =
        error.missing ? DiagnosticCode::ConfigurationMissing : DiagnosticCode::ConfigurationInvalid;
    const std::string column = error.line > 0 ? "column " + std::to_string(error.column) + ": " : "";
    throw FileError({path_, error.line, "", CodeName(code), "",
                     "the format file cannot be read: " + column + ToUtf8(error.reason)});
  }
  isFile_ = true;
  const std::unique_ptr<XmlNode> root = document->Root();
  isFormatFile_ = root != nullptr && root->Name() == kRootName;
  if (!isFormatFile_)
    remarks.Warn({path_, 0, "", CodeName(DiagnosticCode::ConfigurationInvalid), "",
                  std::string("the root element is not ") + kRootName + "; this may be no format file"});
  const Remarks::Silence silence(remarks, IsAboutFormatFile);
  const bool isLoaded = LoadFromFile(configuration_, path.c_str());
  CheckLoaded(silence, isLoaded);
  if (isFormatFile_) NoteFlags(*root);
}

// Of formats with one name the last one holds.
void FormatFile::NoteFlags(const XmlNode& root) {
  for (const auto& child : root.Children()) {
    if (child->Name() != "OptionForm") continue;
    const std::string name = child->Attribute("Name");
    savedFlags_.erase(name);
    if (child->Attribute("TreatAsOne") == "1") savedFlags_.insert(name);
  }
}

// The file has been read once before without trouble. What the library does about one that it cannot read is
// to take the built-in format in its place, and with that the wrong data would be written.
void FormatFile::CheckLoaded(const Remarks::Silence& silence, bool isLoaded) const {
  const int expected = isFormatFile_ ? 0 : 1;
  const int troubles =
      silence.Kept(DiagnosticCode::ConfigurationMissing) + silence.Kept(DiagnosticCode::ConfigurationInvalid);
  if (!isLoaded || troubles > expected)
    throw FileError({path_, 0, "", CodeName(DiagnosticCode::ConfigurationInvalid), "",
                     "the format file cannot be read any more; something else may be writing it"});
}

std::string FormatFile::Names() const {
  std::string names;
  for (const OptionForm& form : List().Formats)
    names.append(names.empty() ? "" : ", ").append(ToUtf8(form.Name));
  return names.empty() ? "none" : names;
}

const OptionForm* FormatFile::Lookup(const std::string& name) const {
  for (const OptionForm& form : List().Formats)
    if (form.Name == name) return &form;
  return nullptr;
}

const OptionForm& FormatFile::Find(const std::string& utf8Name) const {
  if (const OptionForm* const form = Lookup(FromUtf8(utf8Name))) return *form;
  const std::string holder = isFile_ ? path_ : "the built-in configuration (no format file was found)";
  throw UsageError("there is no format \"" + utf8Name + "\"; " + holder + " holds: " + Names());
}

const OptionForm& FormatFile::FindFor(const std::optional<std::string>& wanted, const Utf8Path& dataFile,
                                      const Session& session) const {
  if (wanted) return Find(*wanted);
  if (Exists(dataFile) && !IsStream(dataFile)) {
    const std::string stored = StoredName(dataFile, session.coding);
    if (session.remarks.HasFailed()) throw FileErrorTold();
    if (const OptionForm* const form = stored.empty() ? nullptr : Lookup(stored)) return *form;
  }
  if (const OptionForm* const form = Lookup(List().CurrentFormat)) return *form;
  throw UsageError("the current format of " + path_ + " is \"" + ToUtf8(List().CurrentFormat) +
                   "\", which it does not hold; name one of these: " + Names());
}

void FormatFile::LoadInto(CAssemblyFileMgr& manager, const OptionForm& form, Remarks& remarks) const {
  // What there is to say of the file has been said, and a file that is not there gives the built-in formats.
  const Remarks::Silence silence(remarks);
  const bool isLoaded = manager.LoadFormatConfiguration(PathFromUtf8(path_).c_str());
  if (isFile_) CheckLoaded(silence, isLoaded);
  manager.SetCurrentFormat(form.Name.c_str());
}

// A comment inside a format is read as an item that cannot be written.
void FormatFile::DropComments(Remarks& remarks) {
  bool dropped = false;
  for (OptionForm& form : List().Formats)
    dropped |=
        std::erase_if(form.Items, [](const FormatItem& item) { return item.Name.starts_with('#'); }) > 0;
  if (dropped) remarks.Note("qvassembly: the comments in " + path_ + " are not kept");
}

void FormatFile::Save(Remarks& remarks) {
  if (!isFormatFile_)
    throw FileError({path_, 0, "", CodeName(DiagnosticCode::ConfigurationInvalid), "",
                     "this is an XML file of another kind; it is left as it is"});
  DropComments(remarks);
  std::string reason;
  bool isXml = false;
  {
    const Remarks::Silence silence(remarks);
    const XmlLoadScope scope;
    isXml = SaveToFile(configuration_, PathFromUtf8(path_).c_str(), &reason);
  }
  if (!isXml || !reason.empty())
    throw FileError({path_, 0, "", CodeName(DiagnosticCode::FileNotWritten), "",
                     "the format file cannot be written: " + ToUtf8(reason)});
  for (const OptionForm& form : List().Formats)
    if (form.TreatAsOne)
      remarks.Warn(
          {path_, 0, "TreatAsOne", CodeName(DiagnosticCode::UnknownWord), "1",
           "the format \"" + ToUtf8(form.Name) +
               "\" is written with TreatAsOne=\"1\", which is read as off; put \"true\" there by hand"});
}

}  // namespace qv
