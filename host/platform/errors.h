// Error numbers of <cerrno> in words, which are the same on every system.
#pragma once

#include <string>

namespace platform {

std::string ErrorText(int error);

}  // namespace platform
