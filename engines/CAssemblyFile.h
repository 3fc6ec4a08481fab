#pragma once

#include "engines/FileDiagnostics.h"
#include "engines/FileSample.h"
#include "engines/RecordList.h"
#include "format/OptionForm.h"
#include "records/RecordKind.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// A list of texts in one buffer: a header row of a million fields costs its bytes and eight more per field.
class TextList {
 public:
  void Append(std::string_view text) {
    bytes_.append(text);
    ends_.push_back(bytes_.size());
  }
  void Clear() {
    bytes_.clear();
    ends_.clear();
  }
  std::size_t Size() const { return ends_.size(); }
  std::string_view operator[](std::size_t index) const {
    const std::size_t begin = index == 0 ? 0 : ends_[index - 1];
    return std::string_view(bytes_).substr(begin, ends_[index] - begin);
  }
  std::vector<std::string> All() const {
    std::vector<std::string> all;
    for (std::size_t index = 0; index < Size(); ++index) all.emplace_back((*this)[index]);
    return all;
  }

 private:
  std::string bytes_;
  std::vector<std::size_t> ends_;
};

/// Reads the rows of one assembly file into records and writes records into rows. One engine per file type;
/// the manager configures it with ApplyFormat() for the kind whose flag it has raised, then calls one
/// operation. Paths are narrow text in the platform's code page. Operations return true whatever was read or
/// written.
class CAssemblyFile {
 public:
  CAssemblyFile();
  virtual ~CAssemblyFile();
  CAssemblyFile(const CAssemblyFile&) = delete;
  CAssemblyFile& operator=(const CAssemblyFile&) = delete;

  virtual bool ImportParts(const char* path);
  virtual bool Export(const char* path) = 0;
  virtual bool ImportTools(const char* path);
  virtual bool ImportMaterials(const char* path);
  virtual bool ImportSheets(const char* path);
  virtual bool ImportPartPrograms(const char* path);
  virtual bool ImportMaterialInventory(const char* path);
  virtual bool ImportMaterialLibrary(const char* path);

  /// The format name that the file carries; `name` is left alone when it carries none.
  virtual void ReadFormatName(std::string& name, const char* path) = 0;

  /// Wraps a cell in the qualifier. Nothing inside the text is escaped.
  virtual void QualifyField(std::string& text) const;

  /// Appends the delimiter that an export writes: the first of Comma, Semicolon, Tab, Space, Other that the
  /// format names, or a NUL when it names none.
  virtual void AppendDelimiter(std::string& text) const;

  /// Makes the file carry the name in its first line; the file is replaced as a whole or left as it is.
  virtual void WriteFormatName(const char* name, const char* path) = 0;

  std::array<bool, kRecordKindCount> KindFlags{};
  std::string Delimiters;
  std::string OtherDelimiters;
  bool PartKeyIsName = false;
  int Qualifier = 0;
  int StartLine = 0;
  bool TreatAsOne = false;
  std::array<std::vector<std::string>, kRecordKindCount> ColumnOrder;
  TextList HeaderFields;
  RecordLists StagedRecords;
  std::string FormatName;
  std::shared_ptr<const qv::FileSample> Sample;  ///< what imports read in the file's place; may be null
  bool ReadsDecimalComma = false;                ///< numbers in text files have a comma as the decimal sign
  bool WritesDecimalComma = false;               ///< the same of those that are written
  bool ReadHeaderOnly = false;  ///< the next import stops after the header row and clears this

  std::vector<std::string>& Columns(RecordKind kind) { return ColumnOrder[static_cast<std::size_t>(kind)]; }
  const std::vector<std::string>& Columns(RecordKind kind) const {
    return ColumnOrder[static_cast<std::size_t>(kind)];
  }
};

/// The engine for the path's extension (.xls, .csv, .txt in any case); null, after the message box "File
/// Format Error!", for any other.
std::unique_ptr<CAssemblyFile> CreateAssemblyEngine(const char* path);

/// Configures the engine from a format: delimiters, qualifier, start line, and the column keywords of the
/// flagged kind.
void ApplyFormat(CAssemblyFile& engine, const OptionForm& form, const qv::FileDiagnostics& diagnostics);
