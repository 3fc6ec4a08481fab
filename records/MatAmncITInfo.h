#pragma once

#include <QVAssemblyFile/CString.h>
#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/RecordStorage.h>

/// One entry of the material inventory: what lies on which shelf or pallet. Units are the host's; nothing is
/// checked. Everything in a fresh record is empty or 0. A copy is independent of its source. A record belongs
/// to one thread at a time.
class QVASSEMBLY_API MatAmncITInfo {
 public:
  MatAmncITInfo();
  MatAmncITInfo(const MatAmncITInfo& other);
  MatAmncITInfo& operator=(const MatAmncITInfo& other);
  ~MatAmncITInfo();

  int GetShelfNo();
  void SetShelfNo(int value);
  int GetQuantity();
  void SetQuantity(int value);
  CString GetMaterialName();
  void SetMaterialName(CString text);
  float GetThickness();
  void SetThickness(float value);
  float GetSizeX();
  void SetSizeX(float value);
  float GetSizeY();
  void SetSizeY(float value);
  CString GetPalletkind();
  void SetPalletkind(CString text);

  QVASSEMBLY_RECORD_STORAGE

 private:
  friend struct qv::ColumnTable<MatAmncITInfo>;

  int ShelfNo_ = 0, Quantity_ = 0;
  CString MaterialName_;
  float Thickness_ = 0, SizeX_ = 0, SizeY_ = 0;
  CString Palletkind_;
};
