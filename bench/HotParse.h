#pragma once

#include "PlainPart.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace bench {

/// The smallest program that does the work of a parts import but for the records: reads the file in blocks,
/// finds the separators with wide instructions and converts every row into one and the same record. It knows
/// the file's columns and its plain quoting, and no other. Returns the rows.
std::size_t ParseIntoOneRecord(const std::string& path, PlainPart& record);

/// Finds every separator of the text with wide instructions and stores its position; returns how many.
std::size_t FindSeparators(const std::string& text, char delimiter, std::vector<std::uint32_t>& positions);

}  // namespace bench
