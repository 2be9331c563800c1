#include "platform/paths.h"

namespace platform {

std::filesystem::path ToPath(const std::string& name) { return name; }
std::string FromPath(const std::filesystem::path& path) { return path.string(); }

}  // namespace platform
