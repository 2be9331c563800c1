#include "platform/catalogues.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/message_catalogue.h"
#include "platform/modules.h"
#include "platform/windows.h"

namespace platform {

namespace {

std::string Environment(const wchar_t* name) {
  std::wstring value(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return Narrow(value);
}

// The language of the user's desktop, as "de_DE".
std::string SystemLanguage() {
  ULONG count = 0;
  ULONG size = 0;
  if (GetUserPreferredUILanguages(MUI_LANGUAGE_NAME, &count, nullptr, &size) == 0) return {};
  std::wstring names(size, L'\0');
  if (GetUserPreferredUILanguages(MUI_LANGUAGE_NAME, &count, names.data(), &size) == 0) return {};
  const std::string name = Narrow(names.c_str());  // the first of several
  const std::size_t region = name.rfind('-');
  const bool has_region = region != std::string::npos && name.size() - region == 3;
  return name.substr(0, name.find('-')) + (has_region ? '_' + name.substr(region + 1) : "");
}

// The languages that the environment asks for, read as gettext does, or else the system's; the preferred one first.
std::vector<std::string> Languages() {
  std::string locale;
  for (const wchar_t* const name : {L"LC_ALL", L"LC_MESSAGES", L"LANG"}) {
    if (locale.empty()) locale = Environment(name);
  }
  if (locale == "C" || locale == "POSIX" || locale.rfind("C.", 0) == 0) return {};
  std::string list = Environment(L"LANGUAGE");
  if (list.empty()) list = locale.empty() ? SystemLanguage() : locale;
  std::vector<std::string> languages;
  for (std::size_t start = 0; start < list.size();) {
    const std::size_t end = std::min(list.find(':', start), list.size());
    std::string language = list.substr(start, end - start);
    language = language.substr(0, language.find_first_of(".@"));
    start = end + 1;
    if (language.empty() || language.find_first_of("/\\") != std::string::npos) continue;
    languages.push_back(language);
    if (language.find('_') != std::string::npos) languages.push_back(language.substr(0, language.find('_')));
  }
  return languages;
}

// The bytes of a file, which no program started meanwhile inherits; "" if it cannot be read.
std::string Content(const std::string& name) {
  const Handle file(CreateFileW(FullPath(name).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  std::string bytes;
  std::array<char, 1U << 14U> part{};
  for (DWORD got = 0; file.is_open(); bytes.append(part.data(), got)) {
    if (ReadFile(file.get(), part.data(), part.size(), &got, nullptr) == 0) return {};
    if (got == 0) break;
  }
  return bytes;
}

std::vector<MessageCatalogue> ReadCatalogues() {
  std::vector<MessageCatalogue> catalogues;
  const std::string folder = OwnFolder();
  if (folder.empty()) return catalogues;
  for (const std::string& language : Languages()) {
    catalogues.emplace_back(Content(folder + "..\\share\\locale\\" + language + "\\LC_MESSAGES\\rytree.mo"));
  }
  return catalogues;
}

}  // namespace

const char* LocalizedText(const char* text) {
  static const std::vector<MessageCatalogue> catalogues = ReadCatalogues();
  for (const MessageCatalogue& catalogue : catalogues) {
    if (const char* const localized = catalogue.Find(text)) return localized;
  }
  return text;
}

}  // namespace platform
