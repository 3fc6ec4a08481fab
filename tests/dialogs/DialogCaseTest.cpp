// The dialog, used control by control as the case files say: by every toolkit's real windows, and by the
// plain ones that need no display.
//
//     default: NAME      what Setting.ini names at the start; without it there is no such file
//     wish: NAME         the format that the host asks for
//     headers: no        the host does not offer the header window
//     windows: KIND      only in windows that are drawn, or that are of this toolkit ("win32")
//     sample: FILE       the host's data file, which the section "sample" holds
//     sample-is: folder  it is one; "busy": a pipe, or another program holds it
//     ok-tells: PATTERN  what the user is told when OK has saved the formats
//     default-after: X   what Setting.ini names at the end; without it the file is as it was
//
// A section "formats" is the format file, if it is not formats.xml beside the cases; an empty one stands for
// no file. "use" is what a person does and sees, a step a line. "after" lists what OK has written: the
// current format first, then others that have changed or are "deleted"; without it the dialog ends with
// Cancel and both files stay as they were to the byte. "file-has" is a text that the format file then holds.

#include "manager/SettingsFile.h"
#include "platform/CodePage.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/CaseFile.h"
#include "tests/support/FakeSpreadsheet.h"
#include "tests/support/FormatText.h"
#include "tests/support/TemporaryFolder.h"

#include <QVAssemblyFile/MessageBox.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>

namespace {

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

Control ControlNamed(const std::string& name) {
  for (const ControlRow& row : kControls)
    if (row.name == name) return static_cast<Control>(&row - kControls);
  throw std::invalid_argument("there is no control " + name);
}

/// The first word, and what stands behind it.
std::pair<std::string, std::string> Cut(const std::string& line) {
  const std::size_t end = std::min(line.find(' '), line.size());
  return {line.substr(0, end), line.substr(std::min(end + 1, line.size()))};
}

void ExpectMatch(const std::string& text, const std::string& pattern) {
  EXPECT_TRUE(MatchesPattern(text, pattern)) << text;
}

qv::Selection IndexesOf(const std::string& text) {
  qv::Selection indexes;
  std::istringstream numbers(text);
  for (std::string number; std::getline(numbers, number, ',');) indexes.push_back(std::stoul(number));
  return indexes;
}

void PressUntilClosed(DialogDriver& dialog, Control focus, const std::string& key) {
  dialog.Press(focus, key);
  EXPECT_TRUE(WaitUntil([&dialog] { return !dialog.IsOpen(); })) << "the key did not close the dialog";
}

// Selected items in brackets.
std::string ShownItems(const Words& items, const qv::Selection& selected) {
  std::string shown;
  for (std::size_t index = 0; index < items.size(); ++index) {
    const bool isSelected = std::count(selected.begin(), selected.end(), index) != 0;
    shown += (index > 0 ? ", " : "") + (isSelected ? "[" + items[index] + "]" : items[index]);
  }
  return shown;
}

std::string Shown(DialogDriver& dialog, Control control) {
  if (!dialog.IsVisible(control)) return "hidden";
  const ControlKind kind = RowOf(control).kind;
  std::string shown;
  if (kind == ControlKind::Table)
    shown = "shown";
  else if (kind == ControlKind::List)
    shown = ShownItems(dialog.Items(control), dialog.Selected(control));
  else if (kind == ControlKind::Box)
    shown = dialog.IsTicked(control) ? "ticked" : "clear";
  else if (kind == ControlKind::Field)
    shown = dialog.Text(control);
  if (dialog.IsEnabled(control)) return kind == ControlKind::Button ? "enabled" : shown;
  return shown.empty() ? "disabled" : "disabled " + shown;
}

/// "1 | text | _ | (grey) | ~struck~ | *bold* | coloured!"
std::string ShownCells(const std::vector<SeenCell>& cells) {
  std::string shown;
  for (const SeenCell& cell : cells) {
    std::string text = cell.text.empty() ? "_" : cell.text;
    if (cell.isBold) text = "*" + text + "*";
    if (cell.isStruck) text = "~" + text + "~";
    if (cell.isGrey) text = "(" + text + ")";
    if (cell.isColoured) text += "!";
    shown += (shown.empty() ? "" : " | ") + text;
  }
  return shown;
}

// What a person does with a control, and sees of it.
using D = DialogDriver;
using Text = const std::string;
const std::map<std::string, void (*)(D&, Control, Text&)> kUses = {
    {"click", [](D& d, Control control, Text&) { d.Click(control); }},
    {"choose", [](D& d, Control control, Text& index) { d.Choose(control, std::stoi(index)); }},
    {"type", [](D& d, Control control, Text& text) { d.Type(control, text); }},
    {"select", [](D& d, Control control, Text& indexes) { d.Select(control, IndexesOf(indexes)); }},
    {"double-click", [](D& d, Control control, Text& index) { d.DoubleClick(control, std::stoi(index)); }},
    {"drag",
     [](D& d, Control from, Text& way) {
       const auto [entries, target] = Cut(way);
       const auto [list, row] = Cut(target);
       const Control to = ControlNamed(list);
       const int rows = static_cast<int>(d.Items(to).size()), place = std::stoi(row);
       const bool isMarked = to == Control::Sequence && rows > 0;
       EXPECT_EQ(d.Drag(from, IndexesOf(entries), to, place), !isMarked ? -1 : place < 0 ? rows : place);
     }},
    {"sees-grey",
     [](D& d, Control plan, Text& items) {
       Words grey;
       for (const std::size_t index : d.Grey()) grey.push_back(d.Items(plan)[index]);
       EXPECT_EQ(ShownItems(grey, {}), items);
     }},
    {"press", [](D& d, Control control, Text& key) { d.Press(control, key); }},
    {"wheel", [](D& d, Control control, Text&) { d.TurnWheel(control); }},
    {"enter", [](D& d, Control control, Text&) { PressUntilClosed(d, control, "Enter"); }},
    {"escape", [](D& d, Control control, Text&) { PressUntilClosed(d, control, "Escape"); }},
    {"has-cursor-at",
     [](D& d, Control control, Text& index) { EXPECT_EQ(std::to_string(d.Cursor(control)), index); }},
    {"has-in-sight",
     [](D& d, Control list, Text& index) {
       EXPECT_TRUE(WaitUntil([&] { return d.IsInSight(list, std::stoi(index)); }));
     }},
    {"sees", [](D& d, Control control, Text& pattern) { ExpectMatch(Shown(d, control), pattern); }},
    {"sees-heads", [](D& d, Control, Text& heads) { EXPECT_EQ(ShownCells(d.PreviewRow(-1)), heads); }},
    {"sees-row",
     [](D& d, Control, Text& row) {
       const auto [index, cells] = Cut(row);
       EXPECT_EQ(ShownCells(d.PreviewRow(std::stoi(index))), cells);
     }},
    {"sees-tip",
     [](D& d, Control, Text& cell) {
       const auto [row, rest] = Cut(cell);
       const auto [column, tip] = Cut(rest);
       EXPECT_EQ(d.PreviewTip(std::stoi(row), std::stoi(column)), tip);
     }},
    {"reads", [](D& d, Control control, Text& label) { EXPECT_EQ(d.Text(control), label); }},
    {"offers",
     [](D& d, Control control, Text& items) { EXPECT_EQ(ShownItems(d.Items(control), {}), items); }},
};

class DialogCaseTest : public testing::TestWithParam<TestCase> {
 protected:
  DialogCaseTest() {
    fs::create_directories(fs::path(settings_).parent_path());
    fs::remove(settings_);
    const std::string name = case_.Setting("default", "");
    if (!name.empty())
      std::ofstream(settings_, std::ios::binary)
          << "[Other]\r\nKey=Value\r\n[CsvXlsFormat]\r\nDefaultFormat=" << name << "\r\n";
    const std::string formats = case_.Has("formats")
                                    ? case_.Text("formats")
                                    : TemporaryFolder::Read(TestFile("dialogs/cases/formats.xml"));
    if (!formats.empty()) folder_.Write("formats.xml", formats);
    WriteSample();
    formatsBefore_ = TemporaryFolder::Read(config_);
    settingsBefore_ = TemporaryFolder::Read(settings_);
  }
  ~DialogCaseTest() override { fs::remove_all(settings_); }

  void WriteSample() {
    const std::string name = case_.Setting("sample", ""), kind = case_.Setting("sample-is", "");
    if (kind == "folder")
      fs::create_directories(folder_ / name);
    else if (kind == "busy")
      busy_ = MakeBusyFile(folder_ / name);
    else if (name.ends_with(".xls"))
      FakeSpreadsheet::Store(folder_ / name, case_.Rows("sample"));
    else if (case_.Has("sample"))
      folder_.Write(name, case_.Text("sample"));
  }

  FormatOptionRequest Request() const {
    const std::string sample = case_.Setting("sample", "");
    return {case_.Setting("headers", "yes") == "yes",
            case_.Setting("wish", ""),
            nullptr,
            config_,
            sample.empty() ? "" : folder_ / sample,
            0};
  }

  void ExpectFilesAsTheyWere() const {
    EXPECT_EQ(TemporaryFolder::Read(isBlocked_ ? folder_ / "aside.xml" : config_), formatsBefore_);
    EXPECT_EQ(TemporaryFolder::Read(settings_), settingsBefore_);
    EXPECT_EQ(fs::exists(settings_), !settingsBefore_.empty());
    EXPECT_EQ(fs::exists(config_), isBlocked_ || !formatsBefore_.empty());
  }

  void ExpectTold(DialogDriver& dialog, const std::string& pattern) {
    EXPECT_TRUE(dialog.IsOpen());
    ASSERT_EQ(messages_.size(), 1U);
    ExpectMatch(messages_[0], pattern);
    messages_.clear();
    ExpectFilesAsTheyWere();
  }

  // A folder in the file's place cannot be replaced by a file, not even by a privileged user.
  void Block(bool isBlocked) {
    isBlocked_ = isBlocked;
    if (!isBlocked) fs::remove_all(config_);
    fs::rename(isBlocked ? config_ : folder_ / "aside.xml", isBlocked ? folder_ / "aside.xml" : config_);
    if (isBlocked) fs::create_directories(config_ + "/in the way");
  }

  static void ExpectHeaderWindowBeside(DialogDriver& dialog) {
    const Frame main = dialog.FrameOf(ControlWindow::Option), header = dialog.FrameOf(ControlWindow::Headers);
    EXPECT_EQ(header.left, main.right);
    EXPECT_EQ(header.bottom, main.bottom);
    EXPECT_TRUE(header.right > header.left && header.bottom > header.top);
  }

  static void ExpectPreviewBeside(DialogDriver& dialog) {
    const Frame main = dialog.FrameOf(ControlWindow::Option),
                preview = dialog.FrameOf(ControlWindow::Preview);
    EXPECT_TRUE(preview.left >= main.right || preview.top >= main.bottom);
  }

  void Use(DialogDriver& dialog) {
    for (const std::string& line : case_.Texts("use")) {
      SCOPED_TRACE(line);
      const auto [verb, object] = Cut(line);
      const auto [name, text] = Cut(object);
      if (verb == "told")
        ExpectTold(dialog, object);
      else if (verb == "dismisses")
        EXPECT_EQ(dialog.DismissMessage(), object);
      else if (verb == "sees-headers-beside")
        ExpectHeaderWindowBeside(dialog);
      else if (verb == "sees-preview-beside")
        ExpectPreviewBeside(dialog);
      else if (verb == "deletes-format")
        EXPECT_EQ(dialog.DeleteFormat(name == "yes"), text);
      else if (verb == "rests")
        dialog.Rest();
      else if (verb == "closes-headers")
        dialog.CloseHeaderWindow();
      else if (verb == "without-handler")
        SetMessageBoxHandler(nullptr, nullptr);
      else if (verb == "block-file" || verb == "free-file")
        Block(verb == "block-file");
      else if (verb == "block-settings")
        fs::create_directories(settings_ + "/in the way");
      else if (verb == "lose-sample")
        fs::remove(Request().samplePath);
      else if (verb == "uninstall-office")
        office_.Installed = false;
      else
        kUses.at(verb)(dialog, ControlNamed(name), text);
    }
  }

  const TestCase& case_ = GetParam();
  const TemporaryFolder folder_;
  const std::string config_ = folder_ / "formats.xml";
  const std::string settings_ = TheDialogHost().settings;
  FakeSpreadsheet office_;
  std::shared_ptr<void> busy_;  // what keeps the sample so
  Words messages_;
  std::string formatsBefore_, settingsBefore_;
  bool isBlocked_ = false;
};

TEST_P(DialogCaseTest, DoesAsTheCaseSays) {
  SCOPED_TRACE(case_.file + ":" + std::to_string(case_.lineNumber));
  const std::string windows = case_.Setting("windows", "");
  const std::string toolkit = TheDialogHost().toolkit;
  const bool isFor = windows.empty() || windows == toolkit || (windows == "drawn" && toolkit != "plain");
  if (!isFor) GTEST_SKIP() << "for " << windows << " windows";
  std::map<std::string, std::string> formats;
  for (const OptionForm& form : FormatsIn(config_).Formats) formats[form.Name] = FormatLine(form);
  const auto show = [this] { return TheDialogHost().show(Request()); };
  EXPECT_EQ(RunDialog(
                show, [this](DialogDriver& dialog) { Use(dialog); }, messages_),
            case_.Has("after"));
  ASSERT_EQ(messages_.size(), case_.settings.count("ok-tells"));
  if (!messages_.empty()) ExpectMatch(messages_[0], case_.Setting("ok-tells", ""));
  EXPECT_EQ(office_.Running + office_.Objects, 0);
  for (const std::string& name : folder_.Names())
    EXPECT_TRUE(name == "formats.xml" || name == case_.Setting("sample", "")) << name << " was left behind";
  if (!case_.Has("after")) return ExpectFilesAsTheyWere();

  std::string current;
  for (const std::string& listed : case_.Texts("after")) {
    const std::string line = qv::FromUtf8(listed);
    const std::string name = line.substr(0, line.find(": "));
    if (current.empty()) current = name;
    formats[name] = line;
    if (line.ends_with(": deleted")) formats.erase(name);
  }
  const FormatList after = FormatsIn(config_);
  EXPECT_EQ(after.CurrentFormat, current);
  EXPECT_EQ(after.Formats.size(), formats.size());
  for (const OptionForm& form : after.Formats) EXPECT_EQ(FormatLine(form), formats[form.Name]);
  EXPECT_NE(TemporaryFolder::Read(config_).find(case_.Setting("file-has", "")), std::string::npos);
  const std::string named = case_.Setting("default-after", case_.Setting("default", ""));
  EXPECT_EQ(ReadDefaultFormat(settings_), qv::FromUtf8(named));
  const std::string ofOthers = settingsBefore_.substr(0, settingsBefore_.find("[Csv"));
  EXPECT_TRUE(ofOthers.empty() || TemporaryFolder::Read(settings_).starts_with(ofOthers));
}

INSTANTIATE_TEST_SUITE_P(Cases, DialogCaseTest, testing::ValuesIn(ReadTestCases("dialogs/cases")),
                         NameOfCase);

}  // namespace
