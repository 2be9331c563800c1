// Files, read and written in pieces. Paths are UTF-8. Errors are numbers of <cerrno>, 0 for success.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace platform {

// A regular file open for reading. Anything else (a directory, a pipe, a device) is refused without waiting.
class InputFile {
 public:
  InputFile() = default;
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile();

  int Open(const std::string& path);
  // Fills the buffer unless the file ends before.
  int Read(char* to, std::size_t room, std::size_t& length);
  // Goes back to the start.
  int Rewind();
  // As it was when the file was opened.
  std::size_t size() const { return size_; }

 private:
  std::size_t size_ = 0;
  std::size_t done_ = 0;  // how much of it was read
  int descriptor_ = -1;
};

// The step that failed, as in "cannot write", and why.
struct FileFault {
  std::string_view step;
  int error = 0;
};

// A file that replaces another as a whole: at every moment the path holds the old file or the new one. What
// was written without a Finish is removed. A link at the path stays and its target is replaced. A file that may not be
// written is not replaced.
//
// What is kept of the old file: on Linux its mode, and its owner and group where that is allowed. On Windows its access
// list, the attributes hidden, system, not indexed and encrypted, and the time when it was made. Where the saver may
// not set access lists, as on some shares, what the list has from a folder is that of the present folder.
//
// Not kept: other links to the old file, which goes on under them; extended attributes, other streams and the rules
// of an audit; access lists of Linux beyond the mode; on Windows the owner, who is the saver then, whether the file is
// compressed, and who else could read it if it was encrypted.
class OutputFile {
 public:
  explicit OutputFile(const char* path);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  // After one that fails only the destructor may follow.
  FileFault Open();
  FileFault Write(std::string_view content);
  FileFault Finish();

  // What to remove if the process ends before a Finish and the system does not see to that; "" if nothing.
  std::string Unfinished() const;

 private:
  class Work;
  std::unique_ptr<Work> work_;
};

}  // namespace platform
