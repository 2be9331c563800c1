// Runs a program in a folder of its own.
#pragma once

#include <sys/wait.h>

#include <map>

#include "scratch_folder.h"
#include "tree_text.h"

class ProgramTest : public FolderTest {
 protected:
  ProgramTest() { std::filesystem::create_directories(work / "folder"); }

  void write(const char* name, const std::string& xml) const { std::ofstream(work / name) << xml; }
  std::string tree(const char* name) const {
    RYXmlWrapperBase root;
    EXPECT_NE(root.load((work / name).c_str(), 0), 0) << name;
    return text(root);
  }

  /// Runs a shell command, in which $PROGRAM is the program, and gives its exit status. `out` and `err`
  /// then hold what it printed.
  int shell(const std::string& command) {
    const std::string line = "cd '" + work.string() + "' && export PROGRAM='" PROGRAM_PATH "' && { " +
                             command + "\n} >../out 2>../err";
    const int status = std::system(line.c_str());
    out = content(folder / "out");
    err = content(folder / "err");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }
  /// The same for the program with a line of arguments.
  int run(const std::string& arguments) { return shell("\"$PROGRAM\" " + arguments); }

  /// The program refuses these arguments for this reason, prints nothing else and changes no file.
  void expect_refused(const std::string& arguments, int status, const std::string& reason) {
    const auto before = files();
    EXPECT_EQ(run(arguments), status);
    EXPECT_EQ(err, std::filesystem::path(PROGRAM_PATH).filename().string() + ": " + reason + '\n');
    EXPECT_EQ(out, "");
    EXPECT_EQ(files(), before);
  }

  /// The man page has every option that the help on the program and on these commands tells.
  void expect_man_page(const std::string& commands = "") {
    const std::string options = " | grep -oE -- '--[a-z-]+' | sort -u >../";
    shell("for command in '' " + commands + "; do \"$PROGRAM\" $command --help; done" + options +
          "told; sed 's/\\\\f.//g; s/\\\\//g' '" TOOLS_PATH "'/$(basename \"$PROGRAM\").1" + options +
          "page; comm -23 ../told ../page; test -s ../told || echo none told");
    EXPECT_EQ(out + err, "");
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
};
