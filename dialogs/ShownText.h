#pragma once

#include <string>
#include <utility>

namespace qv {

/// A text in a widget, perhaps with odd bytes replaced there, that comes back as it was unless the user
/// changes it.
template <class WidgetText>
class ShownText {
 public:
  const WidgetText& Show(const std::string& text, WidgetText shown) {
    text_ = text;
    return shown_ = std::move(shown);
  }
  bool IsShown(const WidgetText& widgetText) const { return widgetText == shown_; }
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
  WidgetText shown_;
};

}  // namespace qv
