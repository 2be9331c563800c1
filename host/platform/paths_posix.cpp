#include "platform/paths.h"

#include <cerrno>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

fs::path ToPath(const std::string& name) { return name; }
std::string FromPath(const fs::path& path) { return path.string(); }

Kind KindOf(const std::string& name) {
  std::error_code error;
  const fs::file_status status = fs::status(name, error);
  if (!fs::exists(status)) return Kind::kNothing;
  return fs::is_regular_file(status) ? Kind::kFile : fs::is_directory(status) ? Kind::kFolder : Kind::kStream;
}

std::uintmax_t SizeOf(const std::string& name) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(name, error);
  return error ? 0 : size;
}

bool IsSameFile(const std::string& left, const std::string& right) {
  std::error_code error;
  return fs::equivalent(left, right, error);
}

bool IsSamePlace(const std::string& left, const std::string& right) {
  if (IsSameFile(left, right)) return true;
  fs::path one = left;
  fs::path other = right;
  if (FollowLinks(one) != 0 || FollowLinks(other) != 0 || one.filename() != other.filename()) return false;
  std::error_code error;
  return fs::equivalent(fs::absolute(one, error).parent_path(), fs::absolute(other, error).parent_path(),
                        error);
}

void RemoveFile(const std::string& name) {
  std::error_code error;
  fs::remove(name, error);
}

int FollowLinks(fs::path& path) {
  constexpr int kLongestChain = 40;
  for (int i = 0; i < kLongestChain; ++i) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(path, error))) return 0;
    const fs::path next = fs::read_symlink(path, error);
    if (error) return error.value();
    path = path.parent_path() / next;
  }
  return ELOOP;
}

}  // namespace platform
