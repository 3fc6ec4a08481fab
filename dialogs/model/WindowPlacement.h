#pragma once

#include "dialogs/model/FormatOptionView.h"

#include <optional>

namespace qv {

/// Where the dialog and a window beside it go.
struct Placement {
  WindowFrame dialog;
  WindowFrame window;
};

/// The header window keeps its size and stands with its left edge at the dialog's right one, both bottoms at
/// one height. Where the screen ends too soon, the dialog makes room to its right.
Placement PlaceHeaders(WindowFrame dialog, const WindowFrame& window, const WindowFrame& screen);

/// The preview stands below the dialog or, where the screen ends too soon for half of it, to the right, above
/// the header window if that is shown. It becomes smaller, and the dialog makes room, before it hides
/// anything.
Placement PlacePreview(WindowFrame dialog, const WindowFrame& window, const WindowFrame& screen,
                       const std::optional<WindowFrame>& headers);

/// Places the header window or the preview, which is about to be shown, and what stands in its way.
void PlaceBeside(FormatOptionView& view, DialogPart part, bool areHeadersShown, bool isPreviewShown);

}  // namespace qv
