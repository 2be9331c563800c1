// Files of Windows: what another program holds, what may not be written, and names of every kind.
#include <windows.h>

// After windows.h, which it needs.
#include <sddl.h>

#include <chrono>
#include <thread>

#include "host/platform/paths.h"
#include "scratch_folder.h"
#include "system/process.h"
#include "tree_text.h"

namespace {

using Node = RYXmlWrapperBase;

class FilesOfWindows : public FolderTest {
 protected:
  std::string path(const std::string& name = "x.xml") const { return folder.string() + '\\' + name; }
  static HANDLE held(const std::string& file, DWORD shared) {
    return CreateFileA(file.c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr);
  }
  // Saves, and gives what the file holds then, or "! " and why it cannot be saved.
  static std::string saved(const std::string& file, const char* xml) {
    if (parse(xml).Save(file.c_str()) == 0) return std::string("! ") + Node::LastFailure().text;
    Node back;
    return back.load(file.c_str(), 0) != 0 ? text(back) : std::string("! ") + Node::LastFailure().text;
  }
  static bool is_there(const std::string& file) {
    return GetFileAttributesA(file.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  // Runs a program of Linux under Wine, which does not wait for it, until the file is there or not.
  void run(const char* program, std::vector<std::string> words, const std::string& file, bool there) const {
    if (is_there(file) != there)
      run_program({std::string("Z:\\bin\\") + program, std::move(words), folder.string()});
    for (int i = 0; i < 100 && is_there(file) != there; ++i) Sleep(20);
  }
  // Who may do what with a file.
  static std::string access(const std::string& file) {
    std::string list(1000, '\0');
    DWORD size = 0;
    EXPECT_NE(GetFileSecurityA(file.c_str(), DACL_SECURITY_INFORMATION, list.data(), 1000, &size), 0);
    return list.substr(0, size);
  }
};

TEST_F(FilesOfWindows, HaveNamesOfEveryKind) {
  std::vector<std::wstring> folders = {L"\\\\?\\" + folder.native()};
  std::string deep = folder.string();
  for (char name = 'a'; name < 'g'; ++name) {
    folders.push_back(folders.back() + L'\\' + std::wstring(60, static_cast<wchar_t>(name)));
    deep += '\\' + std::string(60, name);
    ASSERT_NE(CreateDirectoryW(folders.back().c_str(), nullptr), 0);
  }
  deep += "\\x.xml";
  for (const std::string& file : {path(), path("\u00e9\u0416\u6587.xml"), deep,
                                  folder.generic_string() + "/../" + folder.filename().string() + "/y.xml"}) {
    for (const char* const xml : {"<a>1</a>", "<b>2</b>"}) EXPECT_EQ(saved(file, xml), xml);
  }
  EXPECT_EQ(
      GetFileAttributesW((folder.native() + L"\\\u00e9\u0416\u6587.xml").c_str()) & FILE_ATTRIBUTE_DIRECTORY,
      0U);
  EXPECT_NE(DeleteFileW((folders.back() + L"\\x.xml").c_str()), 0);
  for (; folders.size() > 1; folders.pop_back()) EXPECT_NE(RemoveDirectoryW(folders.back().c_str()), 0);
  EXPECT_EQ(entries(folder), 3);
}

TEST_F(FilesOfWindows, AreRefusedWhole) {
  ASSERT_EQ(saved(path(), "<old/>"), "<old/>");
  SetFileAttributesA(path().c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(saved(path(), "<new/>"), "! cannot write '" + path() + "': Permission denied");
  SetFileAttributesA(path().c_str(), FILE_ATTRIBUTE_NORMAL);
  const HANDLE other = held(path(), 0);
  EXPECT_EQ(saved(path(), "<new/>"), "! cannot rename to '" + path() + "': Permission denied");
  CloseHandle(other);
  for (const auto& [file, why] :
       Rows<std::string, const char*>{{folder.string(), "Is a directory"},
                                      {path("no\\x.xml"), "No such file or directory"},
                                      {"NUL", "Invalid argument"},
                                      {path("\xE9.xml"), "Invalid or incomplete multibyte or wide character"},
                                      {"", "No such file or directory"}}) {
    EXPECT_EQ(saved(file, "<new/>"), "! cannot write '" + file + "': " + why);
    EXPECT_EQ(Node().load(file.c_str(), 0), 0);
    EXPECT_EQ(Node::LastFailure().text, "cannot read '" + file + "': " + why);
  }
  EXPECT_NE(content(path()).find("<old/>"), std::string::npos);
  EXPECT_EQ(entries(folder), 1);
}

TEST_F(FilesOfWindows, KeepLinksAttributesAndAccess) {
  ASSERT_EQ(saved(path("a.xml"), "<old/>"), "<old/>");
  const std::string usual = access(path("a.xml"));
  const DWORD attributes = FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
  PSECURITY_DESCRIPTOR few = nullptr;
  ConvertStringSecurityDescriptorToSecurityDescriptorA("D:P(A;;FA;;;BA)", SDDL_REVISION_1, &few, nullptr);
  SetFileSecurityA(path("a.xml").c_str(), DACL_SECURITY_INFORMATION, few);
  LocalFree(few);
  const std::string list = access(path("a.xml"));
  EXPECT_NE(list, usual);
  SetFileAttributesA(path("a.xml").c_str(), attributes);
  // Wine says that it makes links, but does not.
  CreateSymbolicLinkA(path("link.xml").c_str(), "a.xml", 0);
  run("ln", {"-s", "a.xml", "link.xml"}, path("link.xml"), true);
  EXPECT_EQ(saved(path("link.xml"), "<new/>"), "<new/>");
  EXPECT_NE(content(path("a.xml")).find("<new/>"), std::string::npos);
  EXPECT_EQ(GetFileAttributesA(path("a.xml").c_str()), attributes);
  EXPECT_EQ(access(path("a.xml")), list);
  EXPECT_EQ(entries(folder), is_there(path("link.xml")) + 1);
  for (const auto& [left, right, file, place] :
       Rows<const char*, const char*, bool, bool>{{"a.xml", "link.xml", true, true},
                                                  {"a.xml", "A.XML", true, true},
                                                  {"new.xml", ".\\NEW.xml", false, true},
                                                  {"a.xml", "new.xml", false, false}}) {
    EXPECT_EQ(platform::IsSameFile(path(left), path(right)), file);
    EXPECT_EQ(platform::IsSamePlace(path(left), path(right)), place);
  }
  run("rm", {"link.xml"}, path("link.xml"), false);
}

TEST_F(FilesOfWindows, AreWaitedForWhileAnotherProgramHasThem) {
  ASSERT_EQ(saved(path(), "<old/>"), "<old/>");
  const HANDLE other = held(path(), FILE_SHARE_READ);
  std::thread release([other] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    CloseHandle(other);
  });
  EXPECT_EQ(saved(path(), "<new/>"), "<new/>");
  release.join();
  EXPECT_EQ(entries(folder), 1);
}

TEST_F(FilesOfWindows, AreSavedByManyAtATime) {
  std::vector<std::thread> savers;
  for (const char* const xml : {"<a>1</a>", "<b>2</b>", "<c>3</c>"}) {
    savers.emplace_back([xml, file = path()] {
      for (int i = 0; i < 20; ++i) {
        EXPECT_EQ(parse(xml).Save(file.c_str()), 1) << Node::LastFailure().text;
        EXPECT_EQ(Node().load(file.c_str(), 0), 1) << Node::LastFailure().text;
      }
    });
  }
  for (std::thread& saver : savers) saver.join();
  EXPECT_EQ(entries(folder), 1);
}

}  // namespace
