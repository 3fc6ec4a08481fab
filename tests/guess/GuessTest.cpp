#include "guess/Headings.h"
#include "guess/LayoutGuess.h"
#include "support/CaseFile.h"
#include "support/FilledRecord.h"

#include <gtest/gtest.h>

namespace qv {
namespace {

std::string Joined(const std::vector<std::string>& words) {
  std::string joined;
  for (const std::string& word : words) joined.append(joined.empty() ? "" : ";").append(word);
  return joined;
}

std::string Described(const LayoutProposal& layout) {
  const auto shown = [](char c) { return std::string(1, c == '\t' ? 't' : c == '\0' ? '0' : c); };
  return shown(layout.delimiter) + " " + shown(layout.qualifier) + " " + std::to_string(layout.headerLine);
}

TEST(Guess, FindsLayoutAndColumnsOfTheTable) {
  for (const auto& row : ReadTable("guess/tables/proposals.table")) {
    const RecordType& type = RecordTypeOf(KindNamed(row[0]));
    const LayoutProposal layout = ProposeLayout(SampleLines(row[1], true), type);
    EXPECT_EQ(Described(layout), row[2]) << row[1];
    EXPECT_EQ(Joined(ProposeColumns(type, layout.headings)), row[3]) << row[1];
  }
}

// Whatever a column is called elsewhere, its own keyword means it.
TEST(Guess, KnowsEveryKeyword) {
  for (const RecordType& type : RecordTypes())
    for (const KindColumn& known : AllColumns(type)) {
      const std::string keyword(known.column->keyword.substr(0, known.column->keyword.find(' ')));
      EXPECT_EQ(ProposeColumns(type, {keyword}).front(), keyword) << type.name;
      EXPECT_EQ(ProposeColumns(type, {" " + keyword + "-"}).front(), keyword) << type.name;
    }
}

}  // namespace
}  // namespace qv
