#include <QVAssemblyFile/MatLibraryInfo.h>

MatLibraryInfo::MatLibraryInfo() = default;
MatLibraryInfo::MatLibraryInfo(const MatLibraryInfo& other) = default;
MatLibraryInfo& MatLibraryInfo::operator=(const MatLibraryInfo& other) = default;
MatLibraryInfo::~MatLibraryInfo() = default;
