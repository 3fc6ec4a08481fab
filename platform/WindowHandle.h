#pragma once

// The same declaration as the platform's own headers make, so that both may be included.
struct HWND__;
typedef HWND__* HWND;
