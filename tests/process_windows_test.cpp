// What the process takes from its surroundings, and what programs that it starts take from it.
#include "host/platform/windows.h"

#include <filesystem>

#include "platform/streams.h"
#include "rytree_host/modules.h"
#include "scratch_folder.h"
#include "system/process.h"
#include "tree_text.h"

namespace {

using Surroundings = FolderTest;

TEST_F(Surroundings, LibrariesComeFromNamedAndOwnFoldersOnly) {
  const auto start = std::filesystem::current_path();
  std::filesystem::copy_file(std::filesystem::path(PROGRAM_FOLDER) / "ZANmsg.dll", folder / "other.dll");
  std::ofstream(folder / "damaged.dll") << "MZ";
  std::filesystem::current_path(folder);
  set_environment("PATH", folder.string());
  const DWORD mode = GetThreadErrorMode();
  for (const auto& [name, is_found] : Rows<std::string, bool>{{"other", false},
                                                              {"other.dll", false},
                                                              {".\\other.dll", true},
                                                              {(folder / "other.dll").string(), true},
                                                              {".\\damaged.dll", false},
                                                              {"ZANmsg", true},
                                                              {"\xFF\\a.dll", false}}) {
    rytree_host::HMODULE module = rytree_host::LoadLibraryA(name.c_str());
    EXPECT_EQ(module != nullptr, is_found) << name;
    EXPECT_EQ(rytree_host::FreeLibrary(module) != 0, is_found) << name;
  }
  EXPECT_EQ(GetThreadErrorMode(), mode);
  std::filesystem::current_path(start);
}

TEST_F(Surroundings, StartedProgramsInheritNoFile) {
  const std::string name = (folder / "a").string();
  std::ofstream(name) << "a";
  for (const int file : {platform::OpenToRead(name), platform::OpenToWrite(name), platform::Duplicate(1)}) {
    DWORD flags = HANDLE_FLAG_INHERIT;
    EXPECT_NE(GetHandleInformation(reinterpret_cast<HANDLE>(_get_osfhandle(file)), &flags), 0);
    EXPECT_EQ(flags & HANDLE_FLAG_INHERIT, 0U);
    platform::Close(file);
  }
  EXPECT_EQ(platform::Duplicate(99), -1);
}

}  // namespace
