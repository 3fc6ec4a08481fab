#pragma once

#include <QVAssemblyFile/CString.h>
#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/RecordStorage.h>

/// One entry of the material library. The host reads and writes the fields directly; units are its own.
/// Everything in a fresh record is empty or 0. A copy is independent of its source. A record belongs to one
/// thread at a time.
class QVASSEMBLY_API MatLibraryInfo {
 public:
  MatLibraryInfo();
  MatLibraryInfo(const MatLibraryInfo& other);
  MatLibraryInfo& operator=(const MatLibraryInfo& other);
  ~MatLibraryInfo();

  CString MaterialCode;
  CString MaterialDescription;
  CString CustomerMaterialType;
  CString MaterialType;
  float Thickness = 0.0f;
  float SizeX = 0.0f;
  float SizeY = 0.0f;
  int Coating = 0;  ///< a whole number, although parts keep their coating as text
  int Quantity = 0;
  int ShelfNo = 0;

  QVASSEMBLY_RECORD_STORAGE
};
