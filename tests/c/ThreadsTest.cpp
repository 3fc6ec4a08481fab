#include "support/TemporaryFolder.h"

#include <QVAssemblyFile/qvassembly.hpp>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <thread>
#include <vector>

// Managers in threads of their own disturb each other in nothing: not in records, remarks, files or
// sentences. In the tree "tsan" the library is instrumented, and a race ends the program.

namespace {

struct Example {
  qva::Kind kind;
  const char* format;
  const char* file;
};

constexpr Example kExamples[] = {
    {qva::Kind::Parts, "orders", "parts.csv"},
    {qva::Kind::Parts, "orders", "odd-parts.csv"},
    {qva::Kind::Tools, "tools", "tools.txt"},
    {qva::Kind::Materials, "cutting-conditions", "cutting-conditions.txt"},
    {qva::Kind::Sheets, "nested-sheets", "nested-sheets.txt"},
    {qva::Kind::PartPrograms, "part-programs", "part-programs.csv"},
    {qva::Kind::MaterialInventory, "stock", "stock.txt"},
    {qva::Kind::MaterialLibrary, "material-library", "material-library.csv"},
};

/// Its texts and numbers.
std::string ValuesOf(const qva::Record& record, qva::Kind kind) {
  std::string values;
  std::int32_t type = 0;
  for (std::int32_t field = 0; qva_field_type(static_cast<std::int32_t>(kind), field, &type) == QVA_OK;
       ++field) {
    if (type == QVA_TEXT) values += record.text(field) + "|";
    if (type == QVA_INTEGER || type == QVA_NUMBER) values += std::to_string(record.number(field)) + "|";
  }
  return values;
}

/// Reads an example, writes it again where the kind is written, and returns all that came of it.
std::string Copied(const Example& example, const TemporaryFolder& folder) {
  qva::Manager in, out;
  for (qva::Manager* const manager : {&in, &out}) {
    manager->loadFormats(QV_EXAMPLES "/AssemblyFormats.xml");
    manager->selectFormat(example.format);
  }
  std::string outcome;
  const std::string path = folder / example.file;
  std::optional<qva::Writer> writer;
  std::int32_t abilities = 0;
  qva_kind_abilities(static_cast<std::int32_t>(example.kind), &abilities);
  if ((abilities & QVA_CAN_WRITE) != 0) writer.emplace(out.write(path, example.kind));
  for (qva::Record& record : in.read(std::string(QV_EXAMPLES "/") + example.file, example.kind)) {
    outcome += ValuesOf(record, example.kind) + "\n";
    if (writer) writer->put(record);
  }
  if (writer) writer->commit();
  for (const qva::Diagnostic& diagnostic : in.takeDiagnostics())
    outcome += diagnostic.code + " " + diagnostic.message + "\n";
  return outcome + (writer ? TemporaryFolder::Read(path) : "");
}

void WriteProgress(const TemporaryFolder& folder) {
  qva::Manager manager;
  manager.loadFormats(QV_EXAMPLES "/AssemblyFormats.xml");
  manager.selectFormat("job-progress");
  qva::Writer writer = manager.write(folder / "progress.txt", qva::Kind::JobProgress);
  for (int row = 0; row < 20; ++row) writer.put(qva::Record(qva::Kind::JobProgress));
  writer.commit();
}

std::string SentenceOfFailure(const std::string& name) {
  qva::Manager manager;
  try {
    manager.selectFormat(name);
  } catch (const qva::Error& error) {
    return error.what();
  }
  return "";
}

std::vector<std::string> AllKinds(const std::string& thread, const TemporaryFolder& folder) {
  std::vector<std::string> outcomes;
  for (const Example& example : kExamples) outcomes.push_back(Copied(example, folder));
  WriteProgress(folder);
  EXPECT_NE(SentenceOfFailure(thread).find(thread), std::string::npos);
  return outcomes;
}

TEST(ThreadsTest, ManagersInThreadsOfTheirOwnWorkAtOnce) {
  // The threads come first, as what is made on first use is then made by all of them at once.
  constexpr int kThreads = 4, kTurns = 4;
  const std::vector<TemporaryFolder> folders(kThreads);
  std::vector<std::vector<std::string>> outcomes(kThreads);
  std::vector<std::thread> threads;
  for (std::size_t at = 0; at < kThreads; ++at)
    threads.emplace_back([&, at] {
      for (int turn = 0; turn < kTurns; ++turn)
        outcomes[at] = AllKinds("thread" + std::to_string(at), folders[at]);
    });
  for (std::thread& thread : threads) thread.join();
  const std::vector<std::string> alone = AllKinds("alone", folders[0]);
  for (const std::vector<std::string>& outcome : outcomes) EXPECT_EQ(outcome, alone);
  EXPECT_NE(alone[0].find("BRACKET-L-100"), std::string::npos);
}

}  // namespace
