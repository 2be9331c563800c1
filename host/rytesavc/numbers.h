// The text forms of numbers, the same in every locale.
#pragma once

#include <string_view>

namespace rytesavc {

// Blanks around the number and a sign are accepted; an int may also be written as a real number of integral
// value. False leaves the variable alone.
bool ReadNumber(std::string_view text, int& value);
bool ReadNumber(std::string_view text, double& value);

// The shortest form that reads back to the same value.
class NumberText {
 public:
  explicit NumberText(int value);
  explicit NumberText(double value);
  std::string_view view() const { return {chars_, length_}; }

 private:
  char chars_[32];
  std::size_t length_;
};

}  // namespace rytesavc
