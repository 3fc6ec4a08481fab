// A small host of QVAssemblyFile: reads a parts list, prints what it asks for, and hands the laser's share on
// as a list in another format.

#include <QVAssemblyFile/QVAssemblyFile.h>

#include <cstdio>
#include <string>

namespace {

// Receives every diagnostic of the library. A host would put it into its own log or window.
void PrintDiagnostic(const Diagnostic& diagnostic, void*) {
  std::fprintf(stderr, "%s:%lld: %s: %s\n", diagnostic.file.c_str(), static_cast<long long>(diagnostic.line),
               diagnostic.column.c_str(), diagnostic.message.c_str());
}

bool IsForLaser(PartInformation& part) {
  return Text(part, &PartInformation::GetMachine).starts_with("Laser");
}

void Print(PartInformation& part) {
  std::printf("  %4d x %-16s %.1f mm  %s\n", part.GetPartQuantity(),
              Text(part, &PartInformation::GetPartName).c_str(), part.GetMaterialThickness(),
              Text(part, &PartInformation::GetCustomer).c_str());
}

// Attaches a copy of each part that goes to a laser. The imported records themselves end with the next import
// or export; the copies are the library's as soon as the export has taken them, and are not deleted here.
int AttachLaserParts(CAssemblyFileMgr& manager) {
  int attached = 0;
  for (int rank = 0; rank < manager.GetPartsCount(); ++rank) {
    PartInformation* part = manager.GetPartInfoAtRank(rank);
    if (!IsForLaser(*part)) continue;
    if (++attached <= 3) Print(*part);
    manager.AddAndAttachPart(new PartInformation(*part));
  }
  return attached;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fprintf(stderr, "usage: %s FORMATS.xml PARTS LASER-LIST.txt\n", argv[0]);
    return 2;
  }
  SetDiagnosticHandler(PrintDiagnostic, nullptr);

  CAssemblyFileMgr manager;
  if (!manager.LoadFormatConfiguration(argv[1])) return 1;
  manager.SetCurrentFormat("orders");
  if (!manager.ImportAssemblyFile(argv[2])) return 1;
  std::printf("%d parts, %d columns in the file. The first three for the laser:\n", manager.GetPartsCount(),
              manager.GetHeaderCount());

  const int attached = AttachLaserParts(manager);
  manager.SetCurrentFormat("laser-list");
  if (!manager.ExportAssemblyFile(argv[3])) return 1;
  std::printf("%d parts written to %s\n", attached, argv[3]);
  return 0;
}
