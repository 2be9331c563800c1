// The start of a program.
#pragma once

#include <string>
#include <vector>

namespace platform {

// Gives the words of the command line after the program's name, as UTF-8, and lets the standard streams pass
// bytes as they are and a console show UTF-8 until the program ends. `count` and `words` are the arguments of main.
std::vector<std::string> Started(int count, char** words);

}  // namespace platform
