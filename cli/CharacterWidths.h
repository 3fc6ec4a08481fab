#pragma once

namespace qv {

/// Whether a character fills two columns of a terminal, as most East Asian ones do.
bool IsWide(char32_t code);

/// Whether a character is drawn over the one before it and fills no column of its own.
bool IsCombining(char32_t code);

}  // namespace qv
