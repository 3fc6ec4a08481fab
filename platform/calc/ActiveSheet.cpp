#include "platform/calc/ActiveSheet.h"

#include <com/sun/star/container/XNameAccess.hpp>
#include <com/sun/star/embed/OLESimpleStorage.hpp>
#include <com/sun/star/io/XStream.hpp>
#include <com/sun/star/ucb/SimpleFileAccess.hpp>

namespace qv {
namespace {

// Of the records at the start of a binary workbook: each has a type, a length and that many bytes.
constexpr unsigned kEndRecord = 0x000A;
constexpr unsigned kWindowRecord = 0x003D;
constexpr unsigned kSheetRecord = 0x0085;
constexpr sal_Int32 kRecordHead = 4;
constexpr sal_Int32 kActiveInWindow = 10;  // where a window's record holds the rank of the active sheet
constexpr sal_Int32 kTypeInSheet = 5;      // and a sheet's record its type
constexpr sal_Int8 kModuleSheet = 6;       // which holds code and is no sheet to the office

constexpr sal_Int32 kMostBytes = 1 << 20;  // the records in question come early

unsigned WordAt(const css::uno::Sequence<sal_Int8>& bytes, sal_Int32 at) {
  const auto byte = [&](sal_Int32 place) { return static_cast<unsigned char>(bytes[place]); };
  return static_cast<unsigned>(byte(at) | byte(at + 1) << 8);
}

css::uno::Sequence<sal_Int8> ReadRecords(const css::uno::Reference<css::uno::XComponentContext>& office,
                                         const OUString& url) {
  css::uno::Sequence<sal_Int8> records;
  const auto file = css::ucb::SimpleFileAccess::create(office)->openFileRead(url);
  const auto storage = css::embed::OLESimpleStorage::createFromInputStream(office, file, true);
  for (const char* name : {"Workbook", "Book"}) {
    const OUString stream = OUString::createFromAscii(name);
    if (!storage->hasByName(stream)) continue;
    css::uno::Reference<css::io::XStream>(storage->getByName(stream), css::uno::UNO_QUERY_THROW)
        ->getInputStream()
        ->readBytes(records, kMostBytes);
    break;
  }
  file->closeInput();
  return records;
}

}  // namespace

sal_Int32 ActiveSheetIn(const css::uno::Sequence<sal_Int8>& records) {
  sal_Int32 active = -1;  // among all sheets
  sal_Int32 modules = 0;  // before it
  sal_Int32 sheets = 0;
  const sal_Int32 size = records.getLength();
  for (sal_Int32 at = 0; at + kRecordHead <= size;) {
    const unsigned type = WordAt(records, at);
    const auto length = static_cast<sal_Int32>(WordAt(records, at + 2));
    const sal_Int32 body = at + kRecordHead;
    if (type == kEndRecord || body + length > size) break;
    if (type == kWindowRecord && active < 0 && length >= kActiveInWindow + 2)
      active = static_cast<sal_Int32>(WordAt(records, body + kActiveInWindow));
    if (type == kSheetRecord && length > kTypeInSheet && sheets++ < active &&
        records[body + kTypeInSheet] == kModuleSheet)
      ++modules;
    at = body + length;
  }
  return active < 0 ? 0 : active - modules;
}

sal_Int32 ActiveSheetOf(const css::uno::Reference<css::uno::XComponentContext>& office, const OUString& url) {
  try {
    return ActiveSheetIn(ReadRecords(office, url));
  } catch (const css::uno::Exception&) {
    return 0;  // not a file of that kind
  }
}

}  // namespace qv
