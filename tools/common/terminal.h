// The terminal to which a program prints.
#pragma once

struct Terminal {
  int columns = 0;      // 0 if there is no terminal, or its size is unknown
  int lines = 0;        // the same
  bool plain = true;    // takes no control sequences: there is none, or TERM is "dumb"
  bool colour = false;  // never if it is plain, or with NO_COLOR in the environment

  static Terminal of(int descriptor);
  static Terminal of_standard_output();

  /// The room on a line that can be cleared; 0 if none can.
  int clear_columns() const { return plain ? 0 : columns > 0 ? columns : 80; }
};
