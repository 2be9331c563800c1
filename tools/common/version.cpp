#include "version.h"

#include <rytree_Utils/version.h>

std::string version_text(const char* program) {
  return std::string(program) + " (rytree_Utils) " RYTREE_VERSION_TEXT "\n";
}
