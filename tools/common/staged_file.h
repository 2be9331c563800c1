// A file that takes its place only when all else has succeeded.
#pragma once

#include <string>

/// What a program writes: a regular file, new or old, or a stream, which is "-" for standard output, a FIFO or
/// a device. The bytes go to a temporary file first. It lasts no longer than this object, so it is made and
/// committed while signals wait.
class StagedFile {
 public:
  /// Throws a Failure if the name is that of a folder. A symbolic link is followed.
  explicit StagedFile(const std::string& name);
  StagedFile(const StagedFile&) = delete;
  StagedFile& operator=(const StagedFile&) = delete;
  ~StagedFile();

  bool is_stream() const { return is_stream_; }
  /// Where to write: a temporary file beside a regular file, removed if it is not committed.
  const char* path() const { return staged_.c_str(); }
  /// Writes the bytes there. Throws a Failure.
  void write(const std::string& bytes) const;
  /// Moves the temporary file into place, with the mode of the file that was there; or takes its name, so that
  /// nothing is left of it whatever happens to the program. Does nothing the second time. Throws a Failure.
  void commit();
  /// Sends what was committed to the stream, which may wait for its reader. Throws a Failure.
  void send();

 private:
  std::string name_;
  std::string place_;
  std::string staged_;
  bool is_stream_;
  int content_ = -1;  // of a stream, once it is committed
};
