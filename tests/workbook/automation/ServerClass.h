#pragma once

#include <windows.h>

namespace server {

/// The class under which the server is registered.
inline constexpr CLSID kClass = {
    0x6f0d7e52, 0x3c41, 0x4b8e, {0x9a, 0x1d, 0x52, 0x0b, 0xd3, 0x77, 0xc8, 0x14}};
inline constexpr wchar_t kClassText[] = L"{6F0D7E52-3C41-4B8E-9A1D-520BD377C814}";

}  // namespace server
