#include "platform/code_pages.h"

#include <iconv.h>

#include <cerrno>
#include <cstdint>
#include <new>

namespace platform {

namespace {

constexpr const char* kCodes = "WCHAR_T";
static_assert(sizeof(wchar_t) == sizeof(char32_t));
constexpr std::size_t kFailed = static_cast<std::size_t>(-1);

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
  iconv_t handle() const { return handle_; }

  // Gives the number of bytes written, 0 if not all of the text can be converted.
  std::size_t Convert(std::string_view text, void* to, std::size_t room) {
    char* in = const_cast<char*>(text.data());
    std::size_t rest = text.size();
    char* out = static_cast<char*>(to);
    const std::size_t all = room;
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &in, &rest, &out, &room) == kFailed || rest != 0) return 0;
    // Some character sets hold a letter back until they know that no accent follows.
    if (iconv(handle_, nullptr, nullptr, &out, &room) == kFailed) return 0;
    return all - room;
  }

 private:
  iconv_t handle_;
};

}  // namespace

class CharacterSet::Work {
 public:
  explicit Work(const char* name) : decode(kCodes, name), encode(name, kCodes) {}

  Converter decode;
  Converter encode;
  char bytes[8] = {};
};

CharacterSet::CharacterSet(int /*number*/, const char* name) : work_(std::make_unique<Work>(name)) {}
CharacterSet::~CharacterSet() = default;

bool CharacterSet::is_known() const { return work_->decode.is_known() && work_->encode.is_known(); }

char32_t CharacterSet::Code(std::string_view bytes) {
  char32_t codes[4];
  return work_->decode.Convert(bytes, codes, sizeof codes) == sizeof codes[0] ? codes[0] : 0;
}

std::string_view CharacterSet::Bytes(char32_t code) {
  char* const bytes = work_->bytes;
  return {bytes, work_->encode.Convert({reinterpret_cast<const char*>(&code), sizeof code}, bytes,
                                       sizeof work_->bytes)};
}

class Decoder::Work : public Converter {
 public:
  using Converter::Converter;
};

Decoder::Decoder(const char* charset) : work_(std::make_unique<Work>("UTF-8", charset)) {}
Decoder::~Decoder() = default;

bool Decoder::is_known() const { return work_->is_known(); }

Decoder::End Decoder::Convert(const char*& in, std::size_t& in_left, char*& out, std::size_t& out_left) {
  char* from = const_cast<char*>(in);
  const std::size_t result =
      iconv(work_->handle(), in == nullptr ? nullptr : &from, &in_left, &out, &out_left);
  const int error = result == kFailed ? errno : 0;
  in = from;
  return error == 0 ? End::kDone : error == E2BIG ? End::kFull : error == EINVAL ? End::kCut : End::kInvalid;
}

}  // namespace platform
