#pragma once

#include <QVAssemblyFile/Diagnostics.h>

#include <string>
#include <vector>

/// Keeps the remarks that are made while it lives.
class DiagnosticLog {
 public:
  DiagnosticLog() {
    SetDiagnosticHandler([](const Diagnostic& remark,
                            void* log) { static_cast<DiagnosticLog*>(log)->Remarks.push_back(remark); },
                         this);
  }
  ~DiagnosticLog() { SetDiagnosticHandler(nullptr, nullptr); }
  DiagnosticLog(const DiagnosticLog&) = delete;
  DiagnosticLog& operator=(const DiagnosticLog&) = delete;

  std::vector<Diagnostic> Remarks;

  /// The remarks' codes, in order: "row-left-out not-a-number".
  std::string Codes() const {
    std::string codes;
    for (const Diagnostic& remark : Remarks)
      codes.append(codes.empty() ? "" : " ").append(DiagnosticCodeName(remark.code));
    return codes;
  }

  /// A line for each remark: "3 PartQuantity not-a-number", with "-" for no column.
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    for (const Diagnostic& remark : Remarks)
      lines.push_back(std::to_string(remark.line) + " " + (remark.column.empty() ? "-" : remark.column) +
                      " " + DiagnosticCodeName(remark.code));
    return lines;
  }

  std::vector<std::string> Messages() const {
    std::vector<std::string> messages;
    for (const Diagnostic& remark : Remarks) messages.push_back(remark.message);
    return messages;
  }
};
