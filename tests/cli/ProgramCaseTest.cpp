#include "cli/SpawnProgram.h"
#include "platform/CodePage.h"
#include "platform/FileSystem.h"
#include "support/CaseFile.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// Runs the built program as the case files say. Each case has a folder of its own with AssemblyFormats.xml
// and the files of its "file NAME" sections.
//
//     before: ARGUMENTS     a run that must end well, before the one that is looked at
//     run: ARGUMENTS        blanks between them; single quotes keep them together
//     environment: NAME=VALUE
//     exit: CODE            0 when it is not there
//     missing: NAME         a file that must not be there afterwards
//
// Sections "input", "output", "errors" and "after NAME" hold what goes into standard input, what must come
// out and what a file must hold afterwards. In what must come out, {*} stands for any text.

namespace {

// Data files are of the platform's code page, unless a case names another encoding.
bool IsInCodePage(const std::string& file, const TestCase& c) {
  const bool isData = file.ends_with(".txt") || file.ends_with(".csv");
  const std::string text = c.Setting("run", "");
  return isData && text.find("--encoding") == std::string::npos;
}

// Data files end their lines as the platform's text files do.
std::string WithPlainLineEnds(std::string text) {
  if (qv::kLineEnd != "\r\n") return text;
  std::erase(text, '\r');
  return text;
}

class ProgramCaseTest : public testing::TestWithParam<TestCase> {
 protected:
  ProgramResult Run(const std::string& line) const {
    ProgramCall call{QV_PROGRAM, SplitArguments(line), folder_ / ".", GetParam().Text("input"), {}};
    for (const char* variable : {"QVASSEMBLY_CONFIG", "COLUMNS", "NO_COLOR"}) call.environment[variable] = "";
    const std::string variable = GetParam().Setting("environment", "");
    if (!variable.empty())
      call.environment[variable.substr(0, variable.find('='))] = variable.substr(variable.find('=') + 1);
    return SpawnProgram(call);
  }

  void WriteFiles() const {
    folder_.Write("AssemblyFormats.xml", TemporaryFolder::Read(TestFile("cli/cases/AssemblyFormats.xml")));
    for (const auto& [name, lines] : GetParam().sections)
      if (name.starts_with("file "))
        folder_.Write(name.substr(5), InFile(name.substr(5), GetParam().Text(name)));
  }

  static std::string InFile(const std::string& file, const std::string& text) {
    return IsInCodePage(file, GetParam()) ? qv::FromUtf8(text) : text;
  }

  void CheckFiles() const {
    for (const auto& [name, lines] : GetParam().sections) {
      if (!name.starts_with("after ")) continue;
      const std::string actual = WithPlainLineEnds(TemporaryFolder::Read(folder_ / name.substr(6)));
      EXPECT_EQ(actual, InFile(name.substr(6), GetParam().Text(name))) << name;
    }
    const std::string missing = GetParam().Setting("missing", "");
    EXPECT_FALSE(!missing.empty() && folder_.Names().contains(missing)) << missing;
  }

  static void ExpectText(const std::string& actual, const std::string& pattern, const char* what) {
    if (MatchesPattern(actual, pattern)) return;
    EXPECT_EQ(actual, pattern) << what;
  }

  const TemporaryFolder folder_;
};

TEST_P(ProgramCaseTest, DoesAsTheCaseSays) {
  const TestCase& c = GetParam();
  SCOPED_TRACE(c.file + ":" + std::to_string(c.lineNumber));
  WriteFiles();
  if (const std::string before = c.Setting("before", ""); !before.empty()) {
    const ProgramResult result = Run(before);
    ASSERT_EQ(result.exitCode, 0) << before << "\n" << result.errors;
  }
  const ProgramResult result = Run(c.Setting("run", ""));
  EXPECT_EQ(result.exitCode, std::stoi(c.Setting("exit", "0")));
  if (c.Has("output") || c.Setting("exit", "0") != "0") ExpectText(result.output, c.Text("output"), "output");
  ExpectText(result.errors, c.Text("errors"), "errors");
  CheckFiles();
}

INSTANTIATE_TEST_SUITE_P(Cases, ProgramCaseTest, testing::ValuesIn(ReadTestCases("cli/cases")), NameOfCase);

}  // namespace
