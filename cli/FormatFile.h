#pragma once

#include "cli/Remarks.h"
#include "format/FormatConfiguration.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

class CAssemblyFileMgr;

namespace qv {

class XmlNode;
struct Session;

/// Paths in this program are UTF-8 until the library is called.
using Utf8Path = std::string;

/// Whether the path leads to a pipe or a device, whose bytes can be read only once.
bool IsStream(const Utf8Path& file);

/// Whether both paths lead to one file.
bool IsSameFile(const Utf8Path& left, const Utf8Path& right);

/// The name of a format that the data file carries, as format files have it; empty when there is none. Names
/// are written in the system's code page; one that is not of it has come from elsewhere, in `coding`.
std::string StoredName(const Utf8Path& dataFile, const TextCoding& coding);

/// The format configuration of one run: which file it comes from, and what that holds.
class FormatFile {
 public:
  /// What a command that edits formats does about a missing file.
  enum class Missing { IsError, IsNew };

  /// Takes the file that the user named, else the one named by QVASSEMBLY_CONFIG, else AssemblyFormats.xml in
  /// the folder of the first data file that has one (without data files: in the current folder), else the
  /// built-in configuration. Throws FileError for a file that is named but missing, and for one that is not
  /// well formed.
  FormatFile(const std::optional<Utf8Path>& named, const std::vector<Utf8Path>& dataFiles, Remarks& remarks,
             Missing missing = Missing::IsError);

  /// The file that the user named, or that QVASSEMBLY_CONFIG names.
  static std::optional<Utf8Path> NamedFile(const std::optional<Utf8Path>& named);

  /// False when there is no file and the built-in configuration stands in.
  bool IsFile() const { return isFile_; }
  const Utf8Path& Path() const { return path_; }
  FormatList& List() { return *configuration_.Formats; }
  const FormatList& List() const { return *configuration_.Formats; }

  /// Whether the file says of the format TreatAsOne="1": what is written for a set flag, but read as off.
  bool HasSavedFlag(const OptionForm& form) const { return savedFlags_.contains(form.Name); }

  /// The format of that name, as the file spells it; null when there is none.
  const OptionForm* Lookup(const std::string& name) const;

  /// Throws UsageError, listing the names there are, when there is no such format.
  const OptionForm& Find(const std::string& utf8Name) const;

  /// The format of a data file: the wanted one, else the one that the file names (a pipe is not asked), else
  /// the current one. Throws UsageError when there is none of the name, FileErrorTold when the data file
  /// cannot be read.
  const OptionForm& FindFor(const std::optional<std::string>& wanted, const Utf8Path& dataFile,
                            const Session& session) const;

  /// Makes the manager hold the same formats, with this one as the current one.
  void LoadInto(CAssemblyFileMgr& manager, const OptionForm& form, Remarks& remarks) const;

  /// Writes the formats to the file. Throws FileError.
  void Save(Remarks& remarks);

 private:
  void Load(Remarks& remarks, Missing missing);
  void NoteFlags(const XmlNode& root);
  void CheckLoaded(const Remarks::Silence& silence, bool isLoaded) const;
  std::string Names() const;
  void DropComments(Remarks& remarks);

  Utf8Path path_;  // also without a file: where one would be looked for
  bool isFile_ = false;
  bool isFormatFile_ = true;
  FormatConfiguration configuration_;
  std::set<std::string> savedFlags_;  // of the formats with these names
};

}  // namespace qv
