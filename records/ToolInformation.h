#pragma once

#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/FixedText.h>
#include <QVAssemblyFile/RecordStorage.h>

#include <string>

/// One punching tool: one row of a tools file.
///
/// Texts are narrow, in the system's code page; all but the punch conditions are at most 255 bytes long.
/// Units and codes are the host's; nothing is checked. A copy has a punch-condition text of its own. A record
/// belongs to one thread at a time.
class QVASSEMBLY_API ToolInformation {
 public:
  /// What a text getter's buffer holds.
  static constexpr std::size_t kTextSize = 256;

  ToolInformation();
  ToolInformation(const ToolInformation& other) = default;
  ToolInformation& operator=(const ToolInformation& other);
  ~ToolInformation();

  /// A text setter keeps the first 255 bytes and ignores null. A text getter needs a buffer of kTextSize
  /// (256) bytes, writes the text with its terminator and a NUL into the last byte, and ignores null. Text()
  /// brings the buffer along: Text(record, &ToolInformation::GetToolName).
  void GetToolShape(char* buffer);
  void SetToolShape(const char* text);
  void GetToolDimensions(char* buffer);
  void SetToolDimensions(const char* text);
  void GetToolAngles(char* buffer);
  void SetToolAngles(const char* text);
  void GetToolClearance(char* buffer);
  void SetToolClearance(const char* text);
  void GetStorageInfo(char* buffer);
  void SetStorageInfo(const char* text);
  void GetToolName(char* buffer);
  void SetToolName(const char* text);
  void GetToolComment(char* buffer);
  void SetToolComment(const char* text);
  void GetToolDriverName(char* buffer);
  void SetToolDriverName(const char* text);

  /// Numbers, 0 in a fresh record.
  int GetToolID();
  void SetToolID(int value);
  int GetToolType();
  void SetToolType(int value);
  float GetToolSize();
  void SetToolSize(float value);

  /// The punch conditions, a text of any length. The getter never returns null; its pointer holds until the
  /// next call of the setter, an assignment to the record or the record's end. The setter ignores null and
  /// throws std::bad_alloc, leaving the text as it was.
  const char* GetToolPunchConditionString() const;
  void SetToolPunchConditionString(const char* text);

  QVASSEMBLY_RECORD_STORAGE

 private:
  friend struct qv::ColumnTable<ToolInformation>;

  int ToolID_ = 0, ToolType_ = 0;
  qv::FixedText<kTextSize> ToolShape_, ToolDimensions_;
  float ToolSize_ = 0;
  qv::FixedText<kTextSize> ToolAngles_, ToolClearance_, StorageInfo_, ToolName_, ToolComment_,
      ToolDriverName_;
  std::string ToolPunchConditionString_;
};
