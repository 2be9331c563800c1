#include "version.h"

std::string version_text(const char* program) {
  return std::string(program) + " (rytree_Utils) " RYTREE_VERSION "\n";
}
