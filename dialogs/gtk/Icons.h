#pragma once

#include <gtk/gtk.h>

namespace qv {

enum class Icon { Up, Down, Refresh };

/// Dresses one widget by rules of its own.
void AddStyle(GtkWidget* widget, const char* css);

/// A button that bears an icon only; `text`, with a mnemonic, is what a tool tip and a screen reader say.
GtkWidget* NewIconButton(Icon icon, const char* text);

}  // namespace qv
