#include "engines/FormatNameLine.h"

#include "engines/FileReport.h"
#include "engines/LineReader.h"
#include "engines/TextFileWriter.h"

#include <memory>

namespace qv {
namespace {

constexpr std::string_view kMark = "FMT_Name";

std::unique_ptr<OpenFile> OpenToRead(const char* path, const FileReport& report) {
  std::string reason;
  auto file = Files().Open(path, OpenMode::Read, reason);
  if (file == nullptr) report.Tell(DiagnosticCode::FileNotOpened, 0, {}, {}, {}, "cannot be read: " + reason);
  return file;
}

/// Copies the lines, a stored name aside; false when not all of them could be read.
bool CopyLines(OpenFile& source, TextFileWriter& target) {
  constexpr int kNoEndOfText = -1;  // what stands behind such a byte is not to be lost
  LineReader lines(source, kNoEndOfText);
  std::string_view line;
  while (lines.Next(line)) {
    if (lines.LineNumber() == 1 && IsFormatNameLine(line)) continue;
    target.Pending() += line;
    target.EndLine();
  }
  return !lines.HasFailed();
}

}  // namespace

std::string FormatNameLine(std::string_view name) { return "[FMT_Name=" + std::string(name) + "]"; }

bool IsFormatNameLine(std::string_view line) { return line.find(kMark) != std::string_view::npos; }

void ReadStoredFormatName(std::string& name, const char* path) {
  const FileReport report(path);
  const auto file = OpenToRead(path, report);
  if (file == nullptr) return;
  LineReader lines(*file);
  std::string_view line;
  if (!lines.Next(line) || !IsFormatNameLine(line)) return;
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos || equals + 1 == line.size()) return;
  name = line.substr(equals + 1, line.size() - equals - 2);
}

void WriteStoredFormatName(const char* name, const char* path) {
  const FileReport report(path);
  auto source = OpenToRead(path, report);
  if (source == nullptr) return;
  TextFileWriter target(path, WorkingPlace::WorkingFolder);
  target.Pending() += FormatNameLine(name);
  target.EndLine();
  const bool copied = target.IsOpen() && CopyLines(*source, target);
  source.reset();  // a file that is still open cannot be replaced everywhere
  if (!copied || !target.Commit())
    report.Tell(DiagnosticCode::FileNotWritten, 0, {}, {}, {},
                "cannot be rewritten, left as it was: " + target.Reason());
}

}  // namespace qv
