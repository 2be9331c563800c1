// XML text that is read in pieces.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace rytesavc {

class XmlInput {
 public:
  XmlInput() = default;
  XmlInput(const XmlInput&) = delete;
  XmlInput& operator=(const XmlInput&) = delete;
  virtual ~XmlInput() = default;

  // Fills the buffer unless the text ends before. False on a failure, which is noted.
  virtual bool Read(char* to, std::size_t room, std::size_t& length) = 0;
  // Of the whole text, though a file may have changed since.
  virtual std::size_t size() const = 0;
};

class TextInput : public XmlInput {
 public:
  explicit TextInput(std::string_view text) : rest_(text), size_(text.size()) {}

  bool Read(char* to, std::size_t room, std::size_t& length) override {
    length = std::min(room, rest_.size());
    std::memcpy(to, rest_.data(), length);
    rest_.remove_prefix(length);
    return true;
  }
  std::size_t size() const override { return size_; }

 private:
  std::string_view rest_;
  std::size_t size_;
};

}  // namespace rytesavc
