#include "engines/text/FormatNameLine.h"

#include "engines/FileDiagnostics.h"
#include "engines/text/LineReader.h"
#include "engines/text/TextFileWriter.h"

#include <memory>

namespace qv {
namespace {

constexpr std::string_view kMark = "FMT_Name";

std::unique_ptr<OpenFile> OpenToRead(const char* path, const FileDiagnostics& diagnostics) {
  std::string reason;
  auto file = Files().Open(path, OpenMode::Read, reason);
  if (file == nullptr) diagnostics.Report(DiagnosticCode::FileNotOpened, 0, "cannot be read: " + reason);
  return file;
}

/// Copies the lines, a stored name aside; false when not all of them could be read.
bool CopyLines(OpenFile& source, TextFileWriter& target) {
  constexpr int kNoEndOfText = -1;  // what follows such a byte is not to be lost
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

// The last character is the closing bracket, and never looked at.
std::optional<std::string_view> NameInLine(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (!IsFormatNameLine(line) || equals == std::string_view::npos || equals + 1 == line.size())
    return std::nullopt;
  return line.substr(equals + 1, line.size() - equals - 2);
}

void ReadStoredFormatName(std::string& name, const char* path) {
  const FileDiagnostics diagnostics(path);
  const auto file = OpenToRead(path, diagnostics);
  if (file == nullptr) return;
  LineReader lines(*file);
  std::string_view line;
  if (!lines.Next(line)) return;
  if (const auto found = NameInLine(line)) name = *found;
}

void WriteStoredFormatName(const char* name, const char* path) {
  const FileDiagnostics diagnostics(path);
  auto source = OpenToRead(path, diagnostics);
  if (source == nullptr) return;
  TextFileWriter target(diagnostics, WorkingPlace::WorkingFolder);
  if (target.HasFailed()) return;
  target.Pending() += FormatNameLine(name);
  target.EndLine();
  if (!CopyLines(*source, target))
    return diagnostics.Report(DiagnosticCode::FileNotWritten, 0,
                              "left as it was, as it cannot be read to its end: " + source->Reason());
  source.reset();  // a file that is still open cannot be replaced everywhere
  target.Commit();
}

}  // namespace qv
