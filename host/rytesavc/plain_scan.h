// Finds the bytes of UTF-8 text at which a reader must stop, 16 at a time.
//
// The text must end with a NUL, which XML never has, and kPadding bytes from there on must be readable. So
// none of these loops has to ask how much is left.
#pragma once

#include <bit>
#include <cstddef>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "rytree_host/detail/text_words.h"
#include "xml_characters.h"

namespace rytesavc {

inline constexpr std::size_t kPadding = 2 * TextWords::kBytes;

// Which of the next 16 bytes is the first that is below `kLeast`, beyond ASCII or one of the stops; 16 for
// none. Compilers that define __SSE2__ have the operator | for vectors too; others get the plain form.
#if defined(__SSE2__)
template <char kLeast, char... kStops>
inline std::size_t FirstStop(const char* at) {
  const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
  // Each byte of `stops` has the high bit where there is one. As signed numbers, bytes beyond ASCII are the lowest, and
  // stay below 0.
  const __m128i stops =
      _mm_subs_epi8(bytes, _mm_set1_epi8(kLeast)) | (_mm_cmpeq_epi8(bytes, _mm_set1_epi8(kStops)) | ...);
  return static_cast<std::size_t>(
      std::countr_zero(static_cast<unsigned>(_mm_movemask_epi8(stops)) | 0x10000U));
}

// How many of the next 16 bytes are whole characters before the first stop or control character. Rare ones end it too:
// those of four bytes, and those whose first byte may not be followed by just any bytes from 0x80 to 0xBF.
template <char... kStops>
inline std::size_t CommonLength(const char* at) {
  const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
  const auto bits = [](__m128i marks) { return static_cast<unsigned>(_mm_movemask_epi8(marks)); };
  const auto below = [&](int byte) { return _mm_cmplt_epi8(bytes, _mm_set1_epi8(static_cast<char>(byte))); };
  const auto same = [&](int byte) { return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(static_cast<char>(byte))); };
  const unsigned beyond = bits(bytes);
  const unsigned next = bits(below(0xC0));  // the second and third bytes of characters
  const unsigned first = beyond & ~next;
  const unsigned first_of_three = first & ~bits(below(0xE0));
  const unsigned rare = first & (bits(below(0xC2) | same(0xE0) | same(0xED)) | ~bits(below(0xEF)));
  const unsigned stops = bits(below(0x20) | (same(kStops) | ...)) & ~beyond;
  const unsigned second = first << 1;
  const unsigned third = first_of_three << 2;
  const auto end = static_cast<std::size_t>(
      std::countr_zero(((next ^ (second | third)) & 0xFFFFU) | rare | stops | 0x10000U));
  return end - (second >> end & 1) - std::size_t{2} * (third >> end & 1);
}
#else
// Marks such bytes by their high bits. Only the lowest mark can be relied on: a byte too small for what is
// subtracted from it borrows from the next one.
template <char kLeast, char... kStops>
constexpr Word MarkStops(Word word) {
  return (word | (word - EachByte(kLeast)) | (((word ^ EachByte(kStops)) - EachByte(1)) | ...)) &
         EachByte(0x80);
}

template <char kLeast, char... kStops>
inline std::size_t FirstStop(const char* at) {
  const Word low = MarkStops<kLeast, kStops...>(LoadWord(at));
  const Word high = MarkStops<kLeast, kStops...>(LoadWord(at + sizeof(Word)));
  return static_cast<std::size_t>(low != 0 ? std::countr_zero(low) : 64 + std::countr_zero(high)) / 8;
}

// Here, all beyond ASCII are rare.
template <char... kStops>
inline std::size_t CommonLength(const char* at) {
  return FirstStop<0x20, kStops...>(at);
}
#endif

// Skip, for text that is not all ASCII.
template <char... kStops>
[[gnu::noinline]] char* SkipMixed(char* at) {
  constexpr std::size_t kLongestCommon = 3;
  for (;;) {
    const std::size_t common = CommonLength<kStops...>(at);
    at += common;
    if (common > TextWords::kBytes - kLongestCommon) continue;
    if (static_cast<signed char>(*at) >= 0) return at;
    const std::size_t rare = CharacterLength({at, kPadding});
    if (rare == 0) return at;
    at += rare;
  }
}

// Gives the first byte that is a stop, a control character (which most white space is) or part of no
// character.
template <char... kStops>
inline char* Skip(char* at) {
  for (;;) {
    const std::size_t length = FirstStop<0x20, kStops...>(at);
    at += length;
    if (length < TextWords::kBytes) return static_cast<signed char>(*at) >= 0 ? at : SkipMixed<kStops...>(at);
  }
}

template <class Char>
inline Char* SkipBlanks(Char* at) {
  while (IsXmlBlank(*at)) ++at;
  return at;
}

// The same, faster where it is a line end and an indentation.
inline char* SkipLayout(char* at) {
  if (*at == '\n' && IsXmlBlank(*++at)) {
    const Word indentation = EachByte(static_cast<unsigned char>(*at));
    Word other = 0;
    while ((other = LoadWord(at) ^ indentation) == 0) at += sizeof(Word);
    at += std::countr_zero(other) / 8;
  }
  return SkipBlanks(at);
}

// How many bytes there are before white space or one of the ends. Whether they are a name is for others to say.
template <char... kEnds>
inline std::size_t NameLength(const char* at) {
  for (std::size_t length = 0;; ++length) {
    std::size_t more = 0;
    while ((more = FirstStop<0x21, kEnds...>(at + length)) == TextWords::kBytes) length += more;
    length += more;
    if (static_cast<signed char>(at[length]) >= 0) return length;
  }
}

}  // namespace rytesavc
