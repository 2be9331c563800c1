// Texts that are the shortest form of an int: the int alone gives them back.
#pragma once

#include "rytree_host/detail/text_words.h"

namespace rytesavc {

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
  Word digits = (text ^ EachByte('0')) << (8 * (sizeof(Word) - length));
  const bool only_digits = (((digits + EachByte(0x80 - 10)) | digits) & EachByte(0x80)) == 0;
  if (!only_digits || (first == 0 && (length != 1 || negative))) return false;
  // Each pair of digits becomes one number, then each pair of these.
  digits = (digits * 10 + (digits >> 8)) & 0x00FF00FF00FF00FF;
  digits = (digits * 100 + (digits >> 16)) & 0x0000FFFF0000FFFF;
  digits = digits * 10000 + (digits >> 32);
  number = static_cast<int>(digits & 0xFFFFFFFF);
  if (negative) number = -number;
  return true;
}

// For texts of nine to sixteen.
bool IsLongPlainInt(std::size_t length, const TextWords& words, int& number);

inline bool IsPlainInt(std::size_t length, const TextWords& words, int& number) {
  if (length <= sizeof(Word)) return IsShortPlainInt(length, words.low, number);
  return (words.low & 0xFF) <= '9' && IsLongPlainInt(length, words, number);
}

}  // namespace rytesavc
