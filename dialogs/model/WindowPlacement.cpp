#include "dialogs/model/WindowPlacement.h"

#include <algorithm>

namespace qv {
namespace {

/// As far to the left as a window of this width to its right needs, but no further than the screen goes.
void MakeRoom(WindowFrame& dialog, int width, const WindowFrame& screen) {
  const int missing = dialog.right + width - screen.right;
  const int shift = std::clamp(missing, 0, std::max(0, dialog.left - screen.left));
  dialog.left -= shift;
  dialog.right -= shift;
}

bool Overlap(const WindowFrame& one, const WindowFrame& other) {
  return one.left < other.right && other.left < one.right && one.top < other.bottom && other.top < one.bottom;
}

}  // namespace

Placement PlaceHeaders(WindowFrame dialog, const WindowFrame& window, const WindowFrame& screen) {
  MakeRoom(dialog, window.Width(), screen);
  return {dialog,
          {dialog.right, dialog.bottom - window.Height(), dialog.right + window.Width(), dialog.bottom}};
}

Placement PlacePreview(WindowFrame dialog, const WindowFrame& window, const WindowFrame& screen,
                       const std::optional<WindowFrame>& headers) {
  const int least = window.Width() / 3, roomBelow = screen.bottom - dialog.bottom;
  if (2 * roomBelow >= window.Height()) {
    const int left = std::max(screen.left, std::min(dialog.left, screen.right - window.Width()));
    const int right = std::min(left + window.Width(), screen.right);
    return {dialog, {left, dialog.bottom, right, dialog.bottom + std::min(window.Height(), roomBelow)}};
  }
  MakeRoom(dialog, std::max(2 * least, headers ? headers->Width() : 0), screen);
  const int width = std::clamp(screen.right - dialog.right, least, window.Width());
  const int left = std::min(dialog.right, screen.right - width);
  // Above the header window where enough is left of the screen there.
  const bool isAbove = headers && 2 * (headers->top - screen.top) >= window.Height();
  const int bottom =
      isAbove ? headers->top : std::clamp(dialog.top + window.Height(), screen.top, screen.bottom);
  const int top = isAbove ? std::max(screen.top, std::min(dialog.top, bottom - window.Height()))
                          : std::max(screen.top, bottom - window.Height());
  return {dialog, {left, top, left + width, bottom}};
}

void PlaceBeside(FormatOptionView& view, DialogPart part, bool areHeadersShown, bool isPreviewShown) {
  const WindowFrame screen = view.Screen();
  WindowFrame dialog = view.FrameOf(DialogPart::Dialog);
  WindowFrame frames[] = {dialog, view.FrameOf(DialogPart::Headers), view.FrameOf(DialogPart::Preview)};
  const auto place = [&](DialogPart placed) {
    WindowFrame& window = frames[static_cast<int>(placed)];
    const bool isInWay = areHeadersShown && frames[1].right > dialog.right;
    const Placement found =
        placed == DialogPart::Headers
            ? PlaceHeaders(dialog, window, screen)
            : PlacePreview(dialog, window, screen, isInWay ? std::optional(frames[1]) : std::nullopt);
    if (found.dialog != dialog) view.Place(DialogPart::Dialog, dialog = found.dialog);
    view.Place(placed, window = found.window);
  };
  place(part);
  const bool isPreview = part == DialogPart::Preview;
  const WindowFrame& other = frames[isPreview ? 1 : 2];
  const bool isOtherShown = isPreview ? areHeadersShown : isPreviewShown;
  if (isOtherShown && (dialog != frames[0] || Overlap(other, frames[static_cast<int>(part)])))
    place(isPreview ? DialogPart::Headers : DialogPart::Preview);
}

}  // namespace qv
