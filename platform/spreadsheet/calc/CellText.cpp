#include "platform/spreadsheet/calc/CellText.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdint>

namespace qv {
namespace {

constexpr int kSignificantDigits = 15;
constexpr std::int64_t kSecondsPerDay = 86400;
constexpr double kMaxDays = 2958466;  // the year 10000
constexpr double kMinDays = -657435;  // the year 100

constexpr std::chrono::sys_days kFirst = std::chrono::year(1899) / 12 / 30;

std::string DayText(std::int64_t days) {
  const std::chrono::year_month_day date(kFirst + std::chrono::days(days));
  return std::to_string(static_cast<unsigned>(date.month())) + "/" +
         std::to_string(static_cast<unsigned>(date.day())) + "/" +
         std::to_string(static_cast<int>(date.year()));
}

std::string TwoDigits(std::int64_t number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string TimeText(std::int64_t seconds) {
  const std::int64_t hour = seconds / 3600;
  const std::int64_t hourOfTwelve = hour % 12 == 0 ? 12 : hour % 12;
  return std::to_string(hourOfTwelve) + ":" + TwoDigits(seconds / 60 % 60) + ":" + TwoDigits(seconds % 60) +
         (hour < 12 ? " AM" : " PM");
}

}  // namespace

std::string NumberText(double value) {
  if (value == 0) return "0";  // a zero has no sign here
  char text[32];
  const auto [end, error] =
      std::to_chars(text, text + sizeof text, value, std::chars_format::general, kSignificantDigits);
  std::replace(text, end, 'e', 'E');
  return {text, end};
}

std::string BooleanText(bool value) { return value ? "-1" : "0"; }

double DaysSince1899(int year, unsigned month, unsigned day) {
  const std::chrono::sys_days date =
      std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day);
  return static_cast<double>((date - kFirst).count());
}

std::string DateText(double days) {
  if (!(days > kMinDays && days < kMaxDays)) return NumberText(days);
  // Before the first day the fraction still counts forward from midnight.
  const double day = std::trunc(days);
  std::int64_t seconds = std::llround(std::fabs(days - day) * static_cast<double>(kSecondsPerDay));
  const std::int64_t date = static_cast<std::int64_t>(day) + seconds / kSecondsPerDay;
  seconds %= kSecondsPerDay;
  if (date == 0) return TimeText(seconds);
  return seconds == 0 ? DayText(date) : DayText(date) + " " + TimeText(seconds);
}

}  // namespace qv
