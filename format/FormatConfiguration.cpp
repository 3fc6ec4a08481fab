#include "format/FormatConfiguration.h"

#include "platform/Handlers.h"
#include "platform/ReplacingFile.h"
#include "text/Ascii.h"
#include "text/Numbers.h"
#include "text/Phrases.h"

#include <utility>

namespace qv {
namespace {

constexpr const char* kFormatName = "OptionForm";
constexpr const char* kTreatAsOne = "TreatAsOne";

/// Reads the attributes of one format and notes what is odd about them.
class AttributeReader {
 public:
  AttributeReader(const XmlNode& node, const std::string& path, std::vector<Diagnostic>& diagnostics)
      : node_(node), path_(path), diagnostics_(diagnostics) {}

  int Number(const char* attribute) {
    const std::string text = node_.Attribute(attribute);
    const auto [number, fault] = ParseInt(text);
    const auto note = [&, stored = std::to_string(number)](DiagnosticCode code, const char* why) {
      Note(attribute, code, text, stored, why);
    };
    if (fault == NumberFault::OutOfRange)
      note(DiagnosticCode::NumberOutOfRange, "is a number that is too large");
    else if (text.empty())
      return number;
    else if (fault == NumberFault::NoDigits || fault == NumberFault::Empty)
      note(DiagnosticCode::NotANumber, "is no number");
    else if (fault == NumberFault::TrailingText || IsSpace(text.back()))
      note(DiagnosticCode::TrailingText, "has text after its number");
    return number;
  }

  // Only this very word sets the flag, not even the "1" that a set flag is saved as. What saving writes is no
  // news at every load, though.
  bool Flag(const char* attribute) {
    const std::string text = node_.Attribute(attribute);
    if (text == "true") return true;
    if (!text.empty() && text != "0" && text != "1" && text != "false")
      Note(attribute, DiagnosticCode::UnknownWord, text, "false", "is not the word \"true\"");
    return false;
  }

 private:
  void Note(const char* attribute, DiagnosticCode code, const std::string& text, const std::string& stored,
            const char* why) {
    diagnostics_.push_back({path_, 0, attribute, code, text, stored,
                            "The attribute " + std::string(attribute) + " of the format " +
                                Quoted(node_.Attribute("Name")) + " " + why + "; it reads as " + stored +
                                "."});
  }

  const XmlNode& node_;
  const std::string& path_;
  std::vector<Diagnostic>& diagnostics_;
};

OptionForm FormatOf(const XmlNode& node, AttributeReader read) {
  OptionForm form;
  form.Name = node.Attribute("Name");
  form.StartLine = read.Number("Line");
  form.Delimiters = node.Attribute("Delimiters");
  form.OtherDelimiters = node.Attribute("Other");
  form.Qualifier = read.Number("Qualifier");
  form.TreatAsOne = read.Flag(kTreatAsOne);
  form.PartKey = node.Attribute("Part");
  for (const XmlNode& child : node.children) form.Items.push_back({child.name, child.Attribute("Order")});
  CompleteWithKeywords(form);
  return form;
}

XmlNode NodeOf(const OptionForm& form) {
  XmlNode node{kFormatName,
               {{"Name", form.Name},
                {"Line", std::to_string(form.StartLine)},
                {"Delimiters", form.Delimiters},
                {"Other", form.OtherDelimiters},
                {"Qualifier", std::to_string(form.Qualifier)},
                {kTreatAsOne, form.TreatAsOne ? "1" : "0"},
                {"Part", form.PartKey}},
               {}};
  for (const FormatItem& item : form.Items) node.children.push_back({item.Name, {{"Order", item.Order}}, {}});
  return node;
}

XmlNode NodeOf(const FormatList& list) {
  XmlNode root{kFormatFileRoot, {{"Current", list.CurrentFormat}}, {}};
  for (const OptionForm& form : list.Formats) root.children.push_back(NodeOf(form));
  return root;
}

/// Which kind of node cannot be made, and which one it is.
std::pair<const char*, std::string> Owner(const XmlRefusal& refusal, const XmlNode& root) {
  const XmlNode& node = *refusal.node;
  if (refusal.parent == nullptr) return {"can not create root node", "the list of formats"};
  if (refusal.parent == &root)
    return {"can not create OptionForm node", "the format " + Quoted(node.Attribute("Name"))};
  return {"FormatItem node error",
          "the item " + Quoted(node.name) + " of the format " + Quoted(refusal.parent->Attribute("Name"))};
}

std::string Sentence(const std::string& owner, const XmlRefusal& refusal) {
  const std::string& attribute = refusal.attribute;
  if (attribute.empty()) return owner + " has a name that no XML element can bear";
  return owner + " has a character in " + attribute +
         " that XML cannot carry: " + Quoted(refusal.node->Attribute(attribute));
}

void ReportNotRead(const std::string& path, const XmlError& error, const std::string& message) {
  const DiagnosticCode code = error.problem == XmlProblem::MissingFile ? DiagnosticCode::ConfigurationMissing
                                                                       : DiagnosticCode::ConfigurationInvalid;
  Report({path, error.line, error.line > 0 ? std::to_string(error.column) : "", code, "", "", message});
}

// In the words of the diagnostic handler.
void ReportProblem(const std::string& path, const XmlError& error) {
  const bool isMissing = error.problem == XmlProblem::MissingFile;
  std::string message = isMissing ? "The format file is missing" : "The format file cannot be read";
  if (error.line > 0)
    message += " at line " + std::to_string(error.line) + ", column " + std::to_string(error.column);
  message += " (" + error.reason + "); ";
  message += error.problem == XmlProblem::NoComponent ? "the formats stay as they were."
                                                      : "the built-in format is used.";
  ReportNotRead(path, error, message);
}

// Empty when it was written, else the reason.
std::string Write(const std::string& bytes, const std::string& path) {
  ReplacingFile file(path, WorkingPlace::BesideTarget);
  return file.Open() && file.Write(bytes) && file.Commit() ? std::string() : file.Reason();
}

}  // namespace

LoadedFormats LoadFormats(const std::string& path) {
  LoadedFormats loaded;
  const std::optional<XmlNode> root = LoadXml(path, loaded.error);
  if (!root) return loaded;
  loaded.root = root->name;
  loaded.list.CurrentFormat = root->Attribute("Current");
  for (const XmlNode& child : root->children) {
    if (child.name != kFormatName) continue;
    const OptionForm form = FormatOf(child, {child, path, loaded.diagnostics});
    AddFormat(loaded.list, &form);
    // Of formats with one name the last one holds.
    loaded.savedFlags.erase(form.Name);
    if (child.Attribute(kTreatAsOne) == "1") loaded.savedFlags.insert(form.Name);
  }
  return loaded;
}

bool TakeFormats(FormatConfiguration& configuration, const LoadedFormats& loaded, const std::string& path) {
  if (!loaded.IsRead()) {
    ReportProblem(path, loaded.error);
    return loaded.error.problem != XmlProblem::NoComponent && CreateDefaultConfiguration(configuration);
  }
  if (!loaded.IsFormatFile())
    ReportNotRead(path, {},
                  "The root element is " + Quoted(loaded.root) + ", not " + Quoted(kFormatFileRoot) +
                      "; this may not be a format file.");
  for (const Diagnostic& diagnostic : loaded.diagnostics) Report(diagnostic);
  configuration.Formats = loaded.list;
  return true;
}

SavedFormats SaveFormats(const FormatList& list, const std::string& path) {
  const XmlNode root = NodeOf(list);
  if (const auto refusal = FindXmlRefusal(root)) {
    const auto [error, owner] = Owner(*refusal, root);
    return {false, std::string(error) + ": " + Sentence(owner, *refusal)};
  }
  std::string reason;
  const std::optional<std::string> bytes = WriteXml(root, reason);
  if (!bytes) return {false, reason};
  return {true, Write(*bytes, path)};
}

std::string WhyNotXml(const FormatList& list) {
  const XmlNode root = NodeOf(list);
  const auto refusal = FindXmlRefusal(root);
  return refusal ? Sentence(Owner(*refusal, root).second, *refusal) : std::string();
}

FormatList BuiltInFormats() {
  OptionForm form;
  form.Name = "Form1";
  form.StartLine = 2;
  form.Delimiters = "Tab,Comma";
  form.PartKey = "Name";
  CompleteWithKeywords(form);
  return {form.Name, {form}};
}

}  // namespace qv

bool LoadFromFile(FormatConfiguration& configuration, const char* path) {
  if (path == nullptr || *path == '\0') return false;
  return qv::TakeFormats(configuration, qv::LoadFormats(path), path);
}

bool SaveToFile(const FormatConfiguration& configuration, const char* path, std::string* failure) {
  const std::string target = path == nullptr ? "" : path;
  const auto [isXml, reason] = qv::SaveFormats(configuration.Formats.value_or(FormatList()), target);
  if (!reason.empty())
    qv::Report({target, 0, "", DiagnosticCode::FileNotWritten, "", "",
                "The format file was not written (" + reason + ")."});
  if (failure != nullptr) *failure = reason;
  return isXml;
}

bool CreateDefaultConfiguration(FormatConfiguration& configuration) {
  configuration.Formats = qv::BuiltInFormats();
  return true;
}
