// Texts that are the shortest form of an int: the int alone gives them back.
#pragma once

#include "rytree_host/detail/text_words.h"

namespace rytesavc {

// The number that eight digits make, from 0 to 9 each.
inline int NumberOf(Word digits) {
  // Each pair of digits becomes one number, then each pair of these.
  digits = (digits * 10 + (digits >> 8)) & 0x00FF00FF00FF00FF;
  digits = (digits * 100 + (digits >> 16)) & 0x0000FFFF0000FFFF;
  digits = digits * 10000 + (digits >> 32);
  return static_cast<int>(digits & 0xFFFFFFFF);
}

// The high bit of each byte that is not a digit from 0 to 9, if all before it are.
inline Word MarkOthers(Word digits) { return ((digits + EachByte(0x80 - 10)) | digits) & EachByte(0x80); }

// For texts of up to eight bytes.
inline bool IsShortPlainInt(std::size_t length, Word text, int& number) {
  const bool negative = (text & 0xFF) == '-';
  if (negative) {
    text >>= 8;
    --length;
  }
  const Word first = (text & 0xFF) - '0';
  if (first > 9) return false;
  // Eight digits, with zeros in front.
  const Word digits = (text ^ EachByte('0')) << (8 * (sizeof(Word) - length));
  if (MarkOthers(digits) != 0 || (first == 0 && (length != 1 || negative))) return false;
  number = NumberOf(digits);
  if (negative) number = -number;
  return true;
}

// How many digits there are at the start of a text of at least eight bytes, if they are all of a plain int up to what
// comes next, and not more than eight; else 0.
inline std::size_t PlainIntAt(const char* at, int& number) {
  const Word digits = LoadWord(at) ^ EachByte('0');
  const auto length = static_cast<std::size_t>(std::countr_zero(MarkOthers(digits))) / 8;
  if (length == 0 || ((digits & 0xFF) == 0 && length != 1)) return 0;
  number = NumberOf(digits << (8 * (sizeof(Word) - length)));
  return length;
}

// For texts of nine to sixteen.
bool IsLongPlainInt(std::size_t length, const TextWords& words, int& number);

inline bool IsPlainInt(std::size_t length, const TextWords& words, int& number) {
  if (length <= sizeof(Word)) return IsShortPlainInt(length, words.low, number);
  return (words.low & 0xFF) <= '9' && IsLongPlainInt(length, words, number);
}

}  // namespace rytesavc
