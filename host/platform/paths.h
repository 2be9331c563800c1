// Names of files, which are UTF-8 and of any length, and what they lead to.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace platform {

// The name for the C++ library, to take it apart. On Windows the library cannot open what has more than 260 characters.
std::filesystem::path ToPath(const std::string& name);
std::string FromPath(const std::filesystem::path& path);

// What a name leads to, through links. Pipes and devices are not opened.
enum class Kind { kNothing, kFile, kFolder, kStream };
Kind KindOf(const std::string& name);

// The size of a file, 0 if there is none.
std::uintmax_t SizeOf(const std::string& name);

// Whether both names lead to one file that exists.
bool IsSameFile(const std::string& left, const std::string& right);
// Whether they do, or would if files were written under both. Where nothing is yet, names are equal as the system
// takes them: on Windows the case of letters does not matter.
bool IsSamePlace(const std::string& left, const std::string& right);

// Does nothing if there is no file.
void RemoveFile(const std::string& name);

// Goes to where the links at the end of the path lead, which may be to nothing yet; on Windows such a link is refused.
// An error number, 0 for success.
int FollowLinks(std::filesystem::path& path);

}  // namespace platform
