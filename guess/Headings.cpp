#include "guess/Headings.h"

#include "format/FormatColumns.h"
#include "guess/KeywordGuess.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace qv {
namespace {

// What columns of several names are called.
#define THICKNESS                       \
  "Thickness|Material Thickness|Sheet " \
  "Thickness|Thk|Dicke|Blechdicke|Materialdicke|Stärke|Blechstärke|Materialstärke"
#define MATERIAL "Material Type|Material|Materialart|Materialtyp|Werkstoff|Werkstoffart|Grade|Güte|Mat"
#define MATERIAL_GROUP "Material Group|Materialgruppe|Werkstoffgruppe"
#define COMMENT "Comment|Comments|Remark|Remarks|Note|Notes|Bemerkung|Bemerkungen|Kommentar|Anmerkung|Hinweis"
#define MACHINE "Machine|Machine Name|Maschine|Maschinenname"
#define QUANTITY "Quantity|Qty|Menge|Anzahl|Stückzahl|Stück|Stk|Pieces|Pcs"
#define ROTATION "Rotation|Drehung"
#define TOOL_INVENTORY "Tool Inventory|Werkzeugbestand|Werkzeuginventar"

/// The everyday headings of a column, the surest first.
struct EverydayHeadings {
  std::optional<RecordKind> kind;  // none: every kind that has the column
  std::string_view keyword;
  std::string_view headings;
};

constexpr EverydayHeadings kEverydayHeadings[] = {
    {RecordKind::Parts, "PartName",
     "Part|Teilename|Teil|Bauteil|Teilebezeichnung|Benennung|Bezeichnung|Artikelbezeichnung|Item Name|"
     "Description|Name|Item|Article|Artikel"},
    {RecordKind::Parts, "FullPath", "Path|File Path|Pfad|Dateipfad|CAD File|CAD-Datei|File|Datei|Dateiname"},
    {RecordKind::Parts, "PartQuantity",
     QUANTITY "|Order Quantity|Bestellmenge|Auftragsmenge|Sollmenge|Fertigungsmenge"},
    {RecordKind::Parts, "DueDate",
     "Due|Delivery Date|Liefertermin|Lieferdatum|Termin|Fälligkeit|Fällig am|Fertigungstermin|Endtermin"},
    {RecordKind::Parts, "MaterialThickness", THICKNESS},
    {RecordKind::Parts, "PartComment", COMMENT},
    {RecordKind::Parts, "Machine", MACHINE},
    {RecordKind::Parts, "ToolInventory", TOOL_INVENTORY},
    {RecordKind::Parts, "RouterNumber", "Routing|Routing Number|Arbeitsplan|Arbeitsplannummer"},
    {RecordKind::Parts, "WorkOrderNumber",
     "Work Order|WO|WO Number|Production Order|Fertigungsauftrag|Fertigungsauftragsnummer|Betriebsauftrag|"
     "FA-Nummer|FA|Job Number|Auftragsnummer|Auftrag"},
    {RecordKind::Parts, "BinID", "Bin|Bin Number|Behälter|Behälternummer"},
    {RecordKind::Parts, "EstimateTime", "Estimated Time|Geschätzte Zeit|Bearbeitungszeit"},
    {RecordKind::Parts, "GroupName", "Group|Gruppe|Gruppenname"},
    {RecordKind::Parts, "PreferredMaterial", "Material File|Materialdatei|Bevorzugtes Material"},
    {RecordKind::Parts, "Rotation", ROTATION},
    {RecordKind::Parts, "GrainDirection", "Grain|Walzrichtung|Faserrichtung|Schliffrichtung"},
    {RecordKind::Parts, "MaterialCode", "Material Number"},
    {RecordKind::Parts, "MaterialDescription", "Materialbezeichnung|Materialbeschreibung"},
    {RecordKind::Parts, "Priority", "Prio|Priorität|Dringlichkeit"},

    {RecordKind::Tools, "ID", "Tool ID|Tool Number|Werkzeugnummer|Werkzeug-ID|Number"},
    {RecordKind::Tools, "Type", "Tool Type|Werkzeugtyp|Werkzeugart|Typ"},
    {RecordKind::Tools, "Shape", "Tool Shape|Werkzeugform|Form"},
    {RecordKind::Tools, "Dimensions", "Dimension|Abmessungen|Abmessung|Maße|Maß"},
    {RecordKind::Tools, "Size", "Station Size|Stationsgröße|Größe"},
    {RecordKind::Tools, "Angles", "Angle|Winkel"},
    {RecordKind::Tools, "Clearances", "Clearance|Die Clearance|Schneidspalt|Spiel"},
    {RecordKind::Tools, "StorageInfo", "Storage|Lagerort|Lagerplatz|Location"},
    {RecordKind::Tools, "ToolName", "Tool|Werkzeug|Werkzeugname|Werkzeugbezeichnung|Bezeichnung|Name"},
    {RecordKind::Tools, "ToolComment", COMMENT},
    {RecordKind::Tools, "DriverName", "Driver|Treiber"},
    {RecordKind::Tools, "PunchCondition", "Stanzbedingung|Stanzparameter"},

    {RecordKind::Materials, "MachineFile", "Maschinendatei"},
    {RecordKind::Materials, "MaterialComments", "Material Comment|" COMMENT},
    {RecordKind::Materials, "PierceType", "Piercing|Einstechart|Einstechen"},
    {RecordKind::Materials, "PierceCondition", "Einstechbedingung|Einstechparameter"},

    {RecordKind::Sheets, "SheetSize", "Size|Tafelgröße|Tafelformat|Blechformat|Plattenformat|Format"},
    {RecordKind::Sheets, "LaserMaterialName", "Laser Material"},
    {RecordKind::Sheets, "Programmer", "Programmer Name|Programmierer"},
    {RecordKind::Sheets, "MachineFile", "Maschinendatei|" MACHINE},
    {RecordKind::Sheets, "InventoryFile", "Inventory|" TOOL_INVENTORY},

    {RecordKind::PartPrograms, "ProgrammerName", "Programmer|Programmierer"},
    {RecordKind::PartPrograms, "DefaultRotation", ROTATION},
    {RecordKind::PartPrograms, "PrefMachine", "Preferred Machine|" MACHINE},
    {RecordKind::PartPrograms, "PrefInventory", "Preferred Inventory|" TOOL_INVENTORY},
    {RecordKind::PartPrograms, "PrefMaterialFile", "Preferred Material File|Material File|Materialdatei"},
    {RecordKind::PartPrograms, "PrefMaterialGroup", "Preferred Material Group|" MATERIAL_GROUP},
    {RecordKind::PartPrograms, "PrefMaterialType", "Preferred Material Type|" MATERIAL},
    {RecordKind::PartPrograms, "SheetSizeX", "Sheet Length|Tafellänge"},
    {RecordKind::PartPrograms, "SheetSizeY", "Sheet Width|Tafelbreite"},
    {RecordKind::PartPrograms, "MaterialThickness", THICKNESS},

    {RecordKind::MaterialInventory, "MatName",
     "Material Name|Materialbezeichnung|Werkstoffbezeichnung|" MATERIAL},
    {RecordKind::MaterialInventory, "PalletKind", "Pallet|Pallet Type|Palette|Palettenart|Palettentyp"},

    {RecordKind::MaterialLibrary, "MaterialCode", "Code|Material Number|Material ID"},
    {RecordKind::MaterialLibrary, "MaterialDescription",
     "Description|Bezeichnung|Materialbezeichnung|Beschreibung|Materialbeschreibung"},

    {RecordKind::JobProgress, "JobName", "Job|Auftrag|Auftragsname"},
    {RecordKind::JobProgress, "JobProgress", "Progress|Fortschritt"},
    {RecordKind::JobProgress, "StartTime", "Start|Startzeit|Beginn"},
    {RecordKind::JobProgress, "EndTime", "End|Endzeit|Ende"},
    {RecordKind::JobProgress, "TotalPartQty", "Total Parts|Total Quantity|Gesamtmenge"},
    {RecordKind::JobProgress, "TotalDoneQty", "Parts Done|Done|Fertigmenge|Gutmenge"},

    {{}, "MaterialType", MATERIAL},
    {{}, "MaterialGroup", MATERIAL_GROUP},
    {{}, "Thickness", THICKNESS},
    {{}, "Comments", COMMENT},
    {{}, "Customer", "Customer|Customer Name|Client|Kunde|Kundenname|Auftraggeber"},
    {{},
     "PartNumber",
     "Part Number|Part Num|Item Number|Article Number|Drawing Number|Teilenummer|Teil-Nr.|Artikelnummer|"
     "Art.-Nr.|Sachnummer|Identnummer|Ident|Zeichnungsnummer"},
    {{},
     "Revision",
     "Revision|Rev|Revisionsstand|Änderungsindex|Zeichnungsindex|Index|Änderungsstand|Version"},
    {{}, "MaterialFile", "Materialdatei"},
    {{}, "CustomerMaterialType", "Customer Material|Kundenmaterial"},
    {{}, "Coating", "Beschichtung|Surface Finish|Oberfläche"},
    {{}, "Quantity", QUANTITY "|Stock|On Hand|Bestand|Lagerbestand"},
    {{}, "ShelfNo", "Shelf|Shelf Number|Fach|Fachnummer|Regalfach|Regalnummer|Lagerfach"},
    {{}, "SizeX", "Size X|Length|Länge|X"},
    {{}, "SizeY", "Size Y|Width|Breite|Y"},
};

constexpr std::pair<std::string_view, std::string_view> kFoldings[] = {
    {"ä", "ae"}, {"ö", "oe"}, {"ü", "ue"}, {"Ä", "ae"}, {"Ö", "oe"}, {"Ü", "ue"}, {"ß", "ss"}, {"#", "no"}};

constexpr std::string_view kNumberWords[] = {"number", "nummer", "nr"};

std::string Folded(std::string_view text) {
  std::string folded;
  while (!text.empty()) {
    const auto isNext = [&](const auto& folding) { return text.starts_with(folding.first); };
    const auto* const folding = std::ranges::find_if(kFoldings, isNext);
    const bool isFolded = folding != std::end(kFoldings);
    folded += isFolded ? folding->second : text.substr(0, 1);
    text.remove_prefix(isFolded ? folding->first.size() : 1);
  }
  return folded;
}

/// "Dicke [mm]" is a thickness.
std::string_view WithoutUnit(std::string_view heading) {
  while (heading.ends_with(' ')) heading.remove_suffix(1);
  if (!heading.ends_with(')') && !heading.ends_with(']')) return heading;
  const std::size_t start = heading.rfind(heading.ends_with(')') ? '(' : '[');
  return start == 0 || start == heading.npos ? heading : heading.substr(0, start);
}

/// An element of a format file cannot be named so.
bool IsOfFormatFile(std::string_view keyword) { return !keyword.empty() && !keyword.ends_with(' '); }

}  // namespace

std::string PlainHeading(std::string_view heading) {
  std::string plain = PlainWord(Folded(WithoutUnit(heading)));
  for (const std::string_view word : kNumberWords)
    if (plain.ends_with(word)) return plain.replace(plain.size() - word.size(), word.size(), "no");
  return plain;
}

Headings::Headings(const RecordType& type) {
  for (const KindColumn& column : AllColumns(type))
    if (IsOfFormatFile(column.column->keyword))
      meanings_.emplace(PlainHeading(column.column->keyword), Meaning{column.column->keyword, 1});
  for (const EverydayHeadings& row : kEverydayHeadings) {
    if (row.kind ? &RecordTypeOf(*row.kind) != &type : !Knows(type, row.keyword)) continue;
    std::size_t doubt = 1;
    for (std::string_view rest = row.headings; !rest.empty();) {
      const std::size_t end = std::min(rest.find('|'), rest.size());
      meanings_.emplace(PlainHeading(rest.substr(0, end)), Meaning{row.keyword, ++doubt});
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }
}

std::vector<std::string> Headings::KeywordsFor(const std::vector<std::string>& headings) const {
  struct Choice {
    std::size_t heading, doubt;
  };
  std::map<std::string_view, Choice> choices;  // by keyword
  for (std::size_t index = 0; index < headings.size(); ++index) {
    const auto found = meanings_.find(PlainHeading(headings[index]));
    if (found == meanings_.end()) continue;
    const auto& [keyword, doubt] = found->second;
    const Choice choice{index, headings[index] == keyword ? 0 : doubt};
    const auto [known, isNew] = choices.emplace(keyword, choice);
    if (!isNew && choice.doubt < known->second.doubt) known->second = choice;
  }
  std::vector<std::string> keywords(headings.size(), std::string(kIgnore));
  for (const auto& [keyword, choice] : choices) keywords[choice.heading] = keyword;
  return keywords;
}

}  // namespace qv
