// Texts from the message catalogues of Linux, by way of the host's module.
#include <libintl.h>

#include <climits>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "rytree_host/code_page.h"
#include "rytree_host/modules.h"
#include "tree_text.h"

namespace {

using namespace std::string_view_literals;

// A folder with a message catalogue of one entry, "host", besides its head.
std::filesystem::path catalogue_folder() {
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "rytree_catalogues";
  std::filesystem::create_directories(folder / "xx/LC_MESSAGES");
  // The lengths and places of the keys are at byte 28, those of the texts at 44, the bytes themselves at 60.
  const unsigned head[] = {0x950412de, 0, 2, 28, 44, 0, 60, 0, 60, 4, 61, 4, 66, 5, 71};
  std::ofstream(folder / "xx/LC_MESSAGES/rytree.mo", std::ios::binary)
          .write(reinterpret_cast<const char*>(head), sizeof head)
      << "\0host\0head\0hôte\0"sv;
  return folder;
}

TEST(Localization, ComesFromItsModule) {
  rytree_host::HMODULE module = rytree_host::LoadLibraryA("ZANmsg.dll");
  const auto localize = reinterpret_cast<void (*)(char*, int, const char*, int)>(
      rytree_host::GetProcAddress(module, "LocalizeString"));
  ASSERT_NE(localize, nullptr);
  const std::filesystem::path folder = catalogue_folder();
  setenv("LANGUAGE", "xx", 1);
  ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
  bindtextdomain("rytree", folder.c_str());
  const int utf8 = 65001;
  const Rows<int, const char*, int, const char*> rows = {
      {utf8, "plain", 20, "plain"}, {utf8, "plain", 5, "plai"},    {utf8, "née", 5, "née"},
      {utf8, "née", 4, "né"},       {utf8, "née", 3, "n"},         {utf8, "plain", 1, ""},
      {utf8, "", 20, ""},           {utf8, nullptr, 20, ""},       {utf8, "plain", 0, "?"},
      {utf8, "host", 20, "hôte"},   {utf8, "plain", INT_MIN, "?"}, {1252, "host", 20, "h\xF4te"},
      {1251, "host", 20, "host"},   {utf8, "host", 20, "hôte"}};
  for (const auto& [page, text, size, wanted] : rows) {
    char buffer[20] = "?";
    ASSERT_TRUE(CodePage::SetDefault(page));
    localize(buffer, size, text, 0);
    EXPECT_STREQ(buffer, wanted);
  }
  localize(nullptr, 20, "plain", 0);
  std::setlocale(LC_ALL, "C");
  std::filesystem::remove_all(folder);

  for (const char* name : {"ZANmsg.DLL", "ZANmsg"}) EXPECT_EQ(rytree_host::LoadLibraryA(name), module);
  for (const char* name : {"NoSuchEntry", static_cast<const char*>(nullptr)})
    EXPECT_EQ(rytree_host::GetProcAddress(module, name), nullptr);
  for (int load = 0; load < 3; ++load) EXPECT_NE(rytree_host::FreeLibrary(module), 0);
  for (const char* name : {static_cast<const char*>(nullptr), "", ".dll", "no_such.dll", "./ZANmsg.dll"})
    EXPECT_EQ(rytree_host::LoadLibraryA(name), nullptr);
  EXPECT_EQ(rytree_host::GetProcAddress(nullptr, "LocalizeString"), nullptr);
  EXPECT_EQ(rytree_host::FreeLibrary(nullptr), 0);
}

}  // namespace
