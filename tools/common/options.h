// Options on a command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// The name of an option, and its value if it is written as in "--level=2".
inline std::pair<std::string_view, std::optional<std::string>> split_option(std::string_view word) {
  const std::size_t equals = word.starts_with("--") ? word.find('=') : std::string_view::npos;
  if (equals == std::string_view::npos) return {word, std::nullopt};
  return {word.substr(0, equals), std::string(word.substr(equals + 1))};
}
