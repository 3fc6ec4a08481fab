#pragma once

#include "cli/DataStart.h"
#include "cli/DiagnosticPrinter.h"
#include "format/FormatConfiguration.h"

#include <optional>
#include <string>
#include <vector>

class CAssemblyFileMgr;

namespace qv {

struct Session;

/// The format configuration of one run: which file it comes from, and what that holds.
class FormatFile {
 public:
  /// What a command does with the format file. One that changes it takes no pipe.
  enum class Use {
    Read,
    Change,
    Create,  ///< or change; a missing one is no error
  };

  /// Takes the file that the user named, else the one named by QVASSEMBLY_CONFIG, else the first
  /// AssemblyFormats.xml beside the data files or in the current folder, else the built-in configuration.
  /// Throws FileError for a file that is named but missing, and for one that is not well formed.
  FormatFile(const std::optional<Utf8Path>& named, const std::vector<Utf8Path>& dataFiles,
             DiagnosticPrinter& diagnostics, Use use = Use::Read);

  /// The file that the user named, or that QVASSEMBLY_CONFIG names.
  static std::optional<Utf8Path> NamedFile(const std::optional<Utf8Path>& named);

  /// False when there is no file, so that the built-in configuration is used.
  bool IsFile() const { return isFile_; }
  const Utf8Path& Path() const { return path_; }
  FormatList& List() { return loaded_.list; }
  const FormatList& List() const { return loaded_.list; }

  /// Whether the file says of the format TreatAsOne="1": what is written for a set flag, but read as off.
  bool HasSavedFlag(const OptionForm& form) const { return loaded_.savedFlags.contains(form.Name); }

  /// The format of that name, as the file spells it; null when there is none.
  const OptionForm* Lookup(const std::string& name) const;

  /// Throws UsageError, listing the names there are, when there is no such format.
  const OptionForm& Find(const std::string& utf8Name) const;

  /// The format of a data file: the wanted one, else the one that the file names (a pipe is not asked), else
  /// the current one. Throws UsageError when there is none of the name, ReportedFileError when the data file
  /// cannot be read.
  const OptionForm& FindFor(const std::optional<std::string>& wanted, const DataStart& start,
                            Session& session) const;

  /// Makes the manager hold the same formats, with this one as the current one.
  void GiveTo(CAssemblyFileMgr& manager, const OptionForm& form) const;

  /// Writes the formats to the file, unless a strict run has a warning. Throws FileError.
  void Save(DiagnosticPrinter& diagnostics);

 private:
  void Load(DiagnosticPrinter& diagnostics, Use use);
  std::string Names() const;
  void DropComments(DiagnosticPrinter& diagnostics);

  /// "no format file was found (looked for in/AssemblyFormats.xml, AssemblyFormats.xml)"
  std::string NotFound() const;

  Utf8Path path_;                   // also without a file: the first place where one was looked for
  std::vector<Utf8Path> searched_;  // empty where a file was named
  bool isFile_ = false;
  LoadedFormats loaded_;
};

}  // namespace qv
