#include "numbers.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace rytesavc {

namespace {

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

// What std::from_chars takes: no blanks around it, and no plus sign.
std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  return text;
}

template <class Number>
bool Whole(std::string_view text, Number& value) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return false;
  value = number;
  return true;
}

}  // namespace

bool ReadNumber(std::string_view text, int& value) {
  text = Trim(text);
  if (Whole(text, value)) return true;
  double real = 0;
  if (!Whole(text, real) ||
      !(real >= std::numeric_limits<int>::min() && real <= std::numeric_limits<int>::max()) ||
      real != std::floor(real)) {
    return false;
  }
  value = static_cast<int>(real);
  return true;
}

bool ReadNumber(std::string_view text, double& value) { return Whole(Trim(text), value); }

NumberText::NumberText(int value)
    : length_(static_cast<std::size_t>(std::to_chars(chars_, chars_ + sizeof chars_, value).ptr - chars_)) {}

NumberText::NumberText(double value)
    : length_(static_cast<std::size_t>(std::to_chars(chars_, chars_ + sizeof chars_, value).ptr - chars_)) {}

}  // namespace rytesavc
