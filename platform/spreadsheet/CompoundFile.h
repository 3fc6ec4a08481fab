#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace qv {

/// The bytes are not what their own structure says.
struct DamagedFile : std::runtime_error {
  DamagedFile() : std::runtime_error("it is damaged, or no workbook") {}
};

/// A whole number, the low byte first. Throws DamagedFile where the bytes end before it does.
template <class Number>
Number NumberAt(std::string_view bytes, std::size_t at) {
  if (at > bytes.size() || bytes.size() - at < sizeof(Number)) throw DamagedFile();
  Number number = 0;
  for (std::size_t index = sizeof(Number); index-- > 0;)
    number = static_cast<Number>(number << 8 | static_cast<unsigned char>(bytes[at + index]));
  return number;
}

/// The container that binary workbooks come in: a file system of sectors. The bytes must outlive it.
class CompoundFile {
 public:
  static bool IsOne(std::string_view bytes);

  /// Throws DamagedFile.
  explicit CompoundFile(std::string_view bytes);

  /// The content of a stream at the top level; nothing when there is none of that name, which is ASCII.
  /// Throws DamagedFile.
  std::optional<std::string> Stream(std::string_view name) const;

 private:
  std::string_view SectorAt(std::uint32_t sector) const;
  void AddTableSectors(std::string_view sectors, std::size_t count);
  std::string Chain(std::uint32_t sector) const;
  std::string SmallChain(std::uint32_t sector) const;
  std::string_view EntryAt(std::uint32_t index) const;
  std::optional<std::string_view> FindEntry(std::string_view name) const;

  std::string_view bytes_;
  std::size_t sectorSize_;
  std::string table_;       // for each sector the next one of its chain
  std::string smallTable_;  // likewise for the small sectors, in which short streams lie
  std::string directory_;
  std::string smallSectors_;
};

}  // namespace qv
