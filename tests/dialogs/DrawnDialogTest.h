#pragma once

#include "manager/FormatOptionDialog.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/support/FormatText.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

/// What the view of one toolkit alone has to get right: a dialog with a format and a sample.
class DrawnDialogTest : public testing::Test {
 protected:
  bool Run(const std::function<void(DialogDriver&)>& script, HWND parent = nullptr) {
    return RunDialog(
        [this, parent] {
          return ShowFormatOptionDialog({true, "", parent, config_, sample_, 0});
        },
        script, messages_);
  }

  TemporaryFolder folder_;
  std::string config_ =
      folder_.Write("formats.xml", FormatFile("F", FormatElement("F", "PartName=0 Customer=1 Machine=2")));
  std::string sample_ = folder_.Write("jobs.txt", "Name;Qty\nA;1\nB;2\n");
  std::vector<std::string> messages_;
};
