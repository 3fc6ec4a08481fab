#include "engines/CAssemblyFile.h"
#include "engines/CCSVAssembly.h"
#include "engines/CTxtAssembly.h"
#include "platform/MessageBox.h"
#include "support/FormatText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Keywords = std::vector<std::string>;

TEST(ApplyFormat, OrdersColumnsByPosition) {
  const struct {
    const char* why;
    const char* items;
    const char* columns;
  } cases[] = {
      {"gaps close", "A=3 B=0 C=1", "B C A"},
      {"the first claim of a position holds", "A=1 B=1 C=0", "C A"},
      {"-1 is no column, other negative numbers are", "A=-1 B=-2 C=0", "B C"},
      {"ignored at several positions", "A=0 Ignore=1,3, B=2", "A Ignore B Ignore"},
      {"what follows the last comma is lost", "Ignore=1,4 A=0", "A Ignore"},
      {"an ignored position without a comma is none", "Ignore=1 A=0", "A"},
      {"an ignored empty number is position 0", "Ignore=,2, A=0 B=1", "Ignore B Ignore"},
      {"text is position 0", "A=first B=0 C=1st", "A C"},
      {"slash columns", "C-CutPunch=0 RectangularTrueShape=1", "C-Cut/Punch Rectangular/TrueShape"},
      {"ignoring case is not Ignore", "ignore=0, A=1", "ignore A"},
      {"huge positions", "A=99999999999 B=2147483646", "B A"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.why);
    CTxtAssembly engine;
    engine.KindFlags[0] = true;
    OptionForm form;
    form.Items = ItemsOf(row.items);
    ApplyFormat(engine, form, "parts.txt");
    EXPECT_EQ(Joined(engine.Columns(RecordKind::Parts)), row.columns);
  }
}

TEST(ApplyFormat, FillsTheFirstFlaggedKindOnly) {
  CTxtAssembly engine;
  engine.KindFlags[2] = engine.KindFlags[5] = true;
  OptionForm form;
  form.Items = {{"A", "0"}};
  ApplyFormat(engine, form, "");
  ApplyFormat(engine, form, "");
  EXPECT_EQ(engine.Columns(RecordKind::Materials), (Keywords{"A", "A"}));
  EXPECT_TRUE(engine.Columns(RecordKind::MaterialInventory).empty());
}

TEST(ApplyFormat, CopiesTheRules) {
  CTxtAssembly engine;
  OptionForm form;
  form.StartLine = 3;
  form.Qualifier = 1;
  form.Delimiters = "Tab,Other";
  form.OtherDelimiters = "|";
  form.TreatAsOne = true;
  form.PartKey = "name";
  ApplyFormat(engine, form, "");
  EXPECT_EQ(engine.StartLine, 3);
  EXPECT_EQ(engine.Qualifier, 1);
  EXPECT_EQ(engine.Delimiters, "Tab,Other");
  EXPECT_EQ(engine.OtherDelimiters, "|");
  EXPECT_TRUE(engine.TreatAsOne);
  EXPECT_FALSE(engine.PartKeyIsName);
}

TEST(Engine, QualifiesAndDelimits) {
  const struct {
    int qualifier;
    const char* delimiters;
    const char* other;
    std::string cell;
  } cases[] = {
      {0, "Tab,Comma", "", "\"a\","},
      {1, "Tab,Semicolon", "", "'a';"},
      {2, "Tab", "", "a\t"},
      {3, "Space,Other", "|", "a "},
      {-1, "Other", "|#", "a|"},
      {2, "", "|", std::string("a\0", 2)},
      {2, "Other", "", std::string("a\0", 2)},
      {2, "tab", "", std::string("a\0", 2)},
  };
  for (const auto& c : cases) {
    CTxtAssembly text;
    CCSVAssembly csv;
    for (CAssemblyFile* engine : {static_cast<CAssemblyFile*>(&text), static_cast<CAssemblyFile*>(&csv)}) {
      engine->Qualifier = c.qualifier;
      engine->Delimiters = c.delimiters;
      engine->OtherDelimiters = c.other;
      std::string cell = "a";
      engine->QualifyField(cell);
      engine->AppendDelimiter(cell);
      EXPECT_EQ(cell, engine == &text ? c.cell : "\"a\",") << c.delimiters;
    }
  }
}

TEST(EngineFactory, GoesByTheExtension) {
  std::string told;
  SetMessageBoxHandler([](const char* text, void* context) { *static_cast<std::string*>(context) += text; },
                       &told);
  for (const char* path : {"report.TXT", "report.Csv", "a.b\\c.xLs", "/x.y/report.txt", ".csv"})
    EXPECT_NE(CreateAssemblyEngine(path), nullptr) << path;
  EXPECT_EQ(told, "");
  for (const char* path : {"report.xlsx", "report", "", "txt", "folder.txt/report", "report.txt "}) {
    told.clear();
    EXPECT_EQ(CreateAssemblyEngine(path), nullptr) << path;
    EXPECT_EQ(told, "File Format Error!") << path;
  }
  EXPECT_EQ(CreateAssemblyEngine(nullptr), nullptr);
  SetMessageBoxHandler(nullptr, nullptr);
}

}  // namespace
