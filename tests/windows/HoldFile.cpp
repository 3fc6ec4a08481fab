// Holds a file open, as another program does, until standard input ends.
// usage: hold_file PATH shared|exclusive [MILLISECONDS]

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const DWORD share = std::string_view(argv[2]) == "shared" ? FILE_SHARE_READ | FILE_SHARE_WRITE : 0;
  const HANDLE file = CreateFileA(argv[1], GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return 1;
  std::puts("held");
  std::fflush(stdout);
  if (argc > 3) {
    Sleep(static_cast<DWORD>(std::atoi(argv[3])));
  } else {
    std::getchar();
  }
  CloseHandle(file);
  return 0;
}
