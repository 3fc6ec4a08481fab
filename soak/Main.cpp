// Lets the library work for as long as a host does: threads with managers of their own do everything there is
// to do with files, in rounds whose results must equal those of the first one, byte for byte, while memory,
// handles, threads and files stay as many. usage: qv_soak SECONDS THREADS FOLDER FORMATS [FULL-DISK]

#include "engines/columns/RecordFields.h"
#include "format/FormatConfiguration.h"
#include "platform/FileSystem.h"
#include "soak/ProcessSample.h"

#include <QVAssemblyFile/CAssemblyFileMgr.h>
#include <QVAssemblyFile/PartInformation.h>
#include <QVAssemblyFile/qvassembly.hpp>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <thread>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int kRows = 200;
constexpr int kBrokenFiles = 10;

struct Kind {
  qva::Kind kind;
  const char* format;
  const char* file;
};

// With the formats of examples/AssemblyFormats.xml.
constexpr Kind kKinds[] = {
    {qva::Kind::Parts, "orders", "parts.csv"},
    {qva::Kind::Parts, "laser-list", "laser.txt"},
    {qva::Kind::Tools, "tools", "tools.txt"},
    {qva::Kind::Materials, "cutting-conditions", "conditions.txt"},
    {qva::Kind::Sheets, "nested-sheets", "sheets.txt"},
    {qva::Kind::PartPrograms, "program-report", "programs.txt"},
    {qva::Kind::MaterialInventory, "stock", "stock.txt"},
    {qva::Kind::MaterialLibrary, "material-library", "library.csv"},
    {qva::Kind::JobProgress, "job-progress", "progress.txt"},
};

bool IsRead(qva::Kind kind) { return IsImported(static_cast<RecordKind>(kind)); }
bool IsWritten(qva::Kind kind) { return IsExported(static_cast<RecordKind>(kind)); }

std::string ContentOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void WriteContent(const std::string& path, std::string_view content) {
  std::ofstream(path, std::ios::binary).write(content.data(), static_cast<std::streamsize>(content.size()));
}

/// One number for all that a round gave.
class Digest {
 public:
  void Add(std::string_view bytes) {
    for (const char c : bytes) value_ = (value_ ^ static_cast<unsigned char>(c)) * 1099511628211u;
    value_ = (value_ ^ 256) * 1099511628211u;  // or "ab" and "c" were "a" and "bc"
  }
  std::uint64_t Value() const { return value_; }

 private:
  std::uint64_t value_ = 14695981039346656037u;
};

/// The file of a thread on the full disk. It is there before the disk is full, and must stay as it is.
std::string OnFullDisk(const std::string& fullDisk, const std::string& folder) {
  return fullDisk + "/" + fs::path(folder).parent_path().filename().string() + ".csv";
}

/// What one thread does again and again, with files in a folder of its own.
class Round {
 public:
  Round(std::string folder, std::string formats, std::string fullDisk)
      : folder_(std::move(folder)), formats_(std::move(formats)), fullDisk_(std::move(fullDisk)) {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    manager_.loadFormats(formats_);
  }

  std::uint64_t Run() {
    digest_ = {};
    for (const Kind& kind : kKinds) {
      manager_.selectFormat(kind.format);
      if (IsWritten(kind.kind))
        Write(kind);
      else
        WriteContent(folder_ + kind.file, MadeUpRows());
      if (IsRead(kind.kind)) {
        Edit(kind);
        ReadBrokenFiles(kind);
      }
    }
    StoreNames();
    SaveFormats();
    Attach();
    Cancel();
    Fail(folder_ + "no such folder/out.csv");
    if (!fullDisk_.empty()) FillDisk();
    return digest_.Value();
  }

  /// The files that there are now.
  std::int64_t CountFiles() const { return std::distance(fs::recursive_directory_iterator(folder_), {}); }

 private:
  using Fields = std::span<const qv::RecordField>;

  static Fields FieldsOf(qva::Kind kind) { return qv::RecordTypes()[static_cast<std::size_t>(kind)].fields; }

  static void Fill(qva::Record& record, Fields fields, int seed) {
    for (std::size_t index = 0; index < fields.size(); ++index) {
      const auto field = static_cast<std::int32_t>(index);
      const int value = (seed * 31 + field) % 1000;
      switch (fields[index].type) {
        case qv::FieldType::Text:
          record.set(field, "x" + std::to_string(value));
          break;
        case qv::FieldType::Int:
          record.set(field, value);
          break;
        case qv::FieldType::Float:
        case qv::FieldType::Double:
          record.set(field, value / 8.0);
          break;
        case qv::FieldType::Bool:
          record.set(field, value % 2 == 0);
          break;
        case qv::FieldType::List: {
          const std::string name(fields[index].stem);
          record.resizeList(name.c_str(), seed % 4);
          for (std::int32_t element = 0; element < seed % 4; ++element) {
            qva::Record part = record.element(name.c_str(), element);
            Fill(part, fields[index].elements->fields, seed + element);
          }
        }
      }
    }
  }

  static std::string MadeUpRows() {
    std::ostringstream rows;
    rows << "header\n";
    for (int row = 0; row < kRows; ++row)
      rows << row << ',' << row * 7 << " SPCC " << row / 10.0 << ',' << row << " 2500 1250,Euro\n";
    return rows.str();
  }

  void AddRemarks() {
    for (const qva::Diagnostic& diagnostic : manager_.takeDiagnostics()) {
      digest_.Add(std::to_string(diagnostic.line) + diagnostic.column + diagnostic.code);
      digest_.Add(diagnostic.message);
    }
  }

  /// What the work gives, or says when it fails.
  template <class Work>
  void Try(Work work) {
    try {
      work();
    } catch (const qva::Error& error) {
      digest_.Add(error.what());
    }
    AddRemarks();
  }

  void Write(const Kind& kind) {
    Try([&] {
      qva::Writer writer = manager_.write(folder_ + kind.file, kind.kind);
      for (int row = 0; row < kRows; ++row) {
        qva::Record record(kind.kind);
        Fill(record, FieldsOf(kind.kind), row + 1);
        writer.put(record);
      }
      writer.commit();
    });
    digest_.Add(ContentOf(folder_ + kind.file));
  }

  /// Reads the file, and writes its records, changed, to another one at the same time.
  void Edit(const Kind& kind) {
    qva::Manager other;
    other.loadFormats(formats_);
    other.selectFormat(kind.format);
    const std::string path = folder_ + "edited-" + kind.file;
    Try([&] {
      std::vector<qva::Writer> writer;
      if (IsWritten(kind.kind)) writer.push_back(other.write(path, kind.kind));
      const Fields fields = FieldsOf(kind.kind);
      for (qva::Record& record : manager_.read(folder_ + kind.file, kind.kind)) {
        for (std::size_t index = 0; index < fields.size(); ++index)
          if (fields[index].type == qv::FieldType::Text)
            digest_.Add(record.text(static_cast<std::int32_t>(index)));
        Fill(record, fields, 7);
        if (!writer.empty()) writer[0].put(record);
      }
      if (!writer.empty()) writer[0].commit();
    });
    digest_.Add(ContentOf(path));
  }

  void ReadBrokenFiles(const Kind& kind) {
    const std::string whole = ContentOf(folder_ + kind.file);
    const std::string path = folder_ + "broken" + fs::path(kind.file).extension().string();
    std::minstd_rand random(static_cast<unsigned>(whole.size()));
    for (int file = 0; file < kBrokenFiles; ++file) {
      std::string bytes = whole.substr(0, random() % whole.size());
      for (int change = 0; change < 20 && !bytes.empty(); ++change)
        bytes[random() % bytes.size()] = static_cast<char>(random());
      WriteContent(path, bytes);
      Try([&] {
        int count = 0;
        for ([[maybe_unused]] const qva::Record& record : manager_.read(path, kind.kind)) ++count;
        digest_.Add(std::to_string(count));
      });
    }
  }

  void StoreNames() {
    const std::string path = folder_ + kKinds[1].file;
    Try([&] {
      manager_.storeFormat(path, "orders");
      digest_.Add(manager_.storedFormat(path));
    });
    digest_.Add(ContentOf(path));
  }

  void SaveFormats() {
    const std::string path = folder_ + "formats.xml";
    digest_.Add(qv::SaveFormats(qv::LoadFormats(formats_).list, path).reason);
    digest_.Add(std::to_string(qv::LoadFormats(path).list.Formats.size()));
    digest_.Add(ContentOf(path));
  }

  /// As a host in C++ exports records of its own.
  void Attach() {
    CAssemblyFileMgr manager;
    manager.LoadFormatConfiguration(formats_.c_str());
    manager.SetCurrentFormat("orders");
    for (int row = 0; row < kRows; ++row) {
      auto* const part = new PartInformation;
      part->SetPartName(("p" + std::to_string(row)).c_str());
      manager.AddAndAttachPart(part);
    }
    std::string path = folder_ + "attached.csv";
    digest_.Add(manager.ExportAssemblyFile(path.data()) ? "written" : "");
    digest_.Add(ContentOf(path));
  }

  void Cancel() {
    manager_.selectFormat(kKinds[0].format);
    manager_.onProgress([](std::int64_t, std::int64_t) { return false; });
    Edit(kKinds[0]);
    manager_.onProgress({});
  }

  void Fail(const std::string& path) {
    Try([&] {
      qva::Writer writer = manager_.write(path, qva::Kind::Parts);
      const qva::Record part(qva::Kind::Parts);
      for (int row = 0; row < 100 * kRows; ++row) writer.put(part);
      writer.commit();
    });
  }

  void FillDisk() {
    const std::string path = OnFullDisk(fullDisk_, folder_);
    Fail(path);
    digest_.Add(ContentOf(path));
  }

  std::string folder_, formats_, fullDisk_;
  qva::Manager manager_;
  Digest digest_;
};

/// Figures over time.
class Series {
 public:
  void Add(double at, double value) {
    at_.push_back(at);
    values_.push_back(value);
  }

  double First() const { return values_.front(); }
  double Last() const { return values_.back(); }

  /// Of a straight line through the figures, per unit of time.
  double Slope() const {
    const auto count = static_cast<double>(values_.size());
    double meanAt = 0, mean = 0, products = 0, squares = 0;
    for (std::size_t i = 0; i < values_.size(); ++i) meanAt += at_[i] / count, mean += values_[i] / count;
    for (std::size_t i = 0; i < values_.size(); ++i) {
      products += (at_[i] - meanAt) * (values_[i] - mean);
      squares += (at_[i] - meanAt) * (at_[i] - meanAt);
    }
    return squares > 0 ? products / squares : 0;
  }

  /// What the line rises by from start to end.
  double Rise() const { return Slope() * (at_.back() - at_.front()); }

 private:
  std::vector<double> at_, values_;
};

class Soak {
 public:
  Soak(double seconds, std::string folder, std::string formats, std::string fullDisk)
      : seconds_(seconds),
        folder_(std::move(folder)),
        formats_(std::move(formats)),
        fullDisk_(std::move(fullDisk)) {}

  bool Run(int threads) {
    for (int index = 0; index < threads && !fullDisk_.empty(); ++index)
      WriteContent(OnFullDisk(fullDisk_, FolderOf(index)), "old");
    std::vector<std::thread> workers;
    for (int index = 0; index < threads; ++index) workers.emplace_back([this, index] { Work(index); });
    Watch(static_cast<std::size_t>(threads));
    for (std::thread& worker : workers) worker.join();
    return Report();
  }

 private:
  std::string FolderOf(int index) const { return folder_ + "/thread" + std::to_string(index) + "/"; }

  double Elapsed() const { return std::chrono::duration<double>(Clock::now() - start_).count(); }

  void Work(int index) {
    try {
      Round round(FolderOf(index), formats_, fullDisk_);
      const std::uint64_t first = round.Run();
      const std::int64_t files = round.CountFiles();
      ++begun_;
      while (Elapsed() < seconds_) {
        if (round.Run() != first) ++different_;
        ++rounds_;
      }
      leftFiles_ += round.CountFiles() - files;
    } catch (const std::exception& error) {
      std::fprintf(stderr, "thread %d: %s\n", index, error.what());
      ++different_;
      ++begun_;
    }
  }

  // The first fifth of the time is the warm-up.
  void Watch(std::size_t threads) {
    constexpr std::chrono::milliseconds kPause(500);
    while (begun_ < threads || Elapsed() < seconds_ / 5) std::this_thread::sleep_for(kPause);
    std::int64_t before = rounds_;
    double since = Elapsed();
    while (Elapsed() < seconds_ - 0.5) {
      std::this_thread::sleep_for(kPause);
      const double now = Elapsed(), minute = now / 60;
      const soak::ProcessSample sample = soak::SampleProcess();
      memory_.Add(minute, static_cast<double>(sample.memory));
      handles_.Add(minute, static_cast<double>(sample.handles));
      threads_.Add(minute, static_cast<double>(sample.threads));
      if (const std::int64_t done = rounds_ - before; done >= 8) {
        time_.Add(minute, 1000 * (now - since) * static_cast<double>(threads) / static_cast<double>(done));
        before += done;
        since = now;
      }
    }
  }

  bool Report() {
    bool isFine = different_ == 0;
    std::printf("%lld rounds after the first ones, %lld with other results\n",
                static_cast<long long>(rounds_), static_cast<long long>(different_));
    const auto row = [&](const char* what, const Series& series, double mayRise) {
      const bool isFlat = series.Rise() <= mayRise;
      std::printf("%-18s from %10.0f to %10.0f, slope %+10.3f a minute: %s\n", what, series.First(),
                  series.Last(), series.Slope(), isFlat ? "flat" : "RISES");
      isFine &= isFlat;
    };
#ifndef __SANITIZE_THREAD__  // its own history grows
    row("memory (KiB)", memory_, std::max(1024.0, 0.03 * memory_.First()));
#endif
    row("handles", handles_, 5);  // some are open whenever one looks
    row("threads", threads_, 0.5);
    // A machine has other things to do for a minute, but not for an hour.
    row("time (ms a round)", time_, (seconds_ < 600 ? 10 : 0.2) * time_.First());
    std::printf("%-18s %lld more than after the first rounds\n", "files", static_cast<long long>(leftFiles_));
    return isFine && leftFiles_ == 0;
  }

  const Clock::time_point start_ = Clock::now();
  const double seconds_;
  const std::string folder_, formats_, fullDisk_;
  std::atomic<std::size_t> begun_{0};
  std::atomic<std::int64_t> rounds_{0}, different_{0}, leftFiles_{0};
  Series memory_, handles_, threads_, time_;
};

}  // namespace

int main(int count, char** arguments) {
  if (count < 5) {
    std::fprintf(stderr, "usage: qv_soak SECONDS THREADS FOLDER FORMATS [FULL-DISK]\n");
    return 2;
  }
  Soak soak(std::atof(arguments[1]), arguments[3], arguments[4], count > 5 ? arguments[5] : "");
  return soak.Run(std::atoi(arguments[2])) ? 0 : 1;
}
