#include "platform/program.h"

#include <algorithm>

namespace platform {

std::vector<std::string> Started(int count, char** words) {
  return {words + std::min(count, 1), words + count};
}

}  // namespace platform
