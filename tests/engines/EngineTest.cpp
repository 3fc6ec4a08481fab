#include "engines/CAssemblyFile.h"
#include "engines/text/CTxtAssembly.h"
#include "support/CaseFile.h"
#include "support/FormatText.h"
#include "support/Host.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

TEST(ApplyFormat, OrdersColumnsByPosition) {
  for (const auto& row : ReadTable("engines/tables/columns.table")) {
    SCOPED_TRACE(row[0]);
    CTxtAssembly engine;
    engine.KindFlags[0] = true;
    OptionForm form;
    form.Items = ItemsOf(row[1]);
    ApplyFormat(engine, form, "parts.txt");
    EXPECT_EQ(Joined(engine.Columns(RecordKind::Parts)), row[2]);
  }
}

TEST(ApplyFormat, FillsTheFirstFlaggedKindOnly) {
  CTxtAssembly engine;
  engine.KindFlags[2] = engine.KindFlags[5] = true;
  OptionForm form;
  form.Items = {{"A", "0"}};
  ApplyFormat(engine, form, "");
  ApplyFormat(engine, form, "");
  EXPECT_EQ(Joined(engine.Columns(RecordKind::Materials)), "A A");
  EXPECT_TRUE(engine.Columns(RecordKind::MaterialInventory).empty());
}

TEST(Engine, QualifiesAndDelimits) {
  for (const auto& row : ReadTable("engines/tables/quoting.table")) {
    CTxtAssembly text;
    CCSVAssembly csv;
    for (CTxtAssembly* engine : {&text, static_cast<CTxtAssembly*>(&csv)}) {
      engine->Qualifier = std::stoi(row[0]);
      engine->Delimiters = row[1];
      engine->OtherDelimiters = row[2];
      std::string cell = "a";
      engine->QualifyField(cell);
      engine->AppendDelimiter(cell);
      EXPECT_EQ(cell, engine == &text ? row[3] : "\"a\",") << row[1];
    }
  }
}

TEST(EngineFactory, GoesByTheExtension) {
  host::Boxes boxes;
  for (const char* path : {"report.TXT", "report.Csv", "a.b\\c.xLs", "/x.y/report.txt", ".csv"})
    EXPECT_NE(CreateAssemblyEngine(path), nullptr) << path;
  EXPECT_TRUE(boxes.all.empty());
  for (const char* path : {"report.xlsx", "report", "", "txt", "folder.txt/report", "report.txt ",
                           static_cast<const char*>(nullptr)}) {
    boxes.all.clear();
    EXPECT_EQ(CreateAssemblyEngine(path), nullptr);
    EXPECT_EQ(boxes.all, std::vector<std::string>{"File Format Error!"});
  }
}

}  // namespace
