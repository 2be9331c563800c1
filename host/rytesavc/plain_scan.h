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
// none.
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
#endif

// Past the characters beyond ASCII that start at `at`: gives the first byte that belongs to none.
char* SkipBeyondAscii(char* at);

// Gives the first byte that is a stop, a control character (which most white space is) or part of no
// character.
template <char... kStops>
inline char* Skip(char* at) {
  for (;;) {
    const std::size_t length = FirstStop<0x20, kStops...>(at);
    at += length;
    if (length == TextWords::kBytes) continue;
    if (static_cast<signed char>(*at) >= 0) return at;
    at = SkipBeyondAscii(at);
    if (static_cast<signed char>(*at) < 0) return at;
  }
}

inline char* SkipBlanks(char* at) {
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

// How many bytes there are before white space or one of the ends. If they are a name is for others to say.
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
