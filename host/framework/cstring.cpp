#include "rytree_host/cstring.h"

#include <cstdio>
#include <cstring>

#include "rytree_host/code_page.h"
#include "rytree_host/multibyte.h"
#include "rytree_host/utf8.h"

namespace {

int Position(std::size_t found) noexcept {
  return found == std::string::npos || found > INT_MAX ? -1 : static_cast<int>(found);
}

std::string Formatted(const char* format, std::va_list arguments) {
  char small[256];
  std::va_list again;
  va_copy(again, arguments);
  const int length = format ? std::vsnprintf(small, sizeof small, format, arguments) : 0;
  std::string text;
  if (length > 0 && static_cast<std::size_t>(length) < sizeof small) {
    text.assign(small, static_cast<std::size_t>(length));
  } else if (length > 0) {
    text.resize(static_cast<std::size_t>(length));
    std::vsnprintf(text.data(), text.size() + 1, format, again);
  }
  va_end(again);
  return text;
}

// The place of a text, looked for from `start` on. A character that `start` splits is passed over.
int Found(std::string_view text, std::string_view wanted, std::size_t start) {
  if (start > text.size()) return -1;
  const NarrowCharacters characters;
  if (start > 0 && !characters.IsWhole(wanted)) {
    while (characters.StartOf(text, start) != start) ++start;
  }
  return Position(characters.Find(text, wanted, start));
}

// The part of the text without the characters of the set at its front or at its end.
enum Side { kFront, kEnd };
std::string_view Trimmed(std::string_view text, std::string_view set, Side side) noexcept {
  const NarrowCharacters characters;
  if (std::all_of(set.begin(), set.end(), [&](char byte) { return characters.StandsAlone(byte); })) {
    if (side == kFront) return text.substr(std::min(text.find_first_not_of(set), text.size()));
    return text.substr(0, text.find_last_not_of(set) + 1);
  }
  const char* const end = text.data() + text.size();
  const char* kept = text.data();  // where the last character that stays ends
  for (const char* at = text.data(); at < end;) {
    const char* const start = at;
    const char32_t code = characters.Next(at, static_cast<std::size_t>(end - at));
    bool stays = true;
    for (const char* one = set.data(); stays && one < set.data() + set.size();)
      stays = code != characters.Next(one, static_cast<std::size_t>(set.data() + set.size() - one));
    if (stays && side == kFront) return {start, static_cast<std::size_t>(end - start)};
    if (stays) kept = at;
  }
  return side == kFront ? std::string_view() : text.substr(0, static_cast<std::size_t>(kept - text.data()));
}

// Converts ASCII in place. From the first other byte on it writes a new string, because lengths may change.
void ChangeCase(std::string& text, char32_t (*convert)(char32_t)) {
  std::size_t done = 0;
  for (; done < text.size() && static_cast<unsigned char>(text[done]) < 0x80; ++done) {
    text[done] = static_cast<char>(convert(static_cast<char32_t>(text[done])));
  }
  if (done == text.size()) return;
  std::string changed = text.substr(0, done);
  changed.reserve(text.size());
  const NarrowCharacters characters;
  const char* const end = text.data() + text.size();
  for (const char* rest = text.data() + done; rest < end;) {
    const char32_t code = characters.Next(rest);
    characters.Append(changed, code, convert(code));
  }
  text = std::move(changed);
}

}  // namespace

int CString::CompareNoCase(const char* text) const noexcept { return _mbsicmp(*this, text); }

void CString::Format(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  FormatV(format, arguments);
  va_end(arguments);
}

void CString::FormatV(const char* format, std::va_list arguments) { text_ = Formatted(format, arguments); }

void CString::AppendFormat(const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  text_ += Formatted(format, arguments);
  va_end(arguments);
}

int CString::Find(const char* text, int start) const { return Found(View(), Narrow(text), Count(start)); }

int CString::Find(char character, int start) const noexcept {
  if (NarrowCharacters().StandsAlone(character)) return Position(View().find(character, Count(start)));
  return Found(View(), {&character, 1}, Count(start));
}

int CString::ReverseFind(char character) const noexcept {
  const NarrowCharacters characters;
  if (characters.StandsAlone(character)) return Position(View().rfind(character));
  std::size_t last = std::string::npos;
  for (std::size_t at = 0; (at = characters.Find(text_, {&character, 1}, at)) != std::string::npos; ++at)
    last = at;
  return Position(last);
}

int CString::Insert(int index, const char* text) {
  text_.insert(Place(index), Narrow(text));
  return GetLength();
}

int CString::Insert(int index, char character) {
  text_.insert(Place(index), 1, character);
  return GetLength();
}

int CString::Delete(int index, int count) {
  text_.erase(Place(index), Count(count));
  return GetLength();
}

int CString::Remove(char character) {
  if (NarrowCharacters().StandsAlone(character)) return static_cast<int>(std::erase(text_, character));
  const char text[] = {character, '\0'};
  return Replace(text, "");
}

int CString::Replace(const char* old, const char* now) {
  const std::string_view wanted = Narrow(old);
  if (wanted.empty()) return 0;
  const NarrowCharacters characters;
  std::string replaced;
  std::size_t done = 0;
  int places = 0;
  for (std::size_t at = 0; (at = characters.Find(text_, wanted, done)) != std::string::npos; ++places) {
    replaced.append(text_, done, at - done).append(Narrow(now));
    done = at + wanted.size();
  }
  if (places) text_ = replaced.append(text_, done);
  return places;
}

int CString::Replace(char old, char now) noexcept {
  const NarrowCharacters characters;
  int places = 0;
  for (std::size_t at = 0; (at = characters.Find(text_, {&old, 1}, at)) != std::string::npos; ++at, ++places)
    text_[at] = now;
  return places;
}

CString& CString::TrimLeft(const char* set) {
  text_.erase(0, text_.size() - Trimmed(text_, Narrow(set), kFront).size());
  return *this;
}

CString& CString::TrimLeft(char character) {
  text_.erase(0, text_.size() - Trimmed(text_, {&character, 1}, kFront).size());
  return *this;
}

CString& CString::TrimRight(const char* set) {
  text_.erase(Trimmed(text_, Narrow(set), kEnd).size());
  return *this;
}

CString& CString::TrimRight(char character) {
  text_.erase(Trimmed(text_, {&character, 1}, kEnd).size());
  return *this;
}

CString& CString::MakeUpper() {
  ChangeCase(text_, utf8::upper);
  return *this;
}

CString& CString::MakeLower() {
  ChangeCase(text_, utf8::lower);
  return *this;
}

char* CString::GetBuffer(int length) {
  if (text_.size() < Count(length)) text_.resize(Count(length));
  return text_.data();
}

char* CString::GetBufferSetLength(int length) {
  text_.resize(Count(length));
  return text_.data();
}

void CString::ReleaseBuffer(int length) noexcept {
  text_.erase(length < 0 ? std::strlen(text_.c_str()) : Place(length));
}
