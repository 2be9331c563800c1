// The version of the programs, which is that of the library.
#pragma once

#include <string>

/// What a program prints for --version.
std::string version_text(const char* program);
