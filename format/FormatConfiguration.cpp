#include "format/FormatConfiguration.h"

#include "format/FormatReader.h"
#include "format/FormatWriter.h"
#include "platform/ReplacingFile.h"
#include "platform/XmlDocument.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <stdexcept>

namespace {

constexpr const char* kRootName = "CSVOptionSetting";

void ReportConfiguration(const char* path, const qv::XmlError& error, const std::string& message) {
  if (!qv::DiagnosticsWanted()) return;
  const DiagnosticCode code =
      error.missing ? DiagnosticCode::ConfigurationMissing : DiagnosticCode::ConfigurationInvalid;
  qv::Report({path, error.line, error.line > 0 ? std::to_string(error.column) : "", code, "", "", message});
}

void ReportNotLoaded(const char* path, const qv::XmlError& error) {
  std::string where;
  if (error.line > 0)
    where = " at line " + std::to_string(error.line) + ", column " + std::to_string(error.column);
  const std::string what =
      error.missing ? "The format file is missing" : "The format file cannot be read" + where;
  ReportConfiguration(path, error, what + " (" + error.reason + "); the built-in format is used.");
}

void ReportNotWritten(const std::string& path, const std::string& reason) {
  if (!qv::DiagnosticsWanted()) return;
  qv::Report({path, 0, "", DiagnosticCode::FileNotWritten, "", "",
              "The format file was not written (" + reason + ")."});
}

// Empty when it was written, else the reason.
std::string WriteDocument(qv::XmlDocument& document, const char* path) {
  qv::ReplacingFile file(path == nullptr ? "" : path, qv::WorkingPlace::BesideTarget);
  if (file.WorkingPath().empty()) return file.Reason();
  std::string reason;
  if (!document.Save(file.WorkingPath().c_str(), reason)) return reason;
  return file.Commit() ? std::string() : file.Reason();
}

}  // namespace

bool LoadFromFile(FormatConfiguration& configuration, const char* path) {
  if (path == nullptr || *path == '\0') return false;
  const qv::XmlLoadScope scope;
  const std::unique_ptr<qv::XmlDocument> document = qv::XmlDocument::Create();
  if (document == nullptr) return false;
  qv::XmlError error;
  if (!document->Load(path, error)) {
    ReportNotLoaded(path, error);
    return CreateDefaultConfiguration(configuration);
  }
  configuration.Formats.emplace();
  const std::unique_ptr<qv::XmlNode> root = document->Root();
  if (root == nullptr) return false;
  try {
    if (root->Name() != kRootName) {
      ReportConfiguration(path, {},
                          "The root element is \"" + root->Name() + "\", not \"" + kRootName +
                              "\"; this may not be a format file.");
    }
    ReadFormats(*root, path, *configuration.Formats);
  } catch (const std::runtime_error& failure) {
    ReportConfiguration(path, {}, std::string("The format file was read in part (") + failure.what() + ").");
    return false;
  }
  return true;
}

bool SaveToFile(const FormatConfiguration& configuration, const char* path, std::string* failure) {
  static const FormatList none;
  const std::unique_ptr<qv::XmlDocument> document = qv::XmlDocument::Create();
  if (document == nullptr) return false;
  std::string reason;
  bool isXml = true;
  try {
    WriteFormats(configuration.Formats ? *configuration.Formats : none, *document);
    reason = WriteDocument(*document, path);
  } catch (const NodeError& error) {
    isXml = false;
    reason = std::string(error.what()) + ": " + error.Detail();
  }
  if (!reason.empty()) ReportNotWritten(path == nullptr ? "" : path, reason);
  if (failure != nullptr) *failure = reason;
  return isXml;
}

bool CreateDefaultConfiguration(FormatConfiguration& configuration) {
  OptionForm form;
  form.Name = "Form1";
  form.StartLine = 2;
  form.Delimiters = "Tab,Comma";
  form.PartKey = "Name";
  CompleteWithKeywords(form);
  configuration.Formats = FormatList{form.Name, {form}};
  return true;
}
