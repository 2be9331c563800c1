#include "code_page.h"

#include <iconv.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <iterator>
#include <mutex>

#include "rytree_host/node.h"
#include "rytree_host/utf8.h"

namespace rytesavc {

namespace {

constexpr int kUtf8 = 65001;

struct Listed {
  const char* charset;
  int page;
  bool pairs;  // it has characters of two bytes
};
constexpr Listed kPages[] = {{"CP1250", 1250, false}, {"CP1251", 1251, false},     {"CP1252", 1252, false},
                             {"CP1253", 1253, false}, {"CP1254", 1254, false},     {"CP1255", 1255, false},
                             {"CP1256", 1256, false}, {"CP1257", 1257, false},     {"CP1258", 1258, false},
                             {"CP932", 932, true},    {"CP936", 936, true},        {"CP949", 949, true},
                             {"CP950", 950, true},    {"ISO-8859-1", 28591, false}};

// Pages are built when they are first set, and kept, because other threads may be using them.
std::mutex building;
std::array<std::unique_ptr<const CodePage>, std::size(kPages)> built;
std::atomic<const CodePage*> current;

class Converter {
 public:
  Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (known()) iconv_close(handle_);
  }

  bool known() const { return reinterpret_cast<std::intptr_t>(handle_) != -1; }

  // Gives the number of bytes written, 0 if not all of the text can be converted.
  std::size_t Convert(std::string_view text, void* to, std::size_t room) {
    char* in = const_cast<char*>(text.data());
    std::size_t rest = text.size();
    char* out = static_cast<char*>(to);
    const std::size_t all = room;
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    if (iconv(handle_, &in, &rest, &out, &room) == static_cast<std::size_t>(-1) || rest != 0) return 0;
    // Some character sets hold a letter back until they know that no accent follows.
    if (iconv(handle_, nullptr, nullptr, &out, &room) == static_cast<std::size_t>(-1)) return 0;
    return all - room;
  }

  // The character, if the bytes are just one; else 0.
  char32_t Code(std::string_view bytes) {
    char32_t codes[4];
    return Convert(bytes, codes, sizeof codes) == sizeof codes[0] ? codes[0] : 0;
  }

 private:
  iconv_t handle_;
};

constexpr const char* kCodes = "WCHAR_T";
static_assert(sizeof(wchar_t) == sizeof(char32_t));

}  // namespace

std::unique_ptr<const CodePage> CodePage::Build(const char* charset, bool pairs) {
  Converter decode(kCodes, charset);
  Converter encode(charset, kCodes);
  if (!decode.known() || !encode.known()) return nullptr;
  std::unique_ptr<CodePage> page(new CodePage);
  const auto add = [&](std::string_view bytes, std::size_t number) {
    const char32_t code = decode.Code(bytes);
    if (code < 0x80 || code >= 0xFFFE) return;
    char back[8];
    const std::size_t length =
        encode.Convert({reinterpret_cast<const char*>(&code), sizeof code}, back, sizeof back);
    if (std::string_view(back, length) != bytes) return;
    page->codes_[number] = static_cast<char16_t>(code);
    page->bytes_[code] = static_cast<char16_t>(number);
  };
  for (unsigned first = 0x80; first < 0x100; ++first) {
    const char lead = static_cast<char>(first);
    add({&lead, 1}, first);
    if (!pairs || page->codes_[first] != 0) continue;
    for (unsigned second = 0x40; second < 0x100; ++second) {
      const char both[] = {lead, static_cast<char>(second)};
      add({both, 2}, 256 * first + second);
    }
  }
  return page;
}

const CodePage* CodePage::Default() { return current.load(std::memory_order_acquire); }

bool CodePage::ToUtf8(std::string_view text, std::string& utf8) const {
  while (!text.empty()) {
    std::size_t taken = 1;
    char32_t code = static_cast<unsigned char>(text[0]);
    if (code >= 0x80 && (taken = Read(text, code)) == 0) return false;
    utf8::append(utf8, code);
    text.remove_prefix(taken);
  }
  return true;
}

bool CodePage::FromUtf8(std::string_view utf8, std::string& text) const {
  bool whole = true;
  const char* at = utf8.data();
  for (const char* const end = at + utf8.size(); at != end;) {
    const char32_t code = utf8::next(at);
    const unsigned bytes = code < 0x80 ? code : code < 0x10000 ? bytes_[code] : 0U;
    if (bytes == 0 && code != 0) {
      whole = false;
      text.append("&#").append(std::to_string(static_cast<unsigned>(code))).append(1, ';');
      continue;
    }
    if (bytes >= 0x100) text += static_cast<char>(bytes >> 8U);
    text += static_cast<char>(bytes & 0xFFU);
  }
  return whole;
}

bool SingleByteCodes(const char* charset, int (&codes)[256]) {
  Converter decode(kCodes, charset);
  if (!decode.known()) return false;
  for (unsigned number = 0; number < 256; ++number) {
    const char byte = static_cast<char>(number);
    const char32_t code = decode.Code({&byte, 1});
    codes[number] = number < 0x80 ? static_cast<int>(number) : code != 0 ? static_cast<int>(code) : -1;
  }
  return true;
}

}  // namespace rytesavc

int RYXmlWrapperBase::SetDefaultCodePage(int page) {
  using namespace rytesavc;
  if (page == kUtf8) {
    current.store(nullptr, std::memory_order_release);
    return 1;
  }
  const std::lock_guard lock(building);
  for (std::size_t i = 0; i < std::size(kPages); ++i) {
    if (kPages[i].page != page) continue;
    if (built[i] == nullptr) built[i] = CodePage::Build(kPages[i].charset, kPages[i].pairs);
    if (built[i] == nullptr) return 0;
    current.store(built[i].get(), std::memory_order_release);
    return 1;
  }
  return 0;
}
