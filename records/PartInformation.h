#pragma once

#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/FixedText.h>
#include <QVAssemblyFile/RecordStorage.h>

/// One part of a job: one row of a parts file.
///
/// Texts are narrow, in the system's code page, at most 255 bytes long. Units and the words of the
/// choices are the host's; nothing is checked. A copy is a plain copy of every field. A record belongs to one
/// thread at a time.
class QVASSEMBLY_API PartInformation {
 public:
  /// What a text getter's buffer holds.
  static constexpr std::size_t kTextSize = 256;

  PartInformation();
  PartInformation(const PartInformation& other) = default;
  PartInformation& operator=(const PartInformation& other);
  ~PartInformation();

  /// A text setter keeps the first 255 bytes and ignores null. A text getter needs a buffer of kTextSize
  /// (256) bytes, writes the text with its terminator and a NUL into the last byte, and ignores null. Text()
  /// brings the buffer along: Text(record, &PartInformation::GetPartName).
  void GetPartName(char* buffer);
  void SetPartName(const char* text);
  void GetPartNumber(char* buffer);
  void SetPartNumber(const char* text);
  void GetFullPathNameA(char* buffer);
  void SetFullPathName(const char* text);
  void GetDueDate(char* buffer);
  void SetDueDate(const char* text);
  void GetMaterialType(char* buffer);
  void SetMaterialType(const char* text);
  void GetPartComment(char* buffer);
  void SetPartComment(const char* text);
  void GetRevision(char* buffer);
  void SetRevision(const char* text);
  void GetMachine(char* buffer);
  void SetMachine(const char* text);
  void GetToolInventory(char* buffer);
  void SetToolInventory(const char* text);
  void GetMaterialGroup(char* buffer);
  void SetMaterialGroup(const char* text);
  void GetCustomer(char* buffer);
  void SetCustomer(const char* text);
  void GetRouterNumber(char* buffer);
  void SetRouterNumber(const char* text);
  void GetWorkOderNumber(char* buffer);
  void SetWorkOderNumber(const char* text);
  void GetGroupName(char* buffer);
  void SetGroupName(const char* text);
  void GetPartPositionInGroup(char* buffer);
  void SetPartPositionInGroup(const char* text);
  void GetMaterialFile(char* buffer);
  void SetMaterialFile(const char* text);
  void GetRectangularTrueShape(char* buffer);
  void SetRectangularTrueShape(const char* text);
  void GetCCutPunch(char* buffer);
  void SetCCutPunch(const char* text);
  void GetGrainDirection(char* buffer);
  void SetGrainDirection(const char* text);
  void GetRotateSpecificAngle(char* buffer);
  void SetRotateSpecificAngle(const char* text);
  void GetMaterialCode(char* buffer);
  void SetMaterialCode(const char* text);
  void GetMaterialDescription(char* buffer);
  void SetMaterialDescription(const char* text);
  void GetCustomerMaterialType(char* buffer);
  void SetCustomerMaterialType(const char* text);
  void GetCoating(char* buffer);
  void SetCoating(const char* text);

  /// Numbers. A fresh record has quantity, rotation and priority 1, no stack table (-1) and otherwise 0.
  int GetPartQuantity();
  void SetPartQuantity(int value);
  double GetMaterialThickness();
  void SetMaterialThickness(double value);
  int GetBinID();
  void SetBinID(int value);
  double GetEstimateTime();
  void SetEstimateTime(double value);
  int StackTableId() const;
  void SetStackTableId(int value);
  int GetRotation();
  void SetRotation(int value);
  int GetCommonCutting();
  void SetCommonCutting(int value);
  int GetPriority() const;
  void SetPriority(int value);

  /// Whether the imported file had the column, so that an empty value can be told from a missing column. All
  /// false in a fresh record.
  bool GetIsMachineAvailable();
  void SetIsMachineAvailable(bool value);
  bool GetIsMaterialTypeAvailable();
  void SetIsMaterialTypeAvailable(bool value);
  bool GetIsMaterialThicknessAvailable();
  void SetIsMaterialThicknessAvailable(bool value);
  bool GetIsMaterialGroupAvailable();
  void SetIsMaterialGroupAvailable(bool value);
  bool GetIsPreferredMaterialAvailable();
  void SetIsPreferredMaterialAvailable(bool value);
  bool GetIsPartNumberAvailable();
  void SetIsPartNumberAvailable(bool value);
  bool GetIsCustomerAvailable();
  void SetIsCustomerAvailable(bool value);
  bool GetIsPartCommentAvailable();
  void SetIsPartCommentAvailable(bool value);
  bool GetIsRevisionAvailable();
  void SetIsRevisionAvailable(bool value);
  bool GetIsToolInventoryAvailable();
  void SetIsToolInventoryAvailable(bool value);
  bool GetIsBinIDAvailable();
  void SetIsBinIDAvailable(bool value);

  QVASSEMBLY_RECORD_STORAGE

 private:
  friend struct qv::ColumnTable<PartInformation>;

  qv::FixedText<kTextSize> PartName_, PartNumber_, FullPathName_;
  int PartQuantity_ = 1;
  qv::FixedText<kTextSize> DueDate_, MaterialType_;
  double MaterialThickness_ = 0;
  qv::FixedText<kTextSize> PartComment_, Revision_, Machine_, ToolInventory_, MaterialGroup_, Customer_,
      RouterNumber_, WorkOderNumber_;
  int BinID_ = 0;
  double EstimateTime_ = 0;
  qv::FixedText<kTextSize> GroupName_, PartPositionInGroup_, MaterialFile_, RectangularTrueShape_;
  int StackTableId_ = -1, Rotation_ = 1, CommonCutting_ = 0;
  qv::FixedText<kTextSize> CCutPunch_, GrainDirection_, RotateSpecificAngle_, MaterialCode_,
      MaterialDescription_, CustomerMaterialType_, Coating_;
  int Priority_ = 1;
  bool IsMachineAvailable_ = false, IsMaterialTypeAvailable_ = false, IsMaterialThicknessAvailable_ = false,
       IsMaterialGroupAvailable_ = false, IsPreferredMaterialAvailable_ = false,
       IsPartNumberAvailable_ = false, IsCustomerAvailable_ = false, IsPartCommentAvailable_ = false,
       IsRevisionAvailable_ = false, IsToolInventoryAvailable_ = false, IsBinIDAvailable_ = false;
};
