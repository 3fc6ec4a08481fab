#include "format/FormatConfiguration.h"
#include "format/FormatList.h"
#include "fuzz/ByteSource.h"
#include "support/FakeFileSystem.h"

#include <algorithm>

// Any bytes as a format file: they load, every format then knows every keyword, and what can be saved loads
// again as it was, but for the flag that saving does not carry over.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void RequireSame(const FormatList& left, const FormatList& right) {
  Require(left.CurrentFormat == right.CurrentFormat && left.Formats.size() == right.Formats.size());
  for (std::size_t index = 0; index < left.Formats.size(); ++index) {
    const OptionForm& a = left.Formats[index];
    const OptionForm& b = right.Formats[index];
    Require(a.Name == b.Name && a.StartLine == b.StartLine && a.Delimiters == b.Delimiters &&
            a.OtherDelimiters == b.OtherDelimiters && a.Qualifier == b.Qualifier && a.PartKey == b.PartKey &&
            !b.TreatAsOne && a.Items.size() == b.Items.size());
    for (std::size_t item = 0; item < a.Items.size(); ++item)
      Require(a.Items[item].Name == b.Items[item].Name && a.Items[item].Order == b.Items[item].Order);
  }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FakeFileSystem files;
  files.Contents["formats.xml"] = ByteSource(data, size).Rest();
  FormatConfiguration configuration;
  Require(LoadFromFile(configuration, "formats.xml") == configuration.Formats.has_value());
  if (!configuration.Formats) return 0;
  for (const OptionForm& form : configuration.Formats->Formats)
    for (const std::string_view keyword : DefaultHeaderKeywords)
      Require(std::any_of(form.Items.begin(), form.Items.end(),
                          [&](const FormatItem& item) { return item.Name == keyword; }));
  if (!SaveToFile(configuration, "saved.xml")) return 0;
  FormatConfiguration again;
  Require(LoadFromFile(again, "saved.xml") && again.Formats.has_value());
  RequireSame(*configuration.Formats, *again.Formats);
  return 0;
}
