#include "Data.h"

#include <algorithm>

namespace bench {
namespace {

constexpr DataColumn kParts[] = {
    {"PartName", Type::Text, "BRK-######-A|PLT-######|CVR-#####-LH|ANGLE-######-B"},
    {"PartNumber", Type::Text, "47##-08##-##|99-######"},
    {"FullPath", Type::Text, "C:\\JOBS\\24##\\BRK-######.prt|D:\\NEST\\ORDER##\\PLT-####.prt"},
    {"PartQuantity", Type::Int, "1|2|4|#|1#|2##"},
    {"DueDate", Type::Text, "2024-05-1#|2024-06-2#|2024-07-0#"},
    {"MaterialType", Type::Text, "DC01|S235JR|1.4301|AlMg3|CuZn37"},
    {"MaterialThickness", Type::Real, "1.5|2|0.8|3.25|1.25|6"},
    {"PartComment", Type::Text, "deburr both sides|as drawing, rev. ##|none|protect foil"},
    {"Revision", Type::Text, "A|B|C|##"},
    {"Machine", Type::Text, "LASER-#|PUNCH-0#|COMBI-#"},
    {"ToolInventory", Type::Text, "INV-##|STATION-##"},
    {"MaterialGroup", Type::Text, "STEEL|STAINLESS|ALU|BRASS"},
    {"Customer", Type::Text,
     "M\xC3\xBCller & S\xC3\xB6hne GmbH|Hansen, Olsen A/S|Nordblech KG|Lef\xC3\xA8vre SARL"},
    {"RouterNumber", Type::Text, "R#####|R-##-###"},
    {"WorkOrderNumber", Type::Text, "WO-2024-#####"},
    {"BinID", Type::Int, "#|1#|2#|1##"},
    {"EstimateTime", Type::Real, "##.5|1##.25|##|3##.75"},
    {"PartPositionInGroup", Type::Text, "1|2|3|1#"},
    {"GroupName", Type::Text, "HOUSING-##|FRAME-##|DOOR-##"},
    {"PreferredMaterial", Type::Text, "DC01_1.5.mat|S235_3.0.mat|ALMG3_2.mat"},
    {"RectangularTrueShape", Type::Text, "Rectangular|TrueShape"},
    {"StackTable", Type::Int, "-1|1|2|3"},
    {"Rotation", Type::Int, "0|1|2"},
    {"CommonCutting", Type::Int, "0|1"},
    {"C-CutPunch", Type::Text, "C-Cut|Punch"},
    {"GrainDirection", Type::Text, "None|X|Y"},
    {"RotateSpecificAngle", Type::Text, "90|45|180"},
    {"MaterialCode", Type::Text, "MC-####|MC-##-##"},
    {"MaterialDescription", Type::Text, "cold rolled sheet #.# mm|stainless, brushed, 2#"},
    {"CustomerMaterialType", Type::Text, "ST-##|V2A-##"},
    {"Coating", Type::Text, "none|zinc|powder RAL 70##"},
    {"Priority", Type::Int, "1|2|3|#"},
};

constexpr DataColumn kInventory[] = {
    {"ShelfNo", Type::Int, "#|1#|2##"},
    {"Quantity", Type::Int, "#|1#|3##"},
    {"MatName", Type::Text, "DC01-1.5|S235JR-3.0|1.4301-2.0|AlMg3-##"},
    {"Thickness", Type::Real, "1.5|3|2.0|0.8|1.25"},
    {"SizeX", Type::Real, "1000|2000|2500|3000|1250.5"},
    {"SizeY", Type::Real, "1000|1250|1500|815.25"},
    {"PalletKind", Type::Text, "EURO|CASSETTE-#|FLOOR"},
};

constexpr DataColumn kSheets[] = {
    {"MaterialGroup", Type::Text, "STEEL|STAINLESS|ALU|BRASS"},
    {"MaterialType", Type::Text, "DC01|S235JR|1.4301|AlMg3"},
    {"SheetSize", Type::Text, "2500x1250|3000x1500|2000x1000"},
    {"Thickness", Type::Text, "1.5|3|2.0|0.8"},
    {"Comments", Type::Text, "nest ####|rest of order ####"},
    {"Programmer", Type::Text, "jk|mw|ao"},
    {"Customer", Type::Text, "Nordblech KG|Lef\xC3\xA8vre SARL"},
    {"MachineFile", Type::Text, "LASER-#.mdf"},
};

constexpr DataColumn kTools[] = {
    {"ID", Type::Int, "#|1#|2##"},
    {"Type", Type::Text, "RO|RE|SQ|OB|SP"},
    {"Size", Type::Real, "5.5|12.25|30"},
    {"Angles", Type::Text, "0;90|0;45;90"},
    {"ToolName", Type::Text, "RO-##|RE-##x5"},
    {"StorageInfo", Type::Text, "RACK-#/##|CABINET-##"},
};

constexpr DataColumn kMaterials[] = {
    {"MaterialType", Type::Text, "DC01|S235JR|1.4301|AlMg3"},
    {"MaterialFile", Type::Text, "DC01_1.5.mat|S235_3.0.mat"},
    {"MachineFile", Type::Text, "LASER-#.mdf"},
    {"InternalLead-InType", Type::Text, "Line|Arc"},
    {"InternalLead-InLength", Type::Real, "2.5|3|4.25"},
    {"InternalLead-InAngle", Type::Real, "45|90"},
};

constexpr DataColumn kPrograms[] = {
    {"PartNumber", Type::Text, "47##-08##-##|99-######"},
    {"Customer", Type::Text, "Nordblech KG|Lef\xC3\xA8vre SARL"},
    {"ProgrammerName", Type::Text, "jk|mw|ao"},
    {"DefaultRotation", Type::Real, "0|90|45.5"},
    {"PrefMachine", Type::Text, "LASER-#|PUNCH-0#"},
    {"MaterialThickness", Type::Real, "1.5|2|0.8"},
};

constexpr DataColumn kLibrary[] = {
    {"MaterialCode", Type::Text, "MC-####|MC-##-##"},
    {"MaterialDescription", Type::Text, "sheet #.# mm"},
    {"MaterialType", Type::Text, "DC01|S235JR|1.4301|AlMg3"},
    {"SizeX", Type::Real, "1000|2000|2500"},
    {"SizeY", Type::Real, "1000|1250|1500"},
    {"Thickness", Type::Real, "1.5|3|2.0|0.8"},
    {"Quantity", Type::Int, "#|1#|3##"},
};

constexpr DataTable kTables[] = {{"parts", kParts},
                                 {"tools", kTools},
                                 {"materials", kMaterials},
                                 {"sheets", kSheets},
                                 {"part-programs", kPrograms},
                                 {"material-inventory", kInventory},
                                 {"material-library", kLibrary}};

// Knuth's generator, so that a seed gives the same file everywhere.
std::uint64_t Next(std::uint64_t& random) {
  random = random * 6364136223846793005u + 1442695040888963407u;
  return random >> 33;
}

std::string_view AnyOf(std::string_view pool, std::uint64_t& random) {
  auto skip = Next(random) % static_cast<std::uint64_t>(std::count(pool.begin(), pool.end(), '|') + 1);
  for (; skip > 0; --skip) pool.remove_prefix(pool.find('|') + 1);
  return pool.substr(0, pool.find('|'));
}

void AppendCell(std::string& out, std::string_view text, Dress dress, std::uint64_t& random) {
  const bool quoted = dress == Dress::Csv && text.find(',') != std::string_view::npos;
  if (quoted) out += '"';
  for (const char c : text) out += c == '#' ? static_cast<char>('0' + Next(random) % 10) : c;
  if (quoted) out += '"';
}

template <class Cell>
void AppendCells(std::string& out, const DataTable& table, Dress dress, Cell cell) {
  std::uint64_t none = 0;
  for (const DataColumn& column : table.columns) {
    if (&column != table.columns.data()) out += dress == Dress::Bare ? ';' : ',';
    AppendCell(out, cell(column), dress, none);
  }
  out += '\n';
}

}  // namespace

std::span<const DataTable> AllTables() { return kTables; }

const DataTable* FindTable(std::string_view kind) {
  const auto found = std::ranges::find(kTables, kind, &DataTable::kind);
  return found == std::end(kTables) ? nullptr : found;
}

void AppendHeader(std::string& out, const DataTable& table, Dress dress) {
  AppendCells(out, table, dress, [](const DataColumn& column) { return column.keyword; });
}

void AppendRow(std::string& out, const DataTable& table, Dress dress, std::uint64_t& random) {
  for (const DataColumn& column : table.columns) {
    if (&column != table.columns.data()) out += dress == Dress::Bare ? ';' : ',';
    AppendCell(out, AnyOf(column.pool, random), dress, random);
  }
  out += '\n';
}

}  // namespace bench
