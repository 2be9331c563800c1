#include "platform/errors.h"

#include <system_error>

namespace platform {

std::string ErrorText(int error) { return std::generic_category().message(error); }

}  // namespace platform
