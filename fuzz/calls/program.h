// Where the choices of a call come from.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace calls {

/// The bytes of a program of calls, one after the other; zeros after its end.
class Program {
 public:
  explicit Program(std::string_view bytes) : bytes_(bytes) {}

  bool at_end() const { return bytes_.empty(); }
  std::size_t byte() {
    if (at_end()) return 0;
    const auto first = static_cast<unsigned char>(bytes_.front());
    bytes_.remove_prefix(1);
    return first;
  }
  std::size_t word() { return byte() << 8U | byte(); }
  template <class List>
  auto& pick(List& list) {
    return list[(std::size(list) > 256 ? word() : byte()) % std::size(list)];
  }
  /// As many bytes as the next one says.
  std::string text() {
    const std::size_t length = byte();
    const std::string_view taken = bytes_.substr(0, length);
    bytes_.remove_prefix(taken.size());
    return std::string(taken);
  }

 private:
  std::string_view bytes_;
};

}  // namespace calls
