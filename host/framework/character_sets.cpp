#include "character_sets.h"

#include <algorithm>
#include <iterator>

#include "rytree_host/utf8.h"
#include "single_byte_sets.h"

namespace {

constexpr char16_t kNone = 0xFFFD;

class OneByteSet : public platform::CharacterSet {
 public:
  explicit OneByteSet(std::u16string_view upper) : upper_(upper) {}

  platform::Utf8Character Character(std::string_view bytes) override {
    platform::Utf8Character character{};
    const auto byte = static_cast<unsigned char>(bytes[0]);
    const char32_t code = byte < 0x80 ? byte : byte - 0x80U < upper_.size() ? upper_[byte - 0x80U] : kNone;
    if (bytes.size() == 1 && code != kNone) utf8::put(character.data(), code);
    return character;
  }
  std::string_view Bytes(char32_t code) override {
    const std::size_t place = upper_.find(static_cast<char16_t>(code));
    const bool is_found = code < kNone && (code < 0x80 || place != upper_.npos);
    byte_ = static_cast<char>(code < 0x80 ? code : 0x80 + place);
    return {&byte_, is_found ? 1U : 0U};
  }

 private:
  std::u16string_view upper_;
  char byte_ = 0;
};

}  // namespace

std::unique_ptr<platform::CharacterSet> OpenCharacterSet(std::string_view name) {
  const auto* const set = std::find_if(std::begin(kSingleByteSets), std::end(kSingleByteSets),
                                       [name](const SingleByteSet& each) { return each.name == name; });
  if (set == std::end(kSingleByteSets)) return platform::OpenSystemSet(name);
  return std::make_unique<OneByteSet>(set->upper);
}
