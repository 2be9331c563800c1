#include "platform/paths.h"

#include "platform/windows.h"

namespace platform {

std::filesystem::path ToPath(const std::string& name) { return Wide(name); }
std::string FromPath(const std::filesystem::path& path) { return Narrow(path.native()); }

}  // namespace platform
