#include "staged_file.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include "failure.h"
#include "platform/paths.h"
#include "platform/streams.h"
#include "streams.h"

namespace fs = std::filesystem;
using platform::ToPath;

namespace {

Failure system_failure(const std::string& name, const char* what, int error) {
  return Failure(shown_name(name) + ": " + what + ": " + std::strerror(error));
}

}  // namespace

StagedFile::StagedFile(const std::string& name) : name_(name), is_stream_(::is_stream(name)) {
  std::error_code error;
  if (is_stream_) {
    staged_ = platform::MakeTemporaryFile();
    if (staged_.empty()) throw system_failure(name_, "cannot write", errno);
    return;
  }
  if (fs::is_directory(ToPath(name), error)) throw Failure(name + ": not a regular file");
  const fs::path place = fs::weakly_canonical(ToPath(name), error);
  place_ = error ? name : platform::FromPath(place);
  staged_ = place_ + ".new-" + std::to_string(platform::ProgramNumber());
}

StagedFile::~StagedFile() {
  std::error_code error;
  if (!staged_.empty()) fs::remove(ToPath(staged_), error);
  platform::Close(content_);
}

void StagedFile::write(const std::string& bytes) const {
  errno = 0;
  std::ofstream file(ToPath(staged_), std::ios::binary);
  file << bytes;
  file.close();
  if (!file) throw system_failure(name_, "cannot write", errno);
}

void StagedFile::commit() {
  if (staged_.empty()) return;
  std::error_code error;
  if (is_stream_) {
    content_ = platform::OpenToRead(staged_);
    if (content_ < 0) throw system_failure(name_, "cannot read", errno);
    fs::remove(ToPath(staged_), error);
  } else {
    const fs::file_status old = fs::status(ToPath(place_), error);
    if (fs::is_regular_file(old)) fs::permissions(ToPath(staged_), old.permissions(), error);
    fs::rename(ToPath(staged_), ToPath(place_), error);
    if (error) throw Failure(name_ + ": " + error.message());
  }
  staged_.clear();
}

void StagedFile::send() {
  if (content_ < 0) return;
  const int number = is_standard(name_) ? platform::kStandardOutput : platform::DescriptorOf(name_);
  const int out = number >= 0 ? platform::Duplicate(number) : platform::OpenToWrite(name_);
  if (out < 0) throw system_failure(name_, "cannot write", errno);
  const int error = platform::CopyAll(content_, out);
  platform::Close(out);
  if (error != 0) throw system_failure(name_, "cannot write", error);
}
