#pragma once

#include <string>

/// Cell values as the automation of Windows turns them into text, so that a workbook reads the same wherever
/// it is read.
namespace qv {

/// Fifteen significant digits, no trailing zeros, a point whatever the locale: 1.5 "1.5", 3 "3", 1e20
/// "1E+20".
std::string NumberText(double value);

/// "-1" or "0".
std::string BooleanText(bool value);

/// 30 December 1899 gives 0.
double DaysSince1899(int year, unsigned month, unsigned day);

/// Days since 30 December 1899 as month/day/year and, when it is not midnight, the time: "1/31/2024 6:00:01
/// PM". On that first day itself the time alone.
std::string DateText(double days);

}  // namespace qv
