#pragma once

#include "format/FormatList.h"
#include "platform/Diagnostics.h"
#include "platform/xml/XmlTree.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

/// The formats of one format file, as a manager or a dialog holds them.
struct FormatConfiguration {
  std::optional<FormatList> Formats;  ///< absent until the first load; replaced by every load
  bool ReadsDecimalComma = false;     ///< in text files, whatever their format
  bool WritesDecimalComma = false;
};

namespace qv {

/// The root element of a format file.
inline constexpr const char* kFormatFileRoot = "CSVOptionSetting";

/// What a format file holds, or why it could not be read.
struct LoadedFormats {
  XmlError error;    ///< error.problem is None when the file was read; else nothing below is set
  FormatList list;   ///< as the file has it, each format completed with the known keywords
  std::string root;  ///< the root element's name
  std::set<std::string>
      savedFlags;  ///< formats of TreatAsOne="1", which saving writes and reading takes as off
  std::vector<Diagnostic> diagnostics;  ///< what was odd about the formats' attributes

  bool IsRead() const { return error.problem == XmlProblem::None; }
  /// False for an XML file of another kind. Its formats, if there are any, are taken all the same.
  bool IsFormatFile() const { return root == kFormatFileRoot; }
};

/// Opens and parses the format file once. Tells the diagnostic handler nothing.
LoadedFormats LoadFormats(const std::string& path);

/// Makes the configuration hold what was loaded from `path`, as LoadFromFile() does.
bool TakeFormats(FormatConfiguration& configuration, const LoadedFormats& loaded, const std::string& path);

/// What became of a save.
struct SavedFormats {
  bool isXml = false;  ///< false when a format or an item cannot be written as XML, or nothing can
  std::string reason;  ///< why the file was not written; empty when it was
};

/// As SaveToFile(), without telling the diagnostic handler.
SavedFormats SaveFormats(const FormatList& list, const std::string& path);

/// The format "Form1" with every known keyword, none of them a column.
FormatList BuiltInFormats();

/// Why the formats cannot be written as XML ("the item "a b" of the format "x" has a name that no XML element
/// can bear"); empty when they can.
std::string WhyNotXml(const FormatList& list);

}  // namespace qv

/// Reads the XML file at `path` into the configuration. A missing or malformed file gives the default
/// configuration and true, with a diagnostic. False for a null or empty path and, with a diagnostic, when the
/// platform has no XML component to give; the list then stays.
bool LoadFromFile(FormatConfiguration& configuration, const char* path);

/// Writes the configuration to `path`, keeping the old file until the new one is whole. False when a format
/// or an item cannot be written as XML, or when there is no XML component; nothing is written then. A file
/// that cannot be written still gives true. Any failure is told to the diagnostic handler, and put as a
/// reason into `failure` when that is given; empty there means that the file was written. On Windows COM must
/// be initialised on this thread.
bool SaveToFile(const FormatConfiguration& configuration, const char* path, std::string* failure = nullptr);

/// Replaces the list by the built-in one. Always true.
bool CreateDefaultConfiguration(FormatConfiguration& configuration);
