// A small host of QVAssemblyFile: reads a parts list, prints what it asks for, and hands the laser's share on
// as a list in another format.

#include <QVAssemblyFile/QVAssemblyFile.h>

#include <cstdio>
#include <string>

namespace {

// Receives every remark of the library. A host would put it into its own log or window.
void PrintRemark(const Diagnostic& remark, void*) {
  std::fprintf(stderr, "%s:%lld: %s: %s\n", remark.file.c_str(), static_cast<long long>(remark.line),
               remark.column.c_str(), remark.message.c_str());
}

bool IsForLaser(PartInformation& part) {
  char machine[256];  // every text getter of a part fills a buffer of 256 bytes
  part.GetMachine(machine);
  return std::string(machine).starts_with("Laser");
}

void Print(PartInformation& part) {
  char name[256];
  char customer[256];
  part.GetPartName(name);
  part.GetCustomer(customer);
  std::printf("  %4d x %-16s %.1f mm  %s\n", part.GetPartQuantity(), name, part.GetMaterialThickness(),
              customer);
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
  SetDiagnosticHandler(PrintRemark, nullptr);

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
