#pragma once

#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/FixedText.h>
#include <QVAssemblyFile/RecordStorage.h>

/// One nested sheet: one row of a sheets file. Sizes, thickness and run time are texts in the host's form.
///
/// Texts are narrow, in the system's code page, at most 259 bytes long, and empty in a fresh record. A
/// copy is a plain copy of every field. A record belongs to one thread at a time.
class QVASSEMBLY_API ShtInfo {
 public:
  /// What a text getter's buffer holds.
  static constexpr std::size_t kTextSize = 260;

  ShtInfo();
  ShtInfo(const ShtInfo& other) = default;
  ShtInfo& operator=(const ShtInfo& other);
  ~ShtInfo();

  /// A text setter keeps the first 259 bytes and ignores null. A text getter needs a buffer of kTextSize
  /// (260) bytes, writes the text with its terminator and a NUL into the last byte, and ignores null. Text()
  /// brings the buffer along: Text(record, &ShtInfo::GetSheetName).
  void GetSheetName(char* buffer);
  void SetSheetName(const char* text);
  void GetMaterialGroup(char* buffer);
  void SetMaterialGroup(const char* text);
  void GetMaterialType(char* buffer);
  void SetMaterialType(const char* text);
  void GetSheetSize(char* buffer);
  void SetSheetSize(const char* text);
  void GetThickness(char* buffer);
  void SetThickness(const char* text);
  void GetLaserMaterialName(char* buffer);
  void SetLaserMaterialName(const char* text);
  void GetComments(char* buffer);
  void SetComments(const char* text);
  void GetProgrammer(char* buffer);
  void SetProgrammer(const char* text);
  void GetCustomer(char* buffer);
  void SetCustomer(const char* text);
  void GetMachineFile(char* buffer);
  void SetMachineFile(const char* text);
  void GetInventoryFile(char* buffer);
  void SetInventoryFile(const char* text);
  void GetMaterialFile(char* buffer);
  void SetMaterialFile(const char* text);
  void GetClampPosition(char* buffer);
  void SetClampPosition(const char* text);
  void GetTotalRunTime(char* buffer);
  void SetTotalRunTime(const char* text);

  QVASSEMBLY_RECORD_STORAGE

 private:
  friend struct qv::ColumnTable<ShtInfo>;

  qv::FixedText<kTextSize> SheetName_, MaterialGroup_, MaterialType_, SheetSize_, Thickness_,
      LaserMaterialName_, Comments_, Programmer_, Customer_, MachineFile_, InventoryFile_, MaterialFile_,
      ClampPosition_, TotalRunTime_;
};
