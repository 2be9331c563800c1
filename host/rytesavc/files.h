// Files: reading in pieces, and replacing as a whole. What fails is noted as the thread's failure.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace rytesavc {

// A regular file open for reading. Anything else (a directory, a pipe, a device) is refused without waiting.
class InputFile {
 public:
  explicit InputFile(const char* path) : path_(path) {}
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;
  ~InputFile();

  bool Open();
  // Fills the buffer as far as the file goes. False on a failure.
  bool Read(char* to, std::size_t room, std::size_t& length);
  // As it was when the file was opened.
  std::size_t size() const { return size_; }

 private:
  bool Fail(int error) const;

  std::string path_;
  std::size_t size_ = 0;
  int descriptor_ = -1;
};

// At every moment the path holds the old file or the new one, whole. A symbolic link at the path stays and
// its target is replaced; the old file's mode, and its owner where that is allowed, are kept.
bool ReplaceFile(const char* path, std::string_view content);

}  // namespace rytesavc
