#pragma once

#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/FixedText.h>
#include <QVAssemblyFile/RecordKind.h>
#include <QVAssemblyFile/WindowHandle.h>

#include <memory>
#include <string>
#include <vector>

class AnyRecordReader;
class AnyRecordWriter;
class CAssemblyFile;
struct FormatConfiguration;

namespace qv {
struct ManagerFormats;
}

/// The way into the library: loads the format file, imports and exports assembly files, and hands out what
/// was read. RecordStream.h has readers and writers for files of any length.
///
/// Text is narrow, in the system's code page (UTF-8 elsewhere than on Windows). Imports and exports return
/// true whenever the file's type is supported, whatever was read or written; what was not taken as it stood
/// is reported to the diagnostic handler (Diagnostics.h). A manager and its copies together belong to one
/// thread at a time, which for ASSOptionDlgShow must be one that may show modal windows. Only std::bad_alloc
/// is thrown.
///
/// A copy shares the format configuration and the engine with its source, and the records attached so far.
/// Destroying both is safe.
class QVASSEMBLY_API CAssemblyFileMgr {
 public:
  /// A buffer that holds any name or header that a getter here gives; Text() brings it along.
  static constexpr std::size_t kTextSize = 256;

  /// No formats, no engine, nothing attached.
  CAssemblyFileMgr();
  CAssemblyFileMgr(const CAssemblyFileMgr& other);
  CAssemblyFileMgr& operator=(const CAssemblyFileMgr& other);
  /// Deletes the records of the last import, and of the exports that were made. Records that were attached
  /// but never exported stay the host's.
  ~CAssemblyFileMgr();

  /// Reads the format file. A missing or malformed file gives the built-in format "Form1" and true; one that
  /// is XML of another kind gives the formats that it holds, maybe none, and true. A null or empty path gives
  /// false and leaves the formats alone; false also when the file could be read in part only, whose formats
  /// are kept, and without an XML parser.
  bool LoadFormatConfiguration(const char* path);

  /// Shows the format option dialog and reloads `configPath` when it ends with OK. `mode` offers the header
  /// button, `text` names the format to select (null or empty: the current one), `secondPath` is a sample
  /// file whose headers can be shown, `parent` owns the dialog on Windows; `option` is not used. Does nothing
  /// where the build has no dialog, except to say so in a message box.
  void ASSOptionDlgShow(bool mode, char* text, HWND parent, const char* configPath, const char* secondPath,
                        int option);

  /// The formats, in file order. Name buffers hold 99 bytes and the NUL; a longer name (for GetStartLine
  /// too), or a rank outside the list, is an invalid parameter, which ends the process. A null buffer is
  /// ignored.
  int GetFormatsCount();
  void GetFormatAtRank(int rank, char* name);
  void GetCurrentFormat(char* name);
  /// Stored without a check: with a name that no format bears, later imports and exports use an empty format.
  void SetCurrentFormat(const char* name);
  /// The current format's header line; 0 when no format bears the current name.
  int GetStartLine();
  /// True when the current format identifies parts by name only.
  bool IsPartNameOnly();

  /// Whether numbers in text files (.txt, .csv) have a comma as the decimal sign, when they are read and when
  /// they are written; false, the default, for a point. Where they are read, points, blanks and apostrophes
  /// may then group digits by three. Text columns and workbooks are left alone. Holds for copies too, and is
  /// kept when a format file is loaded.
  void SetDecimalComma(bool whenRead, bool whenWritten);

  /// Read the file at `path` with the current format. The records are the library's, and live until the next
  /// import, export, reader, writer or format-name call of this manager, ClearParts or ClearTools, or the end
  /// of it and its copies. False when the file type is not supported. Inventory and library are not
  /// read from workbooks: true, no record and no diagnostic.
  bool ImportAssemblyFile(char* path);
  bool ImportToolsAssemblyFile(char* path);
  bool ImportMatsAssemblyFile(char* path);
  bool ImportShtInfoAssemblyFile(char* path);
  bool ImportPrtInfoAssemblyFile(char* path);
  bool ImportMatAmncITAssemblyFile(char* path);
  bool ImportMatLibraryAssemblyFile(char* path);

  /// Write the attached records of the kind to `path` with the current format, replacing an existing file as
  /// a whole. From then on the library owns these records; each later export writes them again. False when
  /// the file type is not supported.
  bool ExportAssemblyFile(char* path);
  bool ExportToolsInfoAssemblyFile(char* path);
  bool ExportMatsInfoAssemblyFile(char* path);
  bool ExportShtInfoAssemblyFile(char* path);
  bool ExportPrtInfoAssemblyFile(char* path);
  bool ExportJobProgressAssemblyFile(char* path);

  /// What the last import read or the last export wrote; 0 and null without one. A rank outside the list
  /// gives null.
  int GetPartsCount();
  PartInformation* GetPartInfoAtRank(int rank);
  int GetToolsCount();
  ToolInformation* GetToolInfoAtRank(int rank);
  int GetMatsCount();
  MaterialInfomation* GetMatInfoAtRank(int rank);
  int GetShtCount();
  ShtInfo* GetShtInfoAtRank(int rank);
  int GetPrtCountInMenu();
  PrtInfo* GetPrtInfoInMenuAtRank(int rank);
  int GetMatAmncITCount();
  MatAmncITInfo* GetMatAmncITInfoAtRank(int rank);
  int GetMatLibraryInfoCount();
  MatLibraryInfo* GetMatLibraryInfoAtRank(int rank);

  /// Delete the imported (and exported) parts or tools.
  void ClearParts();
  void ClearTools();

  /// The fields of the header row of the last import. `header` holds 256 bytes, and a longer field is cut to
  /// 255; a rank outside the list is an invalid parameter, which ends the process.
  int GetHeaderCount();
  void GetHeaderAtRank(int rank, char* header);
  void GetPartHeaders(std::vector<std::string>& headers);

  /// Attach a record for export. It stays the host's until an export has taken it; it must then have been
  /// created with new and must not be deleted by the host any more. Null is ignored; a record attached twice
  /// is written twice.
  void AddAndAttachPart(PartInformation* part);
  void AddAndAttachTool(ToolInformation* tool);
  void AddAndAttachMat(MaterialInfomation* material);
  void AddAndAttachShtInfo(ShtInfo* sheet);
  void AddAndAttachPrtInfo(PrtInfo* program);
  void AddAndAttachJobProgress(JobProgressInfo* progress);

  /// Does nothing and returns true; kept for hosts that call it.
  bool OpenAssemblyFile();

  /// The format name stored in the file at `path`, when the configuration holds a format of that name;
  /// otherwise `name` is left alone. `name` holds 256 bytes, and a longer name is cut to 254. "%%" in a
  /// stored name gives "%", other directives nothing.
  void GetCurrentFormatFromFile(char* name, char* path);
  /// Makes the text file at `path` carry `name`, which is not checked, in its first line: in place of the
  /// name there, or in a line put above. The file is replaced as a whole or left as it is. A workbook is left
  /// as it is.
  void SetCurrentFormatToFile(const char* name, const char* path);

 private:
  friend class AnyRecordReader;
  friend class AnyRecordWriter;
  friend struct qv::ManagerFormats;

  struct State;
  std::shared_ptr<FormatConfiguration> configuration_;
  std::shared_ptr<CAssemblyFile> engine_;
  std::unique_ptr<State> state_;
};
