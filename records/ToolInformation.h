#pragma once

#include <QVAssemblyFile/Export.h>
#include <QVAssemblyFile/FixedText.h>
#include <QVAssemblyFile/RecordStorage.h>

#include <string>

// Copies are taken by the implicit copy constructor, which fits the assignment.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-copy"

/// One punching tool: one row of a tools file.
///
/// Texts are narrow, in the system's code page; all but the punch conditions are at most 255 bytes long.
/// Units and codes are the host's; nothing is checked. A copy has a punch-condition text of its own. A record
/// belongs to one thread at a time.
class QVASSEMBLY_API ToolInformation {
 public:
  ToolInformation();
  ToolInformation& operator=(const ToolInformation& other);
  ~ToolInformation();

  /// A text setter keeps the first 255 bytes and ignores null. A text getter needs a buffer of 256
  /// bytes, writes the text with its terminator and a NUL into the last byte, and ignores null.
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

  int toolID_ = 0;
  int toolType_ = 0;
  qv::FixedText<256> toolShape_;
  qv::FixedText<256> toolDimensions_;
  float toolSize_ = 0.0f;
  qv::FixedText<256> toolAngles_;
  qv::FixedText<256> toolClearance_;
  qv::FixedText<256> storageInfo_;
  qv::FixedText<256> toolName_;
  qv::FixedText<256> toolComment_;
  qv::FixedText<256> toolDriverName_;
  std::string toolPunchConditionString_;
};

#pragma GCC diagnostic pop
