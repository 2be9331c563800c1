#include "staged_file.h"

#include <array>
#include <cerrno>

#include "failure.h"
#include "platform/errors.h"
#include "platform/paths.h"
#include "platform/streams.h"
#include "streams.h"

namespace {

/// A name beside the file that no other program takes.
std::string name_beside(const std::string& name) {
  const std::string number = std::to_string(platform::ProgramNumber());
  return platform::FromPath(platform::ToPath(name).replace_filename(".unfinished-" + number));
}

}  // namespace

StagedFile::StagedFile(const std::string& name) : name_(name) {
  if (::is_stream(name)) {
    saved_ = platform::MakeTemporaryFile();
    if (saved_.empty()) check({"cannot write", errno});
    return;
  }
  check(file_.emplace(name.c_str()).Open());
  saved_ = name_beside(name);
}

StagedFile::~StagedFile() {
  if (!saved_.empty()) platform::RemoveFile(saved_);
  platform::Close(content_);
}

void StagedFile::take() {
  if (file_) {
    platform::InputFile saved;
    std::array<char, 1U << 16U> bytes{};
    std::size_t length = bytes.size();
    check({"cannot read", saved.Open(saved_)});
    while (length == bytes.size()) {
      check({"cannot read", saved.Read(bytes.data(), bytes.size(), length)});
      check(file_->Write({bytes.data(), length}));
    }
  } else {
    content_ = platform::OpenToRead(saved_);
    if (content_ < 0) check({"cannot read", errno});
  }
  platform::RemoveFile(saved_);
}

void StagedFile::write(const std::string& bytes) {
  if (file_) {
    check(file_->Write(bytes));
    return;
  }
  platform::OutputFile saved(saved_.c_str());
  check(saved.Open());
  check(saved.Write(bytes));
  check(saved.Finish());
  take();
}

void StagedFile::commit() {
  if (file_) check(file_->Finish());
}

void StagedFile::send() {
  if (content_ < 0) return;
  const int number = is_standard(name_) ? platform::kStandardOutput : platform::DescriptorOf(name_);
  const int out = number >= 0 ? platform::Duplicate(number) : platform::OpenToWrite(name_);
  if (out < 0) check({"cannot write", errno});
  const int error = platform::CopyAll(content_, out);
  platform::Close(out);
  check({"cannot write", error});
}

void StagedFile::check(const platform::FileFault& fault) const {
  if (fault.error != 0)
    throw Failure(shown_name(name_) + ": " + std::string(fault.step) + ": " +
                  platform::ErrorText(fault.error));
}
