#pragma once

#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/FixedText.h>
#include <QVAssemblyFile/RecordStorage.h>

// Copies are taken by the implicit copy constructor, which fits the assignment.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-copy"

/// One part of a job: one row of a parts file.
///
/// Texts are narrow, in the system's code page, at most 255 bytes long. Units and the words of the
/// choices are the host's; nothing is checked. A copy is a plain copy of every field. A record belongs to one
/// thread at a time.
class QVASSEMBLY_API PartInformation {
 public:
  PartInformation();
  PartInformation& operator=(const PartInformation& other);
  ~PartInformation();

  /// A text setter keeps the first 255 bytes and ignores null. A text getter needs a buffer of 256
  /// bytes, writes the text with its terminator and a NUL into the last byte, and ignores null.
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

  qv::FixedText<256> partName_;
  qv::FixedText<256> partNumber_;
  qv::FixedText<256> fullPathName_;
  int partQuantity_ = 1;
  qv::FixedText<256> dueDate_;
  qv::FixedText<256> materialType_;
  double materialThickness_ = 0.0;
  qv::FixedText<256> partComment_;
  qv::FixedText<256> revision_;
  qv::FixedText<256> machine_;
  qv::FixedText<256> toolInventory_;
  qv::FixedText<256> materialGroup_;
  qv::FixedText<256> customer_;
  qv::FixedText<256> routerNumber_;
  qv::FixedText<256> workOderNumber_;
  int binID_ = 0;
  double estimateTime_ = 0.0;
  qv::FixedText<256> groupName_;
  qv::FixedText<256> partPositionInGroup_;
  qv::FixedText<256> materialFile_;
  qv::FixedText<256> rectangularTrueShape_;
  int stackTableId_ = -1;
  int rotation_ = 1;
  int commonCutting_ = 0;
  qv::FixedText<256> cCutPunch_;
  qv::FixedText<256> grainDirection_;
  qv::FixedText<256> rotateSpecificAngle_;
  qv::FixedText<256> materialCode_;
  qv::FixedText<256> materialDescription_;
  qv::FixedText<256> customerMaterialType_;
  qv::FixedText<256> coating_;
  int priority_ = 1;
  bool isMachineAvailable_ = false;
  bool isMaterialTypeAvailable_ = false;
  bool isMaterialThicknessAvailable_ = false;
  bool isMaterialGroupAvailable_ = false;
  bool isPreferredMaterialAvailable_ = false;
  bool isPartNumberAvailable_ = false;
  bool isCustomerAvailable_ = false;
  bool isPartCommentAvailable_ = false;
  bool isRevisionAvailable_ = false;
  bool isToolInventoryAvailable_ = false;
  bool isBinIDAvailable_ = false;
};

#pragma GCC diagnostic pop
