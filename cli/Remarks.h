#pragma once

#include "cli/Errors.h"
#include "cli/Progress.h"
#include "cli/Streams.h"
#include "cli/TextCoding.h"

#include <QVAssemblyFile/Diagnostics.h>

#include <cstdint>
#include <map>
#include <string>

namespace qv {

/// Hears what is remarked on before it is told.
class RemarkListener {
 public:
  virtual ~RemarkListener() = default;

  /// Returns false when the remark need not be told any more.
  virtual bool Hear(const Remark& remark) = 0;
};

/// Everything that is told to the user besides the data: what the library reports while this lives, and what
/// the commands themselves have to say. Goes to standard error as lines of text or of JSON.
class Remarks {
 public:
  Remarks(const Streams& streams, Progress& progress);
  ~Remarks();
  Remarks(const Remarks&) = delete;
  Remarks& operator=(const Remarks&) = delete;

  void UseJson() { isJson_ = true; }
  bool IsJson() const { return isJson_; }
  /// What the library's remarks quote is in this encoding.
  void UseCoding(const TextCoding& coding) { coding_ = coding; }

  /// Hears every warning from now on; null: nobody.
  void SetListener(RemarkListener* listener) { listener_ = listener; }

  /// The data was not taken as it stood.
  void Warn(const Remark& remark);
  /// The work could not be done.
  void Fail(const Remark& remark);
  /// What may help, and is no warning.
  void Advise(const Remark& remark) { Tell(remark); }
  /// A plain sentence that is no warning; nothing in JSON.
  void Note(const std::string& sentence);

  std::int64_t Warnings() const { return warnings_; }
  bool HasFailed() const { return failed_; }
  /// The last message box that the library wanted to show.
  const std::string& MessageBox() const { return messageBox_; }

  /// While it lives, what the library reports is not told: nothing of it, or not the codes that it covers.
  class Silence {
   public:
    using Covers = bool (*)(DiagnosticCode code);

    explicit Silence(
        Remarks& remarks, Covers covers = [](DiagnosticCode) { return true; })
        : remarks_(remarks), before_(remarks.silence_), covers_(covers) {
      remarks_.silence_ = this;
    }
    ~Silence() { remarks_.silence_ = before_; }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

    /// How often a code was kept back.
    int Kept(DiagnosticCode code) const {
      const auto found = kept_.find(code);
      return found == kept_.end() ? 0 : found->second;
    }

   private:
    friend class Remarks;
    bool Keep(DiagnosticCode code) {
      if (covers_(code)) ++kept_[code];
      return covers_(code);
    }

    Remarks& remarks_;
    Silence* before_;
    Covers covers_;
    std::map<DiagnosticCode, int> kept_;
  };

 private:
  void Receive(const Diagnostic& diagnostic);
  void Tell(const Remark& remark);

  const Streams& streams_;
  Progress& progress_;
  TextCoding coding_;
  bool isJson_ = false;
  bool failed_ = false;
  Silence* silence_ = nullptr;
  RemarkListener* listener_ = nullptr;
  std::int64_t warnings_ = 0;
  std::string messageBox_;
};

}  // namespace qv
