// The terminal behind standard output.
#pragma once

struct Terminal {
  int columns = 0;  // 0: no terminal, or one that does not tell
  int lines = 0;
  bool colour = false;  // never with NO_COLOR in the environment

  static Terminal of_standard_output();
};
