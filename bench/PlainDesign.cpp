#include "PlainDesign.h"

#include <cstdlib>
#include <cstring>
#include <fstream>

namespace bench {
namespace {

std::vector<std::string> Split(const std::string& line) {
  std::vector<std::string> fields;
  std::string field;
  bool inside = false;
  for (const char c : line) {
    if (c == '"') {
      inside = !inside;
    } else if (c == ',' && !inside) {
      fields.push_back(field);
      field.clear();
    } else {
      field += c;
    }
  }
  fields.push_back(field);
  return fields;
}

std::unique_ptr<PlainPart> Build(const std::vector<std::string>& fields,
                                 const std::array<Place, 32>& places) {
  auto part = std::make_unique<PlainPart>();
  for (std::size_t column = 0; column < fields.size() && column < places.size(); ++column) {
    const std::string& field = fields[column];
    const Place place = places[column];
    if (place.type == Type::Text) {
      std::strncpy(part->texts[place.index], field.c_str(), sizeof part->texts[0] - 1);
    } else if (place.type == Type::Int) {
      part->ints[place.index] = std::atoi(field.c_str());
    } else {
      part->reals[place.index] = std::atof(field.c_str());
    }
  }
  return part;
}

}  // namespace

PlainRecords ReadPlainly(const std::string& path) {
  const std::array<Place, 32> places = PlacesOfParts();
  PlainRecords records;
  std::ifstream file(path);
  std::string line;
  std::getline(file, line);
  while (std::getline(file, line)) records.push_back(Build(Split(line), places));
  return records;
}

}  // namespace bench
