// Runs a program in a folder of its own.
#pragma once

#include <map>

#include "scratch_folder.h"
#include "system/process.h"
#include "tree_text.h"

class ProgramTest : public FolderTest {
 protected:
  ProgramTest() { std::filesystem::create_directories(work / "folder"); }

  void write(const char* name, const std::string& xml) const {
    std::ofstream(work / name, std::ios::binary) << xml;
  }
  std::string tree(const char* name) const {
    RYXmlWrapperBase root;
    EXPECT_NE(root.load((work / name).string().c_str(), 0), 0) << name;
    return text(root);
  }

  /// Runs the program with a line of arguments, quoted as in a shell, and gives its exit status. `out` and `err` then
  /// hold what it printed.
  int run(const std::string& arguments) {
    const std::string out_file = (folder / "out").string(), err_file = (folder / "err").string();
    const int status =
        run_program({PROGRAM_PATH, words_of(arguments), work.string(), {}, out_file, err_file});
    out = content(out_file);
    err = content(err_file);
    return status;
  }

  /// The program refuses these arguments for this reason, prints nothing else and changes no file.
  void expect_refused(const std::string& arguments, int status, const std::string& reason) {
    const auto before = files();
    EXPECT_EQ(run(arguments), status);
    EXPECT_EQ(err, std::filesystem::path(PROGRAM_PATH).stem().string() + ": " + reason + '\n');
    EXPECT_EQ(out, "");
    EXPECT_EQ(files(), before);
  }

  /// Every file in the working folder, with its text.
  std::map<std::string, std::string> files() const {
    std::map<std::string, std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(work))
      all[entry.path().string()] = entry.is_regular_file() ? content(entry) : "";
    return all;
  }

  const std::filesystem::path work = folder / "work";
  std::string out;
  std::string err;

 private:
  static std::vector<std::string> words_of(const std::string& line) {
    std::vector<std::string> words;
    bool is_inside = false;
    char quote = 0;
    for (const char c : line) {
      if (quote == 0 && c == ' ') {
        is_inside = false;
        continue;
      }
      if (!is_inside) words.emplace_back();
      is_inside = true;
      if (c == quote) {
        quote = 0;
      } else if (quote == 0 && (c == '\'' || c == '"')) {
        quote = c;
      } else {
        words.back() += c;
      }
    }
    return words;
  }
};
