#include "engines/text/FieldSplitter.h"

#include "engines/columns/ColumnTables.h"
#include "engines/text/CTxtAssembly.h"
#include "support/CaseFile.h"
#include "support/FakeFileSystem.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Fields = std::vector<std::string>;

/// Sets the rules of a table's row.
CTxtAssembly& Configure(CTxtAssembly& engine, const std::string& rules) {
  static const std::map<std::string, int> kQualifiers = {{"single", 1}, {"bare", 2}, {"unknown", 7}};
  engine.Delimiters = engine.OtherDelimiters = "";
  std::istringstream words(rules);
  for (std::string word; words >> word;) {
    if (const auto qualifier = kQualifiers.find(word); qualifier != kQualifiers.end())
      engine.Qualifier = qualifier->second;
    else if (word == "one")
      engine.TreatAsOne = true;
    else if (word.starts_with('='))
      engine.OtherDelimiters = word.substr(1);
    else if (word != "csv")
      engine.Delimiters = word;
  }
  return engine;
}

TEST(FieldSplitter, SplitsAsTheTableSays) {
  qv::FieldViews views;  // one for all rows, so that nothing may be left of the one before
  for (const auto& row : ReadTable("engines/tables/split.table")) {
    SCOPED_TRACE(row[0]);
    CTxtAssembly text;
    CCSVAssembly csv;
    CTxtAssembly& engine = Configure(row[1].starts_with("csv") ? csv : text, row[1]);
    Fields fields{"kept"};
    EXPECT_TRUE(engine.SplitLine(row[2], fields));
    std::string shown;
    for (const std::string& field : fields) shown += "[" + field + "]";
    EXPECT_EQ(shown, "[kept]" + row[3]);

    qv::FieldSplitter splitter(*engine.Rules());
    splitter.Split(row[2], views);
    EXPECT_EQ(views.openQualifier, row[4] == "open");
    EXPECT_EQ(views.droppedEmptyLast, row[4] == "empty last");
  }
}

// A field put together from pieces must not move the pieces of the fields before it.
TEST(FieldSplitter, KeepsEarlierViewsOfALine) {
  std::string line;
  for (int field = 0; field < 2000; ++field) line += "a\"b\"" + std::to_string(field) + "\"c\",";
  CTxtAssembly engine;
  Configure(engine, "Comma");
  Fields fields;
  engine.SplitLine(line, fields);
  ASSERT_GE(fields.size(), 2000u);
  EXPECT_EQ(fields.front().substr(0, 4), "ab\"0");
}

class UpperCaseEngine : public CTxtAssembly {
 public:
  bool SplitUnqualifiedLine(std::string line, std::vector<std::string>& fields) override {
    CTxtAssembly::SplitUnqualifiedLine(std::move(line), fields);
    for (std::string& field : fields) field += "!";
    return true;
  }
};

TEST(SplitText, CallsAnEnginesOwnRules) {
  UpperCaseEngine engine;
  Configure(engine, "Comma bare");
  Fields fields;
  engine.SplitLine("a,b", fields);
  EXPECT_EQ(fields, (Fields{"a!", "b!"}));
  EXPECT_FALSE(engine.Rules().has_value());

  FakeFileSystem files;
  files.Contents["a.txt"] = "Name,Comment\r\nA1,x,y\nA2";
  engine.Columns(RecordKind::Parts) = {"PartName", "PartComment"};
  engine.ImportParts("a.txt");
  auto& parts = engine.StagedRecords.Of<PartInformation>();
  ASSERT_EQ(parts.Size(), 2u);
  EXPECT_EQ(Text(*parts[0], &PartInformation::GetPartComment), "x!");
  EXPECT_EQ(Text(*parts[1], &PartInformation::GetPartName), "A2!");
}

}  // namespace
