// Names of files, which are UTF-8, as the C++ library takes them.
#pragma once

#include <filesystem>
#include <string>

namespace platform {

std::filesystem::path ToPath(const std::string& name);
std::string FromPath(const std::filesystem::path& path);

}  // namespace platform
