#include "charset.h"

#include <iconv.h>

#include <cstdint>
namespace rytesavc {
bool SingleByteCodes(const char* charset, int (&codes)[256]) {
  iconv_t handle = iconv_open("WCHAR_T", charset);
  if (reinterpret_cast<std::intptr_t>(handle) == -1) return false;
  for (unsigned number = 0; number < 256; ++number) {
    char byte = static_cast<char>(number);
    char32_t code[4] = {};
    char* in = &byte;
    char* out = reinterpret_cast<char*>(code);
    std::size_t rest = 1;
    std::size_t room = sizeof code;
    iconv(handle, nullptr, nullptr, nullptr, nullptr);
    const bool ok = iconv(handle, &in, &rest, &out, &room) != static_cast<std::size_t>(-1) &&
                    iconv(handle, nullptr, nullptr, &out, &room) != static_cast<std::size_t>(-1);
    codes[number] = number < 0x80        ? static_cast<int>(number)
                    : ok && code[0] != 0 ? static_cast<int>(code[0])
                                         : -1;
  }
  iconv_close(handle);
  return true;
}
}  // namespace rytesavc
