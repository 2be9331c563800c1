#include "staged_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "failure.h"
#include "streams.h"

namespace fs = std::filesystem;

namespace {

Failure system_failure(const std::string& name, const char* what, int error) {
  return Failure(shown_name(name) + ": " + what + ": " + std::strerror(error));
}

/// A new file of the system's folder for such.
std::string temporary_file() {
  std::string path = (fs::temp_directory_path() / "rytree-XXXXXX").string();
  const int file = mkstemp(path.data());
  if (file < 0) throw system_failure(path, "cannot write", errno);
  close(file);
  return path;
}

}  // namespace

StagedFile::StagedFile(const std::string& name) : name_(name), is_stream_(::is_stream(name)) {
  std::error_code error;
  if (is_stream_) {
    staged_ = temporary_file();
    return;
  }
  if (fs::is_directory(name, error)) throw Failure(name + ": not a regular file");
  const fs::path place = fs::weakly_canonical(name, error);
  place_ = error ? name : place.string();
  staged_ = place_ + ".new-" + std::to_string(getpid());
}

StagedFile::~StagedFile() {
  std::error_code error;
  if (!staged_.empty()) fs::remove(staged_, error);
  if (content_ >= 0) close(content_);
}

void StagedFile::write(const std::string& bytes) const {
  errno = 0;
  std::ofstream file(staged_, std::ios::binary);
  file << bytes;
  file.close();
  if (!file) throw system_failure(name_, "cannot write", errno);
}

void StagedFile::commit() {
  if (staged_.empty()) return;
  std::error_code error;
  if (is_stream_) {
    content_ = open(staged_.c_str(), O_RDONLY | O_CLOEXEC);
    if (content_ < 0) throw system_failure(name_, "cannot read", errno);
    fs::remove(staged_, error);
  } else {
    const fs::file_status old = fs::status(place_, error);
    if (fs::is_regular_file(old)) fs::permissions(staged_, old.permissions(), error);
    fs::rename(staged_, place_, error);
    if (error) throw Failure(name_ + ": " + error.message());
  }
  staged_.clear();
}

void StagedFile::send() {
  if (content_ < 0) return;
  const int number = is_standard(name_) ? STDOUT_FILENO : descriptor_of(name_);
  const int out = number >= 0 ? dup(number) : open(name_.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY);
  if (out < 0) throw system_failure(name_, "cannot write", errno);
  const int error = copy_all(content_, out);
  close(out);
  if (error != 0) throw system_failure(name_, "cannot write", error);
}
