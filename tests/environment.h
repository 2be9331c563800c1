// The environment of the test program.
#pragma once

#include <cstdlib>
#include <string>

inline void set_environment(const std::string& name, const std::string& value) {
#ifdef _WIN32
  _putenv_s(name.c_str(), value.c_str());
#else
  setenv(name.c_str(), value.c_str(), 1);
#endif
}
