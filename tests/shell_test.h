// Runs a program in lines of a Linux shell.
#pragma once

#include <sys/wait.h>

#include "run_program.h"

class ShellTest : public ProgramTest {
 protected:
  /// Runs a command, in which $PROGRAM is the program, and gives its exit status. `out` and `err` then hold what it printed.
  int shell(const std::string& command) {
    const std::string line = "cd '" + work.string() + "' && export PROGRAM='" PROGRAM_PATH "' && { " +
                             command + "\n} >../out 2>../err";
    const int status = std::system(line.c_str());
    out = content(folder / "out");
    err = content(folder / "err");
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  /// The man page has every option that the help on the program and on these commands tells.
  void expect_man_page(const std::string& commands = "") {
    const std::string options = " | grep -oE -- '--[a-z-]+' | sort -u >../";
    shell("for command in '' " + commands + "; do \"$PROGRAM\" $command --help; done" + options +
          "told; sed 's/\\\\f.//g; s/\\\\//g' '" TOOLS_PATH "'/$(basename \"$PROGRAM\").1" + options +
          "page; comm -23 ../told ../page; test -s ../told || echo none told");
    EXPECT_EQ(out + err, "");
  }
};
