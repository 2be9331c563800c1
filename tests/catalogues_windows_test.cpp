// Texts from the message catalogues that are installed with the host's module.
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string_view>

#include "rytree_host/code_page.h"
#include "rytree_host/modules.h"
#include "system/process.h"
#include "tree_text.h"

namespace {

using namespace std::string_view_literals;

TEST(Localization, ComesFromTheFolderBesideTheModule) {
  wchar_t program[MAX_PATH];
  ASSERT_NE(GetModuleFileNameW(nullptr, program, MAX_PATH), 0U);
  const auto folder = std::filesystem::path(program).parent_path().parent_path() / "share/locale/xx";
  std::filesystem::create_directories(folder / "LC_MESSAGES");
  // The lengths and places of the keys are at byte 28, those of the texts at 36, the bytes themselves at 44.
  const unsigned head[] = {0x950412de, 0, 1, 28, 36, 0, 0, 4, 44, 5, 49};
  std::ofstream(folder / "LC_MESSAGES/rytree.mo", std::ios::binary)
          .write(reinterpret_cast<const char*>(head), sizeof head)
      << "host\0h\xC3\xB4te\0"sv;
  const auto localized = [](const char* text) {
    char buffer[20] = "?";
    rytree_host::HMODULE module = rytree_host::LoadLibraryA("ZANmsg.dll");
    using Localize = void (*)(char*, int, const char*, int);
    const auto localize = reinterpret_cast<Localize>(rytree_host::GetProcAddress(module, "LocalizeString"));
    if (localize != nullptr) localize(buffer, 20, text, 0);
    EXPECT_NE(rytree_host::FreeLibrary(module), 0);
    return std::string(buffer);
  };
  // The module asks for the languages when it is first used after it was loaded.
  using R = Row<const char*, const char*, int, const char*, const char*>;
  for (const auto& [locale, languages, page, text, wanted] :
       Rows{R{"xx_YY.UTF-8", "", 65001, "host", "h\xC3\xB4te"}, R{"xx", "", 65001, "none", "none"},
            R{"de", "..\\x:none:xx_ZZ@euro:de", 1252, "host", "h\xF4te"}, R{"xx", "", 1251, "host", "host"},
            R{"C", "xx", 65001, "host", "host"}, R{"xx", "de", 65001, "host", "host"}}) {
    set_environment("LC_ALL", locale);
    set_environment("LANGUAGE", languages);
    ASSERT_TRUE(CodePage::SetDefault(page));
    EXPECT_EQ(localized(text), wanted);
  }
  std::filesystem::remove_all(folder);
}

}  // namespace
