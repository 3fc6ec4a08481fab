#include "engines/text/CTxtAssembly.h"
#include "fuzz/ByteSource.h"
#include "manager/FileStart.h"
#include "support/FakeFileSystem.h"

// Any file and any name: a name that is written is read back, what follows the name line stays, and writing
// twice is writing once.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  std::string name = source.Text();
  name = name.substr(0, name.find_first_of(std::string_view("\0\r\n\x1A", 4)));
  FakeFileSystem files;
  // A CR before a line's CR LF becomes part of the line end where lines are written with LF.
  std::string content = source.Rest();
  std::erase(content, '\r');
  files.Contents["a.txt"] = content;
  CTxtAssembly engine;
  std::string read = "?";
  engine.ReadFormatName(read, "a.txt");
  Require(qv::ExpandFormatName(read).size() <= read.size());

  engine.WriteFormatName(name.c_str(), "a.txt");
  const std::string once = files.Contents["a.txt"];
  read = "?";
  engine.ReadFormatName(read, "a.txt");
  Require(read == name);
  engine.WriteFormatName(name.c_str(), "a.txt");
  Require(files.Contents["a.txt"] == once);
  return 0;
}
