#include "cli/Program.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <fstream>
#include <sstream>
#include <thread>

// A pipe gives its bytes once, to whoever opens it first: no command looks twice, and none waits for more.

namespace qv {
namespace {

constexpr const char* kFormats =
    "<CSVOptionSetting Current=\"f\"><OptionForm Name=\"f\" Line=\"1\"><PartName Order=\"0\"/></OptionForm>"
    "</CSVOptionSetting>";

constexpr const char* kParts = "name\nA1\n";

TEST(Pipes, AreReadOnce) {
  const TemporaryFolder folder;
  const std::string list = folder.Write("list.csv", kParts);
  const std::string config = folder.Write("f.xml", kFormats);
  const std::string pipe = folder / "in.csv";
  const std::string file = folder / "out.csv";
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const struct {
    const char* written;  // to the pipe; null: nothing is read from it
    std::vector<std::string> arguments;
    int code;
    std::string output;  // a part of it
  } cases[] = {
      {kParts, {"check", "--kind", "parts", "--config", config, pipe}, 0, "1 record, nothing to remark on"},
      {kParts,
       {"import", "--kind", "parts", "--config", config, "--as", "jsonl", pipe},
       0,
       "{\"PartName\":\"A1\""},
      {kParts, {"headers", "--config", config, pipe}, 0, "name\n"},
      {kParts, {"convert", "--kind", "parts", "--config", config, pipe, file}, 0, ""},
      {nullptr, {"check", "--kind", "parts", "--config", config, "--rejects", file, pipe}, 2, "--rejects"},
      {nullptr, {"convert", "--strict", "--kind", "parts", "--config", config, list, pipe}, 2, "--strict"},
      {nullptr, {"format-name", "set", pipe, "f"}, 3, "pipe"},
      {kFormats, {"formats", "list", "--config", pipe}, 0, "f"},
      {kFormats,
       {"import", "--kind", "parts", "--config", pipe, "--as", "jsonl", list},
       0,
       "{\"PartName\":\"A1\""},
      {"<a>\n<b></a>",
       {"formats", "list", "--config", pipe},
       3,
       ":2: the format file cannot be read: column 6: "},
      {nullptr, {"formats", "use", "--config", pipe, "f"}, 3, "pipe"},
      {nullptr, {"options", "--config", pipe}, 3, "pipe"},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.arguments.front());
    std::thread writer([&] {
      if (test.written != nullptr) std::ofstream(pipe) << test.written;
    });
    std::vector<std::string> arguments = {"qvassembly"};
    arguments.insert(arguments.end(), test.arguments.begin(), test.arguments.end());
    std::istringstream in;
    std::ostringstream out;
    EXPECT_EQ(RunProgram(arguments, Streams{in, out, out}), test.code);
    EXPECT_NE(out.str().find(test.output), std::string::npos) << out.str();
    writer.join();
  }
  EXPECT_EQ(TemporaryFolder::Read(file), "\"PartName\",\n\"A1\"\n");
}

}  // namespace
}  // namespace qv
