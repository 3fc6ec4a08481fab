// A host, as far as its settings go.
// usage: settings_program [NAME]     writes the default format when NAME is given, then tells where it is and
// what

#include "manager/SettingsFile.h"

#include <cstdio>

int main(int argc, char** argv) {
  const std::string path = SettingsFilePath();
  if (argc > 1 && !WriteDefaultFormat(path, argv[1])) return 1;
  std::printf("%s\n%s\n", path.c_str(), ReadDefaultFormat(path).c_str());
  return 0;
}
