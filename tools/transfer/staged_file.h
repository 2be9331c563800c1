// A file that takes its place only when all else has succeeded.
#pragma once

#include <string>

class StagedFile {
 public:
  /// Throws a Failure if something other than a regular file has the name. A symbolic link is followed.
  explicit StagedFile(const std::string& name);
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;
  ~StagedFile();

  /// Where to write: a temporary file in the same folder, removed if it is not committed.
  const char* path() const { return staged_.c_str(); }
  /// Moves the temporary file into place, with the mode of the file that was there. Throws a Failure.
  void commit();

 private:
  std::string name_;
  std::string place_;
  std::string staged_;
};
