// Runs a program in a folder of its own.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "tree_text.h"

/// The text of a file, "" if it cannot be read.
inline std::string content(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file).rdbuf();
  return text.str();
}

class ProgramTest : public testing::Test {
 protected:
  ProgramTest() { std::filesystem::create_directories(folder_ / "folder"); }
  ~ProgramTest() override { std::filesystem::remove_all(base_); }

  const std::filesystem::path& folder() const { return folder_; }
  void write(const char* name, const std::string& xml) const { std::ofstream(folder_ / name) << xml; }
  std::string tree(const char* name) const {
    RYXmlWrapperBase root;
    EXPECT_NE(root.load((folder_ / name).c_str(), 0), 0) << name;
    return text(root);
  }

  /// Runs a shell command, in which $PROGRAM is the program, and gives its exit status. `out` and `err`
  /// then hold what it printed.
  int shell(const std::string& command) {
    const std::string line = "cd '" + folder_.string() + "' && export PROGRAM='" PROGRAM_PATH "' && { " +
                             command + "\n} >../out 2>../err";
    const int status = std::system(line.c_str());
    out = content(base_ / "out");
    err = content(base_ / "err");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  /// The same for the program with a line of arguments.
  int run(const std::string& arguments) { return shell("\"$PROGRAM\" " + arguments); }

  /// Every file in the folder, with its text.
  std::map<std::string, std::string> files() const {
    std::map<std::string, std::string> all;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder_)) {
      all[entry.path().string()] = entry.is_regular_file() ? content(entry) : "";
    }
    return all;
  }

  std::string out;
  std::string err;

 private:
  std::filesystem::path base_ =
      std::filesystem::path(testing::TempDir()) / ("program_" + std::to_string(getpid()));
  std::filesystem::path folder_ = base_ / "work";
};
