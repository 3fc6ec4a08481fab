#include <QVAssemblyFile/MatAmncITInfo.h>

#include "records/Accessors.h"

#include <utility>

MatAmncITInfo::MatAmncITInfo() = default;
MatAmncITInfo::MatAmncITInfo(const MatAmncITInfo& other) = default;
MatAmncITInfo& MatAmncITInfo::operator=(const MatAmncITInfo& other) = default;
MatAmncITInfo::~MatAmncITInfo() = default;

QV_VALUE(MatAmncITInfo, int, ShelfNo, shelfNo_)
QV_VALUE(MatAmncITInfo, int, Quantity, quantity_)
QV_STRING_BY_VALUE(MatAmncITInfo, MaterialName, materialName_)
QV_VALUE(MatAmncITInfo, float, Thickness, thickness_)
QV_VALUE(MatAmncITInfo, float, SizeX, sizeX_)
QV_VALUE(MatAmncITInfo, float, SizeY, sizeY_)
QV_STRING_BY_VALUE(MatAmncITInfo, Palletkind, palletkind_)
