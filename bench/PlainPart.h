#pragma once

#include "Data.h"

#include <QVAssemblyFile/PartInformation.h>

#include <array>
#include <cstddef>

namespace bench {

/// A part record with nothing around its fields, as large as the real one. The floors fill it.
struct PlainPart {
  static constexpr std::size_t kTexts = 24, kInts = 6, kReals = 2;
  char texts[kTexts][256];
  int ints[kInts];
  double reals[kReals];
  bool flags[11];
  char padding[8];  // numbers between the texts cost some
};
static_assert(sizeof(PlainPart) == sizeof(PartInformation), "the floors must fill records of the real size");

/// Where the cell of a column goes: its index among the columns of its type.
struct Place {
  Type type;
  std::size_t index;
};

inline std::array<Place, 32> PlacesOfParts() {
  std::array<Place, 32> places{};
  std::array<std::size_t, 3> indexes{};
  for (std::size_t column = 0; column < places.size(); ++column) {
    const Type type = FindTable("parts")->columns[column].type;
    places[column] = {type, indexes[static_cast<std::size_t>(type)]++};
  }
  return places;
}

}  // namespace bench
