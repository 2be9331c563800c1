// Values as texts, in the shortest form that gives the same number back.
#pragma once

#include <charconv>
#include <climits>
#include <cmath>
#include <cstring>
#include <sstream>

#include "rytree_host/framework.h"

template <class Value>
std::string text_of(const Value& value) {
  if constexpr (std::is_same_v<Value, bool>) {
    return std::memcmp(&value, "", 1) != 0 ? "1" : "0";  // a bool from outside may be any byte
  } else if constexpr (std::is_arithmetic_v<Value>) {
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof digits, value).ptr};
  } else {
    std::string list;
    for (const double number : value) list.append(list.empty() ? "" : " ").append(text_of(number));
    return list;
  }
}

/// 0, with the variable left alone, if the text, which may be null, is not such a value.
template <class Value>
int read_text(const std::string* text, Value& value) {
  if (text == nullptr) return 0;
  if constexpr (std::is_same_v<Value, CString>) {
    value = text->c_str();
  } else if constexpr (std::is_class_v<Value>) {
    Value numbers;
    std::istringstream parts(*text);
    for (std::string part; parts >> part;) {
      numbers.SetSize(numbers.GetSize() + 1);
      if (read_text(&part, numbers[numbers.GetUpperBound()]) == 0) return 0;
    }
    value = std::move(numbers);
  } else {
    double number = 0;
    const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), number);
    if (error != std::errc() || *end != '\0') return 0;
    const bool is_int = number == std::floor(number) && number >= INT_MIN && number <= INT_MAX;
    if (!is_int && !std::is_same_v<Value, double>) return 0;
    value = static_cast<Value>(number);
  }
  return 1;
}
