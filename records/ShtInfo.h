#pragma once

#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/FixedText.h>
#include <QVAssemblyFile/RecordStorage.h>

// Copies are taken by the implicit copy constructor, which fits the assignment.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-copy"

/// One nested sheet: one row of a sheets file. Sizes, thickness and run time are texts in the host's form.
///
/// Texts are narrow, in the system's code page, at most 259 bytes long, and empty in a fresh record. A
/// copy is a plain copy of every field. A record belongs to one thread at a time.
class QVASSEMBLY_API ShtInfo {
 public:
  ShtInfo();
  ShtInfo& operator=(const ShtInfo& other);
  ~ShtInfo();

  /// A text setter keeps the first 259 bytes and ignores null. A text getter needs a buffer of 260
  /// bytes, writes the text with its terminator and a NUL into the last byte, and ignores null.
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

  qv::FixedText<260> sheetName_;
  qv::FixedText<260> materialGroup_;
  qv::FixedText<260> materialType_;
  qv::FixedText<260> sheetSize_;
  qv::FixedText<260> thickness_;
  qv::FixedText<260> laserMaterialName_;
  qv::FixedText<260> comments_;
  qv::FixedText<260> programmer_;
  qv::FixedText<260> customer_;
  qv::FixedText<260> machineFile_;
  qv::FixedText<260> inventoryFile_;
  qv::FixedText<260> materialFile_;
  qv::FixedText<260> clampPosition_;
  qv::FixedText<260> totalRunTime_;
};

#pragma GCC diagnostic pop
