// What the bundled node class tells of a failure.
#pragma once

#include <rytree_host/node.h>

#include <sstream>
#include <string>

/// Why the last load, save or parse of this thread failed, with its line, column and byte offset.
inline std::string failure() {
  const auto [why, line, column, offset] = RYXmlWrapperBase::LastFailure();
  std::ostringstream all;
  all << why << " " << line << ":" << column << " " << offset;
  return all.str();
}
