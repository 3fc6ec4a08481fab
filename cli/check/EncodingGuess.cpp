#include "cli/check/EncodingGuess.h"

#include "platform/CodePage.h"
#include "text/Utf8.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <span>

namespace qv {
namespace {

struct Language {
  int maxRun;              // letters in a row that are not of ASCII; 0: as many as a word has, and no others
  std::string_view small;  // letters that are not of ASCII, the most frequent first
  std::string_view capital;  // the same as capitals, as far as there are such
};

constexpr Language kLanguages[] = {
    {3, "üäöß", "ÜÄÖ"},
    {2, "éàèêôîçâùûëïœ", "ÉÀÈÊÔÎÇÂÙÛËÏŒ"},
    {2, "óáíúñéüºª", "ÓÁÍÚÑÉÜ"},
    {2, "éàèùòì", "ÉÀÈÙÒÌ"},
    {2, "ãçáíéóõúêâôàº", "ÃÇÁÍÉÓÕÚÊÂÔÀ"},
    {2, "éëïóèöáü", "ÉËÏÓÈÖÁÜ"},
    {2, "äöå", "ÄÖÅ"},
    {2, "øåæé", "ØÅÆÉ"},
    {3, "ðáíæóöþúýé", "ÐÁÍÆÓÖÞÚÝÉ"},
    {2, "óàéíèçòúïü", "ÓÀÉÍÈÇÒÚÏÜ"},
    {4, "íářčéýžěšůúóňťď", "ÍÁŘČÉÝŽĚŠŮÚÓŇŤĎ"},
    {4, "łżąśęóćńź", "ŁŻĄŚĘÓĆŃŹ"},
    {3, "áéíóöőüúű", "ÁÉÍÓÖŐÜÚŰ"},
    {4, "áíčýťéúžľšóňôäĺďŕ", "ÁÍČÝŤÉÚŽĽŠÓŇÔÄĹĎŔ"},
    {3, "čšćžđ", "ČŠĆŽĐ"},
    {3, "ăîâşţșț", "ĂÎÂŞŢȘȚ"},
    {4, "ıçşüğöâ", "İÇŞÜĞÖÂ"},
    {4, "šėųįžąčūę", "ŠĖŲĮŽĄČŪĘ"},
    {4, "āēīšļūņķžģč", "ĀĒĪŠĻŪŅĶŽĢČ"},
    {3, "äõüöžš", "ÄÕÜÖŽŠ"},
    {9, "đ\u0301ư\u0300ô\u0323áàê\u0309\u0303âúóơăíéõ", "Đ\u0301Ư\u0300Ô\u0323ÁÀÊ\u0309\u0303ÂÚÓƠĂÍÉÕ"},
    {0, "оеаинтрслвпкдмуязыьйбчгжфцюхшщэёъ", "ОЕАИНТРСЛВПКДМУЯЗЫЬЙБЧГЖФЦЮХШЩЭЁЪ"},
    {0, "оаниевтрікслпдмузябйчьгжцєфхюшїщґ", "ОАНИЕВТРІКСЛПДМУЗЯБЙЧЬГЖЦЄФХЮШЇЩҐ"},
    {0, "аениотрсвдпзклмъябучгжйфцшщхю", "АЕНИОТРСВДПЗКЛМЪЯБУЧГЖЙФЦШЩХЮ"},
    {0, "аеионртскупдвмзјлбгњчшцљжћхфђџ", "АЕИОНРТСКУПДВМЗЈЛБГЊЧШЦЉЖЋХФЂЏ"},
    {0, "αοετινσρμηπκυςλίδγέήόάχθωφύώβξζψϊΐϋ", "ΑΟΕΤΙΝΣΡΜΗΠΚΥΣΛΊΔΓΈΉΌΆΧΘΩΦΎΏΒΞΖΨΪ"},
    {0, "יותמהלרנאשבקפדסעגםחכטןצזךץף׳־״", ""},
    {0, "الميرتونةفدعسبحقكصأطجخهذإشضغزىثئءظؤـّ،آًُِ", ""},
    {0, "าอรมกนเงดลตแบยไสวขทพหจคปะชำใถฟโผซณญภธษ่้ีิัุู์ึื๊็ฉฐศฎฏ", ""},
};

constexpr auto Languages(std::size_t first, std::size_t last) {
  return std::span(kLanguages).subspan(first, last - first + 1);
}

constexpr auto kWestern = Languages(0, 9);
constexpr auto kCentral = Languages(10, 15);
constexpr auto kTurkish = Languages(16, 16);
constexpr auto kBaltic = Languages(17, 19);
constexpr auto kVietnamese = Languages(20, 20);
constexpr auto kCyrillic = Languages(21, 24);
constexpr auto kGreek = Languages(25, 25);
constexpr auto kHebrew = Languages(26, 26);
constexpr auto kArabic = Languages(27, 27);
constexpr auto kThai = Languages(28, 28);

struct CharacterRange {
  char32_t first = 1, last = 0;
  bool Contains(char32_t c) const { return c >= first && c <= last; }
};

constexpr CharacterRange kKana = {0x3041, 0x30FE}, kHan = {0x4E00, 0x9FFF}, kHangul = {0xAC00, 0xD7A3};
constexpr CharacterRange kNarrowKana = {0xFF61, 0xFF9F}, kWideForms = {0xFF01, 0xFF5E},
                         kMarks = {0x3000, 0x303F};

// Of an encoding with two bytes a character: the bytes of the characters in everyday use, and what these are.
struct BytePairs {
  unsigned char firstLead, lastLead, firstTrail;
  unsigned char lastSingle;  // of the characters from A1 (hex) on that have one byte alone; 0: there are none
  CharacterRange main;
};

struct Encoding {
  const char* name;
  std::span<const Language> languages;
  BytePairs pairs = {};
};

// Where several give the same texts, the first of them is named.
constexpr Encoding kEncodings[] = {
    {"windows-1252", kWestern},
    {"windows-1250", kCentral},
    {"windows-1251", kCyrillic},
    {"cp932", {}, {0x81, 0x98, 0x40, 0xDF, kKana}},
    {"gbk", {}, {0xA1, 0xD7, 0xA1, 0, kHan}},
    {"windows-1254", kTurkish},
    {"windows-1257", kBaltic},
    {"windows-1253", kGreek},
    {"windows-1255", kHebrew},
    {"windows-1256", kArabic},
    {"windows-1258", kVietnamese},
    {"cp874", kThai},
    {"iso-8859-2", kCentral},
    {"iso-8859-5", kCyrillic},
    {"koi8-r", kCyrillic.first(1)},
    {"koi8-u", kCyrillic.subspan(1, 1)},
    {"cp850", kWestern},
    {"cp852", kCentral},
    {"cp866", kCyrillic.first(3)},
    {"cp857", kTurkish},
    {"cp737", kGreek},
    {"macintosh", kWestern},
    {"euc-jp", {}, {0xA1, 0xCF, 0xA1, 0, kKana}},
    {"big5", {}, {0xA1, 0xC6, 0x40, 0, kHan}},
    {"cp949", {}, {0xA1, 0xC8, 0xA1, 0, kHangul}},
};

// What texts of any language may hold, also between letters.
constexpr std::u32string_view kSymbols = U"°±²³µ·½¼¾×€–—…’‘“”„«»§©®™\u00A0Ø№•¹¿¡";
constexpr std::u32string_view kWordSymbols = U"’·";
constexpr std::u32string_view kWideSymbols = U"×°±−‐―—…℃∅φΦ“”‘’";

// How likely a character is, as natural logarithms of its share in what is not ASCII.
constexpr double kOwnLetters = 0.94, kForeignLetter = -7.9, kSymbol = -6.9, kCapital = -1.9;
constexpr double kOneOf60 = -4.1, kOneOf600 = -6.4, kOneOf1200 = -7.1;

constexpr double kDoubt = 7;         // one to e to the power of 7, which leaves none
constexpr double kMaxForeign = 0.1;  // share of other languages' letters in texts that are surely of one
constexpr double kNameable = 12;     // how much less likely than the first one a name may be
constexpr std::size_t kMaxNames = 4;
constexpr std::size_t kMaxBytes = std::size_t{1} << 14;

bool Contains(std::u32string_view set, char32_t c) { return set.find(c) != set.npos; }
bool IsAsciiLetter(char32_t c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsAsciiWord(char32_t c) { return IsAsciiLetter(c) || (c >= '0' && c <= '9'); }

std::u32string Characters(std::string_view utf8) {
  std::u32string characters;
  for (Utf8Character next{}; !utf8.empty(); utf8.remove_prefix(next.length)) {
    next = DecodeUtf8(utf8);
    characters += next.code;
  }
  return characters;
}

struct Letter {
  double likelihood;
  bool isCapital;
  bool isLatin;
};

using Alphabet = std::map<char32_t, Letter>;

Alphabet AlphabetOf(const Language& language) {
  const std::u32string small = Characters(language.small), capital = Characters(language.capital);
  // The share of the n-th most frequent letter falls as 1/n, about.
  const auto share = [](std::size_t index) { return 1 / (1.5 + static_cast<double>(index)); };
  double sum = 0;
  for (std::size_t index = 0; index < small.size(); ++index) sum += share(index);
  Alphabet alphabet;
  for (std::size_t index = 0; index < small.size(); ++index) {
    const double likelihood = std::log(kOwnLetters * share(index) / sum);
    alphabet.emplace(small[index], Letter{likelihood, false, language.maxRun > 0});
    if (index < capital.size())
      alphabet.emplace(capital[index], Letter{likelihood + kCapital, true, language.maxRun > 0});
  }
  return alphabet;
}

/// The letters of all languages.
const Alphabet& AllLetters() {
  static const Alphabet all = [] {
    Alphabet letters;
    for (const Language& language : kLanguages) letters.merge(AlphabetOf(language));
    return letters;
  }();
  return all;
}

bool IsLetter(char32_t c) { return IsAsciiLetter(c) || (c >= 0x80 && AllLetters().contains(c)); }

struct Fit {
  double likelihood = 0;
  double foreign = 0;  // share of the letters of other languages; 1 without letters
};

/// How well texts fit a language; nothing when they cannot be of it: they hold a character that no such text
/// has, a sign or a capital inside a word, a word of two scripts.
class LanguageFit {
 public:
  explicit LanguageFit(const Language& language)
      : maxRun_(language.maxRun), alphabet_(AlphabetOf(language)) {}

  std::optional<Fit> Of(std::u32string_view text) {
    for (std::size_t at = 0; at < text.size() && isPossible_; ++at) {
      const char32_t before = at == 0 ? U'\n' : text[at - 1],
                     after = at + 1 < text.size() ? text[at + 1] : U'\n';
      if (IsLetter(text[at]))
        TakeLetter(text[at]);
      else
        TakeSign(text[at], IsLetter(before) && IsLetter(after));
    }
    EndWord();
    if (!isPossible_ || weakWords_ > strongWords_) return std::nullopt;
    return Fit{likelihood_, own_ + foreign_ > 0 ? foreign_ / (own_ + foreign_) : 1};
  }

 private:
  struct Word {
    int ascii = 0, others = 0, run = 0;
    bool endsSmall = false;
  };

  void TakeLetter(char32_t c) {
    const bool isAscii = c < 0x80;
    const bool isCapital = isAscii ? c <= 'Z' : AllLetters().at(c).isCapital;
    // A name may be of its own making, such as "McDonald"; one that is not ASCII hardly is.
    if (isCapital && word_.endsSmall && (!isAscii || word_.run > 0)) isPossible_ = false;
    word_.run = isAscii ? 0 : word_.run + 1;
    if (maxRun_ > 0 && word_.run > maxRun_) isPossible_ = false;
    (isAscii ? word_.ascii : word_.others) += 1;
    word_.endsSmall = !isCapital;
    if (isAscii) return;
    const auto own = alphabet_.find(c);
    if (own != alphabet_.end()) {
      own_ += 1;
      likelihood_ += own->second.likelihood;
      return;
    }
    foreign_ += 1;
    likelihood_ += kForeignLetter;
    if (maxRun_ == 0 || !AllLetters().at(c).isLatin) isPossible_ = false;
  }

  void TakeSign(char32_t c, bool isInWord) {
    if (!Contains(kWordSymbols, c)) EndWord();
    if (c < 0x80) return;
    likelihood_ += kSymbol;
    if (!Contains(kSymbols, c) || (isInWord && !Contains(kWordSymbols, c))) isPossible_ = false;
  }

  void EndWord() {
    if (maxRun_ == 0 && word_.ascii > 0 && word_.others > 0) isPossible_ = false;
    const bool isStrong = maxRun_ > 0 ? word_.ascii > 0 : word_.others > 2;
    if (word_.others > 0) (isStrong ? strongWords_ : weakWords_) += 1;
    word_ = {};
  }

  const int maxRun_;
  const Alphabet alphabet_;
  Word word_;
  bool isPossible_ = true;
  double likelihood_ = 0, own_ = 0, foreign_ = 0;
  int strongWords_ = 0, weakWords_ = 0;
};

/// Whether the bytes are those of characters in everyday use.
bool IsEveryday(std::string_view bytes, const BytePairs& pairs) {
  const auto byte = [&](std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
  };
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const auto lead = byte(at);
    if (lead < 0x80 || (lead >= 0xA1 && lead <= pairs.lastSingle)) continue;
    if (lead < pairs.firstLead || lead > pairs.lastLead || byte(++at) < pairs.firstTrail) return false;
  }
  return true;
}

/// The same for two bytes a character. Single characters between letters of ASCII are hardly text.
std::optional<Fit> FitOfPairs(std::string_view bytes, std::u32string_view text, const BytePairs& pairs) {
  if (!IsEveryday(bytes, pairs)) return std::nullopt;
  const bool hasKana = pairs.main.Contains(kKana.first);
  int main = 0, han = 0, all = 0, alone = 0;
  double likelihood = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char32_t c = text[at];
    if (c < 0x80) continue;
    const bool isSign = kMarks.Contains(c) || kWideForms.Contains(c) || Contains(kWideSymbols, c);
    const bool isMain = pairs.main.Contains(c) || (hasKana && kNarrowKana.Contains(c));
    if (!isSign && !isMain && !(hasKana && kHan.Contains(c))) return std::nullopt;
    likelihood += kHan.Contains(c) ? kOneOf1200 : kHangul.Contains(c) ? kOneOf600 : kOneOf60;
    ++all;
    main += isMain;
    han += kHan.Contains(c);
    alone += at > 0 && at + 1 < text.size() && IsAsciiWord(text[at - 1]) && IsAsciiWord(text[at + 1]);
  }
  const bool isNames = hasKana && han == all && han >= 4 && alone == 0;  // of companies, without a kana
  if ((10 * main < all && !isNames) || 2 * alone > all) return std::nullopt;
  return Fit{likelihood};
}

/// The best fit of the texts to a language of the encoding.
std::optional<Fit> BestFit(std::string_view bytes, const std::string& utf8, const Encoding& encoding) {
  const std::u32string text = Characters(utf8);
  if (encoding.languages.empty()) return FitOfPairs(bytes, text, encoding.pairs);
  std::optional<Fit> best;
  for (const Language& language : encoding.languages) {
    const std::optional<Fit> fit = LanguageFit(language).Of(text);
    if (fit && (!best || fit->likelihood > best->likelihood)) best = fit;
  }
  return best;
}

std::optional<Fit> FitOfUtf8(std::string_view bytes) {
  Fit fit;
  for (const char32_t c : Characters(bytes)) {
    if (c == kIllFormed) return std::nullopt;
    if (c >= 0x80) fit.likelihood += kOneOf60;
  }
  return fit;
}

/// The different fields that are not ASCII, each on a line.
std::string FieldsOf(const std::vector<std::string_view>& lines) {
  std::set<std::string_view> fields;
  std::size_t size = 0;
  for (std::string_view line : lines) {
    if (IsAscii(line)) continue;
    while (!line.empty() && size < kMaxBytes) {
      const std::string_view field = line.substr(0, line.find_first_of(",;\t"));
      if (!IsAscii(field) && fields.insert(field).second) size += field.size() + 1;
      line.remove_prefix(std::min(field.size() + 1, line.size()));
    }
  }
  std::string joined;
  for (const std::string_view field : fields) joined.append(field).append("\n");
  return joined;
}

struct Candidate {
  std::string name;  // empty: what the texts are read in now
  std::string text;
  Fit fit;
};

std::vector<Candidate> CandidatesFor(const std::string& fields, const TextCoding& current) {
  std::vector<Candidate> candidates;
  const auto add = [&](const char* name, std::string text, const std::optional<Fit>& fit) {
    if (!fit) return;
    const auto same = std::ranges::find(candidates, text, &Candidate::text);
    if (same == candidates.end())
      candidates.push_back({name, std::move(text), *fit});
    else if (fit->likelihood > same->fit.likelihood)
      same->fit = *fit;
  };
  add("utf-8", fields, FitOfUtf8(fields));
  for (const Encoding& encoding : kEncodings)
    if (auto text = DecodeText(fields, encoding.name))
      add(encoding.name, *text, BestFit(fields, *text, encoding));
  const std::string now = current.Decode(fields);
  add("", now, BestFit(fields, now, {"", kLanguages}));
  std::ranges::sort(candidates, std::greater(), [](const Candidate& known) { return known.fit.likelihood; });
  for (Candidate& candidate : candidates)
    if (candidate.text == now) candidate.name.clear();
  return candidates;
}

}  // namespace

EncodingGuess GuessEncoding(const std::vector<std::string_view>& lines, const TextCoding& current) {
  const std::vector<Candidate> candidates = CandidatesFor(FieldsOf(lines), current);
  EncodingGuess guess;
  if (candidates.empty()) return guess;
  const double best = candidates.front().fit.likelihood;
  for (const Candidate& candidate : candidates)
    if (best - candidate.fit.likelihood < kNameable && guess.names.size() < kMaxNames &&
        !candidate.name.empty())
      guess.names.push_back(candidate.name);
  guess.isSure = !candidates.front().name.empty() && candidates.front().fit.foreign <= kMaxForeign &&
                 (candidates.size() == 1 || best - candidates[1].fit.likelihood >= kDoubt);
  return guess;
}

std::string_view WideEncodingOf(std::string_view bytes) {
  using namespace std::string_view_literals;
  if (bytes.starts_with("\xFF\xFE\0\0"sv) || bytes.starts_with("\0\0\xFE\xFF"sv)) return "UTF-32";
  if (bytes.starts_with("\xFF\xFE"sv) || bytes.starts_with("\xFE\xFF"sv)) return "UTF-16";
  std::size_t nuls[4] = {0, 0, 0, 0};
  for (std::size_t at = 0; at < bytes.size(); ++at) nuls[at % 4] += bytes[at] == '\0';
  const auto isMost = [all = bytes.size() / 4](std::size_t count) {
    return count > 0 && 10 * count >= 9 * all;
  };
  if ((isMost(nuls[0]) && isMost(nuls[1]) && !isMost(nuls[3])) ||
      (isMost(nuls[3]) && isMost(nuls[2]) && !isMost(nuls[0])))
    return "UTF-32";
  // NUL bytes that a disk left behind a text are at odd and at even places.
  const std::size_t even = nuls[0] + nuls[2], odd = nuls[1] + nuls[3];
  if (8 * std::min(even, odd) >= std::max(even, odd)) return {};
  const bool isLatin = bytes.size() > 3 && 3 * std::max(even, odd) > bytes.size();
  const std::string_view lineFeed = odd > even ? "\n\0"sv : "\0\n"sv;
  bool hasLineFeed = false;
  for (std::size_t at = 0; at + 1 < bytes.size() && !hasLineFeed; at += 2)
    hasLineFeed = bytes.substr(at, 2) == lineFeed;
  return isLatin || (hasLineFeed && 50 * std::max(even, odd) > bytes.size()) ? "UTF-16" : std::string_view();
}

}  // namespace qv
