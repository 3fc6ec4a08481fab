#pragma once

#include <windows.h>

#include <oaidl.h>

/// The identifiers that the application's type library publishes for the members in use.
namespace qv::excel {

inline constexpr DISPID kApplicationWorkbooks = 572;
inline constexpr DISPID kApplicationBeforeAdd = 1038;  // left as it is, but put before a workbook is added
inline constexpr DISPID kApplicationQuit = 302;
inline constexpr DISPID kApplicationAlerts = 343;   // whether it asks its user
inline constexpr DISPID kApplicationMacros = 1941;  // what the macros of a file that is opened may do
inline constexpr long kMacrosNever = 3;

inline constexpr DISPID kWorkbooksOpen = 682;
inline constexpr DISPID kWorkbooksClose = 277;

inline constexpr DISPID kWorkbookWorksheets = 494;
inline constexpr DISPID kWorkbookSheets = 485;
inline constexpr DISPID kWorkbookActiveSheet = 307;
inline constexpr DISPID kWorkbookClose = 277;
inline constexpr DISPID kWorkbookSaveAs = 284;

inline constexpr DISPID kSheetsItem = 170;
inline constexpr DISPID kSheetsAdd = 181;
inline constexpr DISPID kSheetsCount = 118;

inline constexpr DISPID kWorksheetUsedRange = 412;
inline constexpr DISPID kWorksheetActivate = 304;
inline constexpr DISPID kCells = 238;

inline constexpr DISPID kRangeRow = 257;
inline constexpr DISPID kRangeRows = 258;
inline constexpr DISPID kRangeColumns = 241;
inline constexpr DISPID kRangeCount = 118;
inline constexpr DISPID kRangeItem = 170;
inline constexpr DISPID kRangeValue = 6;
inline constexpr DISPID kRangeValue2 = 1388;

}  // namespace qv::excel
