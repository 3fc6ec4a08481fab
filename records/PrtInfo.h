#pragma once

#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/FixedText.h>
#include <QVAssemblyFile/RecordStorage.h>

#include <vector>

/// A tool that a part program uses. Like all elements of a part program's lists it is a plain structure that
/// the host fills itself, with terminated narrow texts of at most 259 bytes. A fresh one is empty.
struct QVASSEMBLY_API UsedToolInfo {
  int ToolShape = 0;
  char ToolType[260] = "";
  char ToolDescription[260] = "";
  char StaSize[260] = "";
  char ToolSta[260] = "";
};

/// A hole of a part program.
struct QVASSEMBLY_API HoleInfo {
  char HoleType[260] = "";
  char HoleDimX[260] = "";
  char HoleDimY[260] = "";
  char HoleDimR[260] = "";
  char HoleQuantity[260] = "";
};

/// A bend of a part program.
struct QVASSEMBLY_API BendInfo {
  char BendAngle[260] = "";
  char BendRadius[260] = "";
  char BendDeduction[260] = "";
  char BendType[260] = "";
  char BendComments[260] = "";
};

/// One part program with its used tools, holes and bends: one row of a part-programs file that is
/// read, and as many as its longest list has elements when one is written.
///
/// Texts are narrow, in the system's code page. Units and codes are the host's; nothing is checked.
/// Everything in a fresh record is empty or 0. A copy has lists of its own. A record belongs to one thread at
/// a time.
class QVASSEMBLY_API PrtInfo {
 public:
  /// What a text getter's buffer holds.
  static constexpr std::size_t kTextSize = 260;

  PrtInfo();
  PrtInfo(const PrtInfo& other);
  PrtInfo& operator=(const PrtInfo& other);
  ~PrtInfo();

  /// A text setter keeps the first 259 bytes and ignores null. A text getter needs a buffer of kTextSize
  /// (260) bytes, writes the text with its terminator and a NUL into the last byte, and ignores null. Text()
  /// brings the buffer along: Text(record, &PrtInfo::GetPartName).
  void GetPartName(char* buffer);
  void SetPartName(const char* text);
  void GetCustomer(char* buffer);
  void SetCustomer(const char* text);
  void GetPartNumber(char* buffer);
  void SetPartNumber(const char* text);
  void GetProgrammerName(char* buffer);
  void SetProgrammerName(const char* text);
  void GetRevision(char* buffer);
  void SetRevision(const char* text);
  void GetComments(char* buffer);
  void SetComments(const char* text);
  void GetMachine(char* buffer);
  void SetMachine(const char* text);
  void GetToolInventory(char* buffer);
  void SetToolInventory(const char* text);
  void GetMaterialFile(char* buffer);
  void SetMaterialFile(const char* text);
  void GetMaterialGroup(char* buffer);
  void SetMaterialGroup(const char* text);
  void GetMaterialType(char* buffer);
  void SetMaterialType(const char* text);
  void GetClampPosition(char* buffer);
  void SetClampPosition(const char* text);

  /// Sizes, margins and times, in the host's units.
  float GetPartSizeX();
  void SetPartSizeX(float value);
  float GetPartSizeY();
  void SetPartSizeY(float value);
  float GetDefaultRotation();
  void SetDefaultRotation(float value);
  double GetEstimateTime();
  void SetEstimateTime(double value);
  int GetPartDefaultPosition();
  void SetPartDefaultPosition(int value);
  double GetAverProcessTime();
  void SetAverProcessTime(double value);
  float GetGridSpacingH();
  void SetGridSpacingH(float value);
  float GetGridSpacingV();
  void SetGridSpacingV(float value);
  float GetMarginTop();
  void SetMarginTop(float value);
  float GetMarginBottom();
  void SetMarginBottom(float value);
  float GetMarginLeft();
  void SetMarginLeft(float value);
  float GetMarginRight();
  void SetMarginRight(float value);
  float GetSheetSizeX();
  void SetSheetSizeX(float value);
  float GetSheetSizeY();
  void SetSheetSizeY(float value);
  float GetMaterialThickness();
  void SetMaterialThickness(float value);

  /// Lists. The getter replaces what the caller's list holds by copies of the record's elements, the setter
  /// the record's elements by copies of the caller's. Both throw std::bad_alloc, leaving the record as it
  /// was.
  void GetUsedToolInfo(std::vector<UsedToolInfo>& list);
  void SetUsedToolInfo(std::vector<UsedToolInfo>& list);
  void GetHoleInfo(std::vector<HoleInfo>& list);
  void SetHoleInfo(std::vector<HoleInfo>& list);
  void GetBendInfo(std::vector<BendInfo>& list);
  void SetBendInfo(std::vector<BendInfo>& list);

  QVASSEMBLY_RECORD_STORAGE

 private:
  friend struct qv::ColumnTable<PrtInfo>;

  qv::FixedText<kTextSize> PartName_, Customer_, PartNumber_;
  float PartSizeX_ = 0, PartSizeY_ = 0;
  qv::FixedText<kTextSize> ProgrammerName_;
  float DefaultRotation_ = 0;
  qv::FixedText<kTextSize> Revision_;
  double EstimateTime_ = 0;
  qv::FixedText<kTextSize> Comments_;
  int PartDefaultPosition_ = 0;
  double AverProcessTime_ = 0;
  float GridSpacingH_ = 0, GridSpacingV_ = 0, MarginTop_ = 0, MarginBottom_ = 0, MarginLeft_ = 0,
        MarginRight_ = 0;
  qv::FixedText<kTextSize> Machine_, ToolInventory_, MaterialFile_, MaterialGroup_, MaterialType_;
  float SheetSizeX_ = 0, SheetSizeY_ = 0, MaterialThickness_ = 0;
  qv::FixedText<kTextSize> ClampPosition_;
  std::vector<UsedToolInfo> UsedToolInfo_;
  std::vector<HoleInfo> HoleInfo_;
  std::vector<BendInfo> BendInfo_;
};
