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
    for (const Diagnostic& remark : Remarks) {
      codes.append(codes.empty() ? "" : " ").append(DiagnosticCodeName(remark.code));
    }
    return codes;
  }
};
