// A file that takes its place only when all else has succeeded.
#pragma once

#include <optional>
#include <string>

#include "platform/files.h"

/// What a program writes: a regular file, new or old, or a stream, which is "-" for standard output, a FIFO or
/// a device. The bytes go to a temporary file first. It lasts no longer than this object, so it is made and
/// committed while signals wait.
class StagedFile {
 public:
  /// Throws a Failure if the name cannot be that of a file, or its file may not be written. A link is followed.
  explicit StagedFile(const std::string& name);
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;
  ~StagedFile();

  bool is_stream() const { return !file_; }
  /// A file for what is saved by its name, to be taken over then. It is removed in any case.
  const char* path() const { return saved_.c_str(); }
  /// Takes over what was saved there. Throws a Failure.
  void take();
  /// Writes the bytes. Throws a Failure.
  void write(const std::string& bytes);
  /// What is to be removed if the program dies before this object; "" if nothing.
  std::string unfinished() const { return file_ ? file_->Unfinished() : ""; }
  /// Puts the regular file into its place, as the save of a tree does. Throws a Failure.
  void commit();
  /// Sends what was written to the stream, which may wait for its reader. Throws a Failure.
  void send();

 private:
  void check(const platform::FileFault& fault) const;

  std::string name_;
  std::string saved_;                         // what path() gives
  std::optional<platform::OutputFile> file_;  // a regular file
  int content_ = -1;                          // of a stream, whose file has no name any more
};
