// The terminal to which standard output goes.
#pragma once

struct Terminal {
  int columns = 0;      // 0 if there is no terminal, or its size is unknown
  int lines = 0;        // the same
  bool colour = false;  // never with NO_COLOR in the environment

  static Terminal of_standard_output();
};
