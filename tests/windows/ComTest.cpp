#include "format/FormatConfiguration.h"
#include "platform/CodePage.h"
#include "tests/support/DiagnosticLog.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <objbase.h>

#include <thread>

namespace {

constexpr const char* kPlainFormats = R"(<?xml version="1.0" encoding="UTF-8"?>
<CSVOptionSetting Current="a"><OptionForm Name="a" Line="2" Part="Name"><PartName Order="0"/></OptionForm>
</CSVOptionSetting>)";

// What the code page cannot hold, and what it can.
constexpr const char* kForeignFormats = R"(<?xml version="1.0" encoding="UTF-8"?>
<CSVOptionSetting Current="板厚"><OptionForm Name="板厚" Line="2" Other="Ω|ä" Part="Name"><PartName Order="0"/>
<板 Order="1"/></OptionForm><OptionForm Name="Größe €" Line="3" Part="Path"/></CSVOptionSetting>)";

bool HasCom() {
  APTTYPE type{};
  APTTYPEQUALIFIER qualifier{};
  return CoGetApartmentType(&type, &qualifier) != CO_E_NOTINITIALIZED;
}

// COM on this thread while it lives.
class ComScope {
 public:
  explicit ComScope(DWORD kind = COINIT_APARTMENTTHREADED) { CoInitializeEx(nullptr, kind); }
  ~ComScope() { CoUninitialize(); }
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;
};

void OnFreshThread(void (*body)()) { std::thread(body).join(); }

TEST(ComTest, IsThereForALoadAndForNothingElse) {
  OnFreshThread([] {
    const TemporaryFolder folder;
    const std::string path = folder.Write("formats.xml", kPlainFormats);
    FormatConfiguration configuration;
    EXPECT_FALSE(HasCom());
    EXPECT_TRUE(LoadFromFile(configuration, path.c_str()));
    EXPECT_FALSE(HasCom());
    const DiagnosticLog log;
    std::string failure;
    EXPECT_FALSE(SaveToFile(configuration, path.c_str(), &failure)) << "saving relies on the host's COM";
    EXPECT_NE(failure, "");
    EXPECT_EQ(log.Codes(), "file-not-written");
    EXPECT_EQ(TemporaryFolder::Read(path), kPlainFormats);
    EXPECT_TRUE(LoadFromFile(configuration, (folder / "missing.xml").c_str()));
    EXPECT_FALSE(HasCom());
  });
}

TEST(ComTest, LeavesTheHostsComAlone) {
  OnFreshThread([] {
    const TemporaryFolder folder;
    const std::string path = folder.Write("formats.xml", kPlainFormats);
    for (const DWORD kind : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
      const ComScope scope(kind);
      FormatConfiguration configuration;
      EXPECT_TRUE(LoadFromFile(configuration, path.c_str()));
      ASSERT_EQ(configuration.Formats->Formats.size(), 1U);
      EXPECT_TRUE(SaveToFile(configuration, (folder / "saved.xml").c_str()));
      EXPECT_TRUE(HasCom());
    }
    EXPECT_FALSE(HasCom());
  });
}

TEST(ComTest, LosesOnlyWhatTheCodePageCannotHold) {
  const TemporaryFolder folder;
  FormatConfiguration configuration;
  ASSERT_TRUE(LoadFromFile(configuration, folder.Write("formats.xml", kForeignFormats).c_str()));
  const FormatList& list = *configuration.Formats;
  EXPECT_EQ(list.CurrentFormat, "??");
  ASSERT_EQ(list.Formats.size(), 2U);
  EXPECT_EQ(list.Formats[0].Name, "??");
  EXPECT_EQ(list.Formats[0].OtherDelimiters, "?|\xE4");
  EXPECT_EQ(list.Formats[0].Items[1].Name, "?");
  EXPECT_EQ(list.Formats[1].Name,
            "Gr\xF6\xDF"
            "e \x80");
}

// Every block of memory that this process holds, those of COM objects among them.
std::size_t BlocksInUse() {
  std::size_t blocks = 0;
  HANDLE heaps[64];
  const DWORD count = GetProcessHeaps(64, heaps);
  for (DWORD i = 0; i < count; ++i) {
    HeapLock(heaps[i]);
    PROCESS_HEAP_ENTRY entry{};
    while (HeapWalk(heaps[i], &entry) != FALSE) blocks += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0;
    HeapUnlock(heaps[i]);
  }
  return blocks;
}

DWORD HandlesInUse() {
  DWORD handles = 0;
  GetProcessHandleCount(GetCurrentProcess(), &handles);
  return handles;
}

// Fails when `cycle` leaves anything behind: it would be there a thousand times.
template <class Cycle>
void ExpectNoLeak(Cycle cycle) {
  for (int i = 0; i < 20; ++i) cycle();
  const std::size_t blocks = BlocksInUse();
  const DWORD handles = HandlesInUse();
  for (int i = 0; i < 1000; ++i) cycle();
  EXPECT_LT(BlocksInUse(), blocks + 200);
  EXPECT_LE(HandlesInUse(), handles);
}

TEST(ComTest, LeaksNothingOverAThousandLoads) {
  const TemporaryFolder folder;
  const std::string paths[] = {folder.Write("formats.xml", kForeignFormats),
                               folder.Write("broken.xml", "<a><b></a>"),
                               folder.Write("type.xml", "<!DOCTYPE a><a/>"), folder / "missing.xml"};
  FormatConfiguration configuration;
  ExpectNoLeak([&] {
    for (const std::string& path : paths) EXPECT_TRUE(LoadFromFile(configuration, path.c_str()));
  });
}

}  // namespace
