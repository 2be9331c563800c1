// The encodings that XML files declare, besides those that Expat reads by itself.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "decoder.h"
#include "failure.h"
#include "xml_input.h"

namespace rytesavc {

// The name of a declared encoding's character set, whatever its case and punctuation; null for one that is not
// known.
const char* CharsetOf(std::string_view declared);

// Text of another encoding, read as UTF-8.
class ConvertedInput : public XmlInput {
 public:
  ConvertedInput(XmlInput& input, const char* charset);

  // Fails, and notes where, at bytes that are not a character.
  bool Read(char* to, std::size_t room, std::size_t& length) override;
  std::size_t size() const override { return input_.size(); }
  // Where in `input` the end of what was read is.
  long long place() const { return place_; }
  bool has_failed() const { return has_failed_; }

 private:
  bool Fill();
  bool Fail();
  void Count(std::string_view converted);

  XmlInput& input_;
  const char* charset_;
  std::vector<char> raw_;
  Decoder decoder_;
  std::size_t start_ = 0;  // of what is not converted yet
  std::size_t end_ = 0;
  bool is_last_ = false;  // nothing comes after what is in raw_
  bool has_failed_ = false;
  long long place_ = 0;
  int line_ = 1;
  int column_ = 1;
};

// Converts an offset in the UTF-8 text to one in the original input, which is read again from its start.
long long PlaceBeforeConversion(XmlInput& input, const char* charset, long long place);

}  // namespace rytesavc
