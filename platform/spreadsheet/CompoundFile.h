#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

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
  static bool IsOne(std::string_view bytes) { return bytes.starts_with(kSignature); }

  /// Throws DamagedFile.
  explicit CompoundFile(std::string_view bytes) : bytes_(bytes), sectorSize_(SectorSize(bytes)) {
    if (bytes.size() < kHeaderSize) throw DamagedFile();
    AddTableSectors(bytes.substr(kTableSectors), kTableSectorsInHeader);
    // A large file names further sectors of the table in a chain of lists.
    const std::size_t listed = sectorSize_ / sizeof(std::uint32_t) - 1;
    auto list = NumberAt<std::uint32_t>(bytes, kFirstTableList);
    for (std::size_t lists = 0; list <= kMaxSector; ++lists) {
      if (lists > bytes.size() / sectorSize_) throw DamagedFile();
      AddTableSectors(SectorAt(list), listed);
      list = NumberAt<std::uint32_t>(SectorAt(list), listed * sizeof(std::uint32_t));
    }
    smallTable_ = Chain(NumberAt<std::uint32_t>(bytes, kSmallTable));
    directory_ = Chain(NumberAt<std::uint32_t>(bytes, kDirectory));
    smallSectors_ = Chain(NumberAt<std::uint32_t>(EntryAt(0), kStart));
  }

  /// The content of a stream at the top level; nothing when there is none of that name, which is ASCII.
  /// Throws DamagedFile.
  std::optional<std::string> Stream(std::string_view name) const {
    const std::optional<std::string_view> entry = FindEntry(name);
    if (!entry) return std::nullopt;
    const auto start = NumberAt<std::uint32_t>(*entry, kStart), size = NumberAt<std::uint32_t>(*entry, kSize);
    std::string content = size <= kMaxSmallStream ? SmallChain(start) : Chain(start);
    if (content.size() < size) throw DamagedFile();
    content.resize(size);
    return content;
  }

 private:
  static constexpr std::string_view kSignature{"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8};
  static constexpr std::size_t kHeaderSize = 512;
  static constexpr std::uint32_t kMaxSector = 0xFFFFFFF9;  // what is above ends a chain
  static constexpr std::size_t kEntrySize = 128;
  static constexpr std::size_t kSmallSectorSize = 64;
  static constexpr std::uint32_t kMaxSmallStream = 4095;
  static constexpr std::size_t kTableSectorsInHeader = 109;

  // Offsets in the header, and in an entry of the directory.
  static constexpr std::size_t kSectorShift = 30, kDirectory = 48, kSmallTable = 60, kFirstTableList = 68,
                               kTableSectors = 76;
  static constexpr std::size_t kNameSize = 64, kLeft = 68, kRight = 72, kChild = 76, kStart = 116,
                               kSize = 120;

  static std::size_t SectorSize(std::string_view bytes) {
    const auto shift = NumberAt<std::uint16_t>(bytes, kSectorShift);
    if (shift != 9 && shift != 12) throw DamagedFile();
    return std::size_t{1} << shift;
  }

  static bool HasName(std::string_view entry, std::string_view name) {
    if (NumberAt<std::uint16_t>(entry, kNameSize) != 2 * (name.size() + 1)) return false;
    for (std::size_t index = 0; index < name.size(); ++index)
      if (NumberAt<std::uint16_t>(entry, 2 * index) != static_cast<unsigned char>(name[index])) return false;
    return true;
  }

  std::string_view SectorAt(std::uint32_t sector) const {
    const std::size_t at = (std::size_t{sector} + 1) * sectorSize_;
    if (at >= bytes_.size()) throw DamagedFile();
    return bytes_.substr(at, sectorSize_);
  }

  void AddTableSectors(std::string_view sectors, std::size_t count) {
    for (std::size_t index = 0; index < count; ++index) {
      const auto sector = NumberAt<std::uint32_t>(sectors, index * sizeof(std::uint32_t));
      if (sector <= kMaxSector) table_ += SectorAt(sector);
    }
  }

  std::string Chain(std::uint32_t sector) const {
    std::string content;
    while (sector <= kMaxSector) {
      if (content.size() > bytes_.size()) throw DamagedFile();  // it goes in a circle
      content += SectorAt(sector);
      sector = NumberAt<std::uint32_t>(table_, std::size_t{sector} * sizeof(std::uint32_t));
    }
    return content;
  }

  std::string SmallChain(std::uint32_t sector) const {
    std::string content;
    while (sector <= kMaxSector && content.size() <= kMaxSmallStream) {
      const std::size_t at = std::size_t{sector} * kSmallSectorSize;
      if (at >= smallSectors_.size()) throw DamagedFile();
      content += std::string_view(smallSectors_).substr(at, kSmallSectorSize);
      sector = NumberAt<std::uint32_t>(smallTable_, std::size_t{sector} * sizeof(std::uint32_t));
    }
    return content;
  }

  std::string_view EntryAt(std::uint32_t index) const {
    const std::size_t at = std::size_t{index} * kEntrySize;
    if (at + kEntrySize > directory_.size()) throw DamagedFile();
    return std::string_view(directory_).substr(at, kEntrySize);
  }

  // The entries of a folder are a tree. Those of folders in it, such as an embedded workbook's, are no part
  // of it.
  std::optional<std::string_view> FindEntry(std::string_view name) const {
    std::vector<std::uint32_t> open = {NumberAt<std::uint32_t>(EntryAt(0), kChild)};
    for (std::size_t seen = 0; !open.empty(); ++seen) {
      const std::uint32_t index = open.back();
      open.pop_back();
      if (index > kMaxSector) continue;
      if (seen > directory_.size()) throw DamagedFile();  // it goes in a circle
      const std::string_view entry = EntryAt(index);
      if (HasName(entry, name)) return entry;
      for (const std::size_t side : {kLeft, kRight}) open.push_back(NumberAt<std::uint32_t>(entry, side));
    }
    return std::nullopt;
  }

  std::string_view bytes_;
  std::size_t sectorSize_;
  std::string table_;       // for each sector the next one of its chain
  std::string smallTable_;  // likewise for the small sectors, in which short streams lie
  std::string directory_;
  std::string smallSectors_;
};

}  // namespace qv
