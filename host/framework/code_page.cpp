#include "rytree_host/code_page.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <mutex>

#include "character_sets.h"
#include "rytree_host/find_stretch.h"

std::atomic<const CodePage*> CodePage::default_;

struct CodePage::Listed {
  const char* charset;
  int number;
  bool has_pairs;
};

constexpr CodePage::Listed CodePage::kPages[] = {
    {"CP1250", 1250, false}, {"CP1251", 1251, false},     {"CP1252", 1252, false}, {"CP1253", 1253, false},
    {"CP1254", 1254, false}, {"CP1255", 1255, false},     {"CP1256", 1256, false}, {"CP1257", 1257, false},
    {"CP1258", 1258, false}, {"CP932", 932, true},        {"CP936", 936, true},    {"CP949", 949, true},
    {"CP950", 950, true},    {"ISO-8859-1", 28591, false}};

namespace {

constexpr int kUtf8 = 65001;

}  // namespace

CodePage::CodePage(const Listed& page) : number_(page.number) {}

std::unique_ptr<const CodePage> CodePage::Build(const Listed& listed) {
  const std::unique_ptr<platform::CharacterSet> set = OpenCharacterSet(listed.charset);
  if (set == nullptr) return nullptr;
  std::unique_ptr<CodePage> page(new CodePage(listed));
  const auto add = [&](std::string_view bytes, std::size_t number) {
    const platform::Utf8Character character = set->Character(bytes);
    const char* at = character.data();
    const char32_t code = utf8::next(at);
    if (code < 0x80 || code >= 0xFFFE || set->Bytes(code) != bytes) return false;
    page->codes_[number] = static_cast<char16_t>(code);
    page->bytes_[code] = static_cast<char16_t>(number);
    return true;
  };
  for (unsigned first = 0x80; first < 0x100; ++first) {
    const char lead = static_cast<char>(first);
    if (add({&lead, 1}, first) || !listed.has_pairs) continue;
    for (unsigned second = 0x40; second < 0x100; ++second) {
      const char both[] = {lead, static_cast<char>(second)};
      if (!add({both, 2}, 256 * first + second)) continue;
      page->roles_[first] |= kStarts;
      page->roles_[second] |= kEnds;
    }
  }
  return page;
}

bool CodePage::SetDefault(int number) {
  // Pages are built when they are first set, and kept, because other threads may be using them.
  static std::mutex building;
  static std::array<std::unique_ptr<const CodePage>, std::size(kPages)> built;
  if (number == kUtf8) {
    default_.store(nullptr, std::memory_order_release);
    return true;
  }
  const std::lock_guard lock(building);
  for (std::size_t i = 0; i < std::size(kPages); ++i) {
    if (kPages[i].number != number) continue;
    if (built[i] == nullptr) built[i] = Build(kPages[i]);
    if (built[i] == nullptr) return false;
    default_.store(built[i].get(), std::memory_order_release);
    return true;
  }
  return false;
}

bool CodePage::Append(std::string& text, char32_t code) const {
  if (!Has(code) && code < utf8::kStray) return false;
  const char32_t bytes = code < 0x80 ? code : code < utf8::kStray ? bytes_[code] : code - utf8::kStray;
  if (bytes >= 0x100) text += static_cast<char>(bytes >> 8U);
  text += static_cast<char>(bytes & 0xFFU);
  return true;
}

std::size_t CodePage::ToUtf8(std::string_view text, std::string& to) const {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const char* const start = at;
    const char32_t code = Next(at, static_cast<std::size_t>(end - at));
    if (code >= utf8::kStray) return static_cast<std::size_t>(start - text.data());
    utf8::append(to, code);
  }
  return text.size();
}

std::size_t CodePage::FromUtf8(std::string_view text, std::string& to) const {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const char* const start = at;
    const char32_t code = utf8::next(at, static_cast<std::size_t>(end - at));
    if (code >= utf8::kStray || !Append(to, code)) return static_cast<std::size_t>(start - text.data());
  }
  return text.size();
}

void NarrowCharacters::Append(std::string& text, char32_t code, char32_t converted) const {
  if (page_ == nullptr) {
    utf8::append(text, converted);
  } else {
    page_->Append(text, page_->Has(converted) ? converted : code);
  }
}

std::size_t NarrowCharacters::StartOf(std::string_view text, std::size_t place) const noexcept {
  if (place >= text.size()) return text.size();
  std::size_t from = place;
  if (page_ == nullptr) {
    from -= std::min<std::size_t>(place, 3);
  } else {  // a character starts after any byte that cannot start a pair
    while (from > 0 && page_->StartsPair(text[from - 1])) --from;
  }
  for (;;) {
    const char* end = text.data() + from;
    Next(end, text.size() - from);
    const auto next = static_cast<std::size_t>(end - text.data());
    if (next > place) return from;
    from = next;
  }
}

// The first start of a character at or after `place`, counted from one before.
std::size_t NarrowCharacters::Skip(std::string_view text, std::size_t from,
                                   std::size_t place) const noexcept {
  const char* at = text.data() + from;
  const char* const end = text.data() + text.size();
  while (at < text.data() + place) Next(at, static_cast<std::size_t>(end - at));
  return static_cast<std::size_t>(at - text.data());
}

// The same for what has bytes that can be parts of a character at its ends.
bool NarrowCharacters::EndsWhole(std::string_view wanted) const noexcept {
  if (page_ != nullptr) return false;
  const char* at = wanted.data();
  if (Next(at, wanted.size()) >= utf8::kStray) return false;
  at = wanted.data() + StartOf(wanted, wanted.size() - 1);
  return Next(at, static_cast<std::size_t>(wanted.data() + wanted.size() - at)) < utf8::kStray;
}

std::size_t NarrowCharacters::Find(std::string_view text, std::string_view wanted, std::size_t start) const {
  // The plain search is the fastest for most texts, but takes longer the longer `wanted` is.
  constexpr std::size_t kLong = 64;
  const bool is_long = wanted.size() >= kLong;
  if (IsWhole(wanted)) return is_long ? FindStretch(text, wanted, start) : text.find(wanted, start);
  if (is_long) return FindCharacters(text, wanted, start);
  std::size_t at = text.find(wanted, start);
  for (std::size_t whole = start; at != std::string_view::npos; at = text.find(wanted, at + 1)) {
    whole = Skip(text, whole, at);
    const std::size_t end = at + wanted.size();
    if (whole == at && Skip(text, at, end) == end) break;
  }
  return at;
}

std::size_t NarrowCharacters::FindCharacters(std::string_view text, std::string_view wanted,
                                             std::size_t start) const {
  const auto codes = [this](std::string_view bytes) {
    std::u32string all;
    for (const char* at = bytes.data(); at != bytes.data() + bytes.size();)
      all += Next(at, static_cast<std::size_t>(bytes.data() + bytes.size() - at));
    return all;
  };
  const std::u32string all = codes(text.substr(std::min(start, text.size())));
  const std::u32string stretch = codes(wanted);
  std::size_t left = FindStretch(std::u32string_view(all), std::u32string_view(stretch), 0);
  if (left == all.npos) return std::string_view::npos;
  const char* at = text.data() + start;
  for (; left > 0; --left) Next(at);
  return static_cast<std::size_t>(at - text.data());
}
