#include "engines/CTxtAssembly.h"
#include "fuzz/ByteSource.h"

#include <cstdlib>
#include <map>

// Any order texts: the columns are those of a map from position to the first item that claims it.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int PositionOf(const std::string& text) {
  const long long value = std::strtoll(text.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long long>(value, -2147483648LL, 2147483647LL));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ByteSource source(data, size);
  OptionForm form;
  std::map<int, std::string> expected;
  while (!source.IsEmpty()) {
    const bool isIgnore = source.Flag();
    const std::string order = source.Text();
    form.Items.push_back({isIgnore ? "Ignore" : "K" + std::to_string(form.Items.size()), order});
    if (order == "-1") continue;
    if (!isIgnore) {
      expected.emplace(PositionOf(order), form.Items.back().Name);
      continue;
    }
    std::string number;
    for (const char c : order) {
      if (c != ',') {
        number += c;
      } else {
        expected.emplace(PositionOf(number), "Ignore");
        number.clear();
      }
    }
  }
  CTxtAssembly engine;
  engine.KindFlags[0] = true;
  ApplyFormat(engine, form, "a.txt");
  std::vector<std::string> columns;
  for (const auto& [position, keyword] : expected) columns.push_back(keyword);
  Require(engine.Columns(RecordKind::Parts) == columns);
  return 0;
}
