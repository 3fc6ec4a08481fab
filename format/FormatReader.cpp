#include "format/FormatReader.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <charconv>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace {

constexpr std::string_view kTrue = "true";

// What remarks about a format's attributes say in common.
struct Source {
  const std::string& path;
  const std::string& format;
};

void ReportAttribute(const Source& source, const char* attribute, DiagnosticCode code,
                     const std::string& text, const std::string& stored, const char* why) {
  if (!qv::DiagnosticsWanted()) return;
  qv::Report({source.path, 0, attribute, code, text, stored,
              "The attribute " + std::string(attribute) + " of the format \"" + source.format + "\" " + why +
                  "; it reads as " + stored + "."});
}

// The leading decimal number, as the C library's atoi takes it but in every locale; what does not fit is cut
// to the nearest number that does.
int ReadNumber(const std::string& text, const char* attribute, const Source& source) {
  const std::size_t start = std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size());
  const char* const end = text.data() + text.size();
  const char* digits = text.data() + start;
  if (digits != end && *digits == '+' && digits + 1 != end && digits[1] != '-') ++digits;
  int number = 0;
  const auto [rest, error] = std::from_chars(digits, end, number);
  if (error == std::errc::result_out_of_range) {
    number = *digits == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    ReportAttribute(source, attribute, DiagnosticCode::NumberOutOfRange, text, std::to_string(number),
                    "is a number that is too large");
  } else if (error != std::errc()) {
    if (!text.empty())
      ReportAttribute(source, attribute, DiagnosticCode::NotANumber, text, "0", "is no number");
  } else if (rest != end) {
    ReportAttribute(source, attribute, DiagnosticCode::TrailingText, text, std::to_string(number),
                    "has text behind its number");
  }
  return number;
}

// Only this very word sets the flag, not even the "1" that a set flag is saved as. What saving writes is no
// news at every load, though.
bool ReadFlag(const std::string& text, const char* attribute, const Source& source) {
  if (text == kTrue) return true;
  if (!text.empty() && text != "0" && text != "1" && text != "false") {
    ReportAttribute(source, attribute, DiagnosticCode::UnknownWord, text, "false",
                    "is not the word \"true\"");
  }
  return false;
}

FormatItem ReadItem(const qv::XmlNode& node) {
  try {
    return {node.Name(), node.Attribute("Order")};
  } catch (const std::exception&) {
    throw std::runtime_error("parse FormatItem error");
  }
}

void ReadAttributes(const qv::XmlNode& node, const std::string& path, OptionForm& form) {
  try {
    form.Name = node.Attribute("Name");
    const Source source{path, form.Name};
    form.StartLine = ReadNumber(node.Attribute("Line"), "Line", source);
    form.Delimiters = node.Attribute("Delimiters");
    form.OtherDelimiters = node.Attribute("Other");
    form.Qualifier = ReadNumber(node.Attribute("Qualifier"), "Qualifier", source);
    form.TreatAsOne = ReadFlag(node.Attribute("TreatAsOne"), "TreatAsOne", source);
    form.PartKey = node.Attribute("Part");
  } catch (const std::exception&) {
    throw std::runtime_error("parse Format error");
  }
}

OptionForm ReadFormat(const qv::XmlNode& node, const std::string& path) {
  OptionForm form;
  ReadAttributes(node, path, form);
  for (const auto& child : node.Children()) form.Items.push_back(ReadItem(*child));
  CompleteWithKeywords(form);
  return form;
}

}  // namespace

void ReadFormats(const qv::XmlNode& root, const std::string& path, FormatList& list) {
  list.CurrentFormat = root.Attribute("Current");
  for (const auto& child : root.Children()) {
    if (child->Name() != "OptionForm") continue;
    const OptionForm form = ReadFormat(*child, path);
    AddFormat(list, &form);
  }
}
