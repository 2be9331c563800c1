// The process of the test, and others that it starts. Names of files are UTF-8.
#pragma once

#include <string>
#include <vector>

void set_environment(const std::string& name, const std::string& value);

/// The time of the processor that the process has taken.
double processor_seconds();

struct Start {
  std::string program;
  std::vector<std::string> words;           // after its name
  std::string folder;                       // that it runs in
  std::string in = {}, out = {}, err = {};  // files for its standard streams; "" is the stream of the test
};

/// Runs a program, and gives its exit status; -1 if there is none.
int run_program(const Start& start);
