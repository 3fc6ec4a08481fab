#include <windows.h>

// Nothing may be started or ended here, under the loader's lock: what the library needs is made on first use,
// and its resources are found through its own code's address, so even the instance need not be kept.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD, LPVOID) { return TRUE; }
