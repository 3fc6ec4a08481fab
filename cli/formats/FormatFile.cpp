#include "cli/formats/FormatFile.h"

#include "cli/Session.h"
#include "manager/ManagerState.h"
#include "platform/CodePage.h"
#include "platform/ConsoleProgram.h"
#include "platform/FileSystem.h"
#include "platform/Handlers.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>

#include <algorithm>
#include <cstdlib>

namespace qv {
namespace {

constexpr const char* kFileName = "AssemblyFormats.xml";
constexpr const char* kVariable = "QVASSEMBLY_CONFIG";

Utf8Path Beside(const Utf8Path& dataFile) { return Utf8Of(NativePath(dataFile).parent_path() / kFileName); }

bool Exists(const Utf8Path& path) { return Files().Exists(PathFromUtf8(path)); }

/// Where a format file that nobody names is looked for, each place once.
std::vector<Utf8Path> PlacesFor(const std::vector<Utf8Path>& dataFiles) {
  std::vector<Utf8Path> places;
  const auto normal = [](const Utf8Path& place) { return NativePath(place).lexically_normal(); };
  const auto add = [&](const Utf8Path& place) {
    if (std::ranges::find(places, normal(place), normal) == places.end()) places.push_back(place);
  };
  for (const Utf8Path& dataFile : dataFiles)
    if (!IsStandardStream(dataFile)) add(Beside(dataFile));
  add(kFileName);
  return places;
}

std::string CodeName(DiagnosticCode code) { return DiagnosticCodeName(code); }

}  // namespace

std::optional<Utf8Path> FormatFile::NamedFile(const std::optional<Utf8Path>& named) {
  if (named) return named;
  const char* const variable = std::getenv(kVariable);
  if (variable == nullptr || *variable == '\0') return std::nullopt;
  return ToUtf8(variable);
}

FormatFile::FormatFile(const std::optional<Utf8Path>& named, const std::vector<Utf8Path>& dataFiles,
                       DiagnosticPrinter& diagnostics, Use use) {
  const std::optional<Utf8Path> chosen = NamedFile(named);
  if (!chosen) searched_ = PlacesFor(dataFiles);
  const auto found = std::ranges::find_if(searched_, Exists);
  const bool isFound = found != searched_.end();
  path_ = chosen ? *chosen : isFound ? *found : searched_.front();
  if (chosen || isFound)
    Load(diagnostics, use);
  else
    loaded_.list = BuiltInFormats();
}

void FormatFile::Load(DiagnosticPrinter& diagnostics, Use use) {
  if (use != Use::Read && IsStream(path_))
    throw FileError({path_, 0, "", CodeName(DiagnosticCode::ConfigurationInvalid), "",
                     "the format file is a pipe or device, which cannot be changed"});
  loaded_ = LoadFormats(PathFromUtf8(path_));
  const XmlError& error = loaded_.error;
  const bool isMissing = error.problem == XmlProblem::MissingFile;
  if (isMissing && use == Use::Create) {
    loaded_.list = BuiltInFormats();
    return;
  }
  if (!loaded_.IsRead()) {
    const auto code = isMissing ? DiagnosticCode::ConfigurationMissing : DiagnosticCode::ConfigurationInvalid;
    const std::string column = error.line > 0 ? "column " + std::to_string(error.column) + ": " : "";
    throw FileError({path_, error.line, "", CodeName(code), "",
                     "the format file cannot be read: " + column + ToUtf8(error.reason)});
  }
  isFile_ = true;
  if (!loaded_.IsFormatFile())
    diagnostics.Warn(
        {path_, 0, "", CodeName(DiagnosticCode::ConfigurationInvalid), "",
         std::string("the root element is not ") + kFormatFileRoot + "; this may be no format file"});
  for (const Diagnostic& diagnostic : loaded_.diagnostics) Report(diagnostic);
}

std::string FormatFile::Names() const {
  std::string names;
  for (const OptionForm& form : List().Formats)
    names.append(names.empty() ? "" : ", ").append(ToUtf8(form.Name));
  return names.empty() ? "none" : names;
}

std::string FormatFile::NotFound() const {
  std::string places;
  for (const Utf8Path& place : searched_) places.append(places.empty() ? "" : ", ").append(place);
  return "no format file was found (looked for " + places + ")";
}

const OptionForm* FormatFile::Lookup(const std::string& name) const {
  const auto found = std::ranges::find(List().Formats, name, &OptionForm::Name);
  return found == List().Formats.end() ? nullptr : &*found;
}

const OptionForm& FormatFile::Find(const std::string& utf8Name) const {
  if (const OptionForm* const form = Lookup(FromUtf8(utf8Name))) return *form;
  const std::string holder = isFile_ ? path_ : NotFound() + "; the built-in configuration";
  throw UsageError("there is no format \"" + utf8Name + "\"; " + holder + " holds: " + Names());
}

const OptionForm& FormatFile::FindFor(const std::optional<std::string>& wanted, const DataStart& start,
                                      Session& session) const {
  if (wanted) return Find(*wanted);
  if (!isFile_)
    session.diagnostics.Note("qvassembly: " + NotFound() +
                             "; the built-in format is used, which has no columns");
  if (Exists(start.File()) && !IsStream(start.File())) {
    const std::string stored = start.FormatName(session.coding);
    if (session.diagnostics.HasFailed()) throw ReportedFileError();
    if (const OptionForm* const form = stored.empty() ? nullptr : Lookup(stored)) return *form;
  }
  if (const OptionForm* const form = Lookup(List().CurrentFormat)) return *form;
  throw UsageError("the current format of " + path_ + " is \"" + ToUtf8(List().CurrentFormat) +
                   "\", which it does not hold; name one of these: " + Names());
}

void FormatFile::GiveTo(CAssemblyFileMgr& manager, const OptionForm& form) const {
  FormatList formats = List();
  formats.CurrentFormat = form.Name;
  ManagerFormats::Set(manager, std::move(formats));
}

// A comment inside a format is read as an item that cannot be written.
void FormatFile::DropComments(DiagnosticPrinter& diagnostics) {
  bool dropped = false;
  for (OptionForm& form : List().Formats)
    dropped |=
        std::erase_if(form.Items, [](const FormatItem& item) { return item.Name.starts_with('#'); }) > 0;
  if (dropped) diagnostics.Note("qvassembly: the comments in " + path_ + " are not kept");
}

void FormatFile::Save(DiagnosticPrinter& diagnostics) {
  if (isFile_ && !loaded_.IsFormatFile())
    throw FileError({path_, 0, "", CodeName(DiagnosticCode::ConfigurationInvalid), "",
                     "this is an XML file of another kind; it is left as it is"});
  for (const OptionForm& form : List().Formats)
    if (form.TreatAsOne)
      diagnostics.Warn(
          {path_, 0, "TreatAsOne", CodeName(DiagnosticCode::UnknownWord), "1",
           "the format \"" + ToUtf8(form.Name) +
               "\" is written with TreatAsOne=\"1\", which is read as off; put \"true\" there by hand"});
  if (diagnostics.ForbidsWriting(path_)) return;
  DropComments(diagnostics);
  const SavedFormats saved = SaveFormats(List(), PathFromUtf8(path_));
  if (!saved.reason.empty())
    throw FileError({path_, 0, "", CodeName(DiagnosticCode::FileNotWritten), "",
                     "the format file cannot be written: " + ToUtf8(saved.reason)});
}

}  // namespace qv
