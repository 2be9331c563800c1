#include "rytree_host/cstring.h"

#include <cstdio>
#include <cstring>

#include "rytree_host/find_stretch.h"
#include "rytree_host/multibyte.h"
#include "rytree_host/utf8.h"

namespace {

int Position(std::size_t found) noexcept {
  return found == std::string::npos || found > INT_MAX ? -1 : static_cast<int>(found);
}

// The plain search is the fastest for most texts, but takes longer the longer `wanted` is.
std::size_t FindText(std::string_view text, std::string_view wanted, std::size_t from) {
  constexpr std::size_t kLong = 64;
  return wanted.size() < kLong ? text.find(wanted, from) : FindStretch(text, wanted, from);
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

// Converts ASCII in place. From the first other byte on it writes a new string, because lengths may change.
void ChangeCase(std::string& text, char32_t (*convert)(char32_t)) {
  std::size_t done = 0;
  for (; done < text.size() && static_cast<unsigned char>(text[done]) < 0x80; ++done) {
    text[done] = static_cast<char>(convert(static_cast<char32_t>(text[done])));
  }
  if (done == text.size()) return;
  std::string changed = text.substr(0, done);
  changed.reserve(text.size());
  const char* const end = text.data() + text.size();
  for (const char* rest = text.data() + done; rest < end;) utf8::append(changed, convert(utf8::next(rest)));
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

int CString::Find(const char* text, int start) const {
  return Position(FindText(View(), Narrow(text), Count(start)));
}

int CString::Find(char character, int start) const noexcept {
  return Position(View().find(character, Count(start)));
}

int CString::ReverseFind(char character) const noexcept { return Position(View().rfind(character)); }

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

int CString::Remove(char character) { return static_cast<int>(std::erase(text_, character)); }

int CString::Replace(const char* old, const char* now) {
  const std::string_view wanted = Narrow(old);
  if (wanted.empty()) return 0;
  std::string replaced;
  std::size_t done = 0;
  int places = 0;
  for (std::size_t at = 0; (at = FindText(text_, wanted, done)) != std::string::npos; ++places) {
    replaced.append(text_, done, at - done).append(Narrow(now));
    done = at + wanted.size();
  }
  if (places) text_ = replaced.append(text_, done);
  return places;
}

int CString::Replace(char old, char now) noexcept {
  const auto places = std::count(text_.begin(), text_.end(), old);
  std::replace(text_.begin(), text_.end(), old, now);
  return static_cast<int>(places);
}

CString& CString::TrimLeft(const char* set) {
  text_.erase(0, std::min(text_.find_first_not_of(Narrow(set)), text_.size()));
  return *this;
}

CString& CString::TrimLeft(char character) {
  text_.erase(0, std::min(text_.find_first_not_of(character), text_.size()));
  return *this;
}

CString& CString::TrimRight(const char* set) {
  text_.erase(text_.find_last_not_of(Narrow(set)) + 1);
  return *this;
}

CString& CString::TrimRight(char character) {
  text_.erase(text_.find_last_not_of(character) + 1);
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
