// What <comutil.h> declares for a _variant_t of a narrow text, and mingw-w64 does not have.
#include <comutil.h>

#include <string>

namespace _com_util {

BSTR WINAPI ConvertStringToBSTR(const char* text) {
  const std::string narrow = text;
  return SysAllocString(std::wstring(narrow.begin(), narrow.end()).c_str());
}

}  // namespace _com_util
