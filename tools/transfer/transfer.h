// The job of the program: values go from one tree into another and into a theme, and changes are marked.
#pragma once

#include <string>
#include <vector>

#include "arguments.h"
#include "failure.h"
#include "findings.h"
#include "progress.h"

struct Outcome {
  std::vector<std::string> losses;  // what is not kept, a line for each file that RESULT replaces or renews
  Ids ids = Ids("");
  int source_nodes = 0;
  int harvested = 0;
  Findings findings;
  std::string misfit;  // why nothing is written although nothing failed; empty if all is well
  Pairs pairs;         // what is carried
  RYXmlWrapperBase result;
};

/// Does the job in memory. Throws a Failure.
Outcome transfer(const Arguments& arguments, Progress& progress);

/// Writes what the arguments say: RESULT and THEME, unless the trees do not fit, and the report file. Throws a
/// Failure, with all files as they were; so they are too after a signal that asks the program to end, unless
/// all are done: then it ends with status 1. Throws Unprinted if only the report could not be sent to a stream.
void write_files(const Arguments& arguments, const Outcome& outcome, Progress& progress);
