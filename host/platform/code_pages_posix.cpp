#include "platform/code_pages.h"

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <new>
#include <string>

namespace platform {

namespace {

constexpr const char* kCodes = "WCHAR_T";
static_assert(sizeof(wchar_t) == sizeof(char32_t));

class Converter {
 public:
  Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {
    if (!is_known() && errno == ENOMEM) throw std::bad_alloc();
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (is_known()) iconv_close(handle_);
  }

  bool is_known() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  // Gives the number of bytes written, 0 if not all of the text can be converted.
  std::size_t Convert(std::string_view text, char* to, std::size_t room) {
    char* in = const_cast<char*>(text.data());
    std::size_t rest = text.size();
    const std::size_t all = room;
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    constexpr auto kFailed = static_cast<std::size_t>(-1);
    const bool is_converted = iconv(handle_, &in, &rest, &to, &room) != kFailed && rest == 0;
    // Some character sets hold a letter back until they know that no accent follows.
    return is_converted && iconv(handle_, nullptr, nullptr, &to, &room) != kFailed ? all - room : 0;
  }

 private:
  iconv_t handle_;
};

class SystemSet : public CharacterSet {
 public:
  explicit SystemSet(const char* name) : name_(name), decode_("UTF-8", name) {}

  bool is_known() const { return decode_.is_known(); }

  Utf8Character Character(std::string_view bytes) override {
    Utf8Character character{};
    const std::size_t length = decode_.Convert(bytes, character.data(), character.size());
    return length != 0 ? character : Utf8Character{};
  }
  std::string_view Bytes(char32_t code) override {
    if (!encode_) encode_ = std::make_unique<Converter>(name_.c_str(), kCodes);
    if (!encode_->is_known()) return {};
    return {bytes_.data(), encode_->Convert({reinterpret_cast<const char*>(&code), sizeof code},
                                            bytes_.data(), bytes_.size())};
  }

 private:
  std::string name_;
  Converter decode_;
  std::unique_ptr<Converter> encode_;
  std::array<char, 8> bytes_{};
};

}  // namespace

std::unique_ptr<CharacterSet> OpenSystemSet(std::string_view name) {
  auto set = std::make_unique<SystemSet>(std::string(name).c_str());
  return set->is_known() ? std::move(set) : nullptr;
}

}  // namespace platform
