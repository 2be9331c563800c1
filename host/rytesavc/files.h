// Files, read and written in pieces. What fails is noted as the thread's failure.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

#include "xml_input.h"

namespace rytesavc {

// A regular file open for reading. Anything else (a directory, a pipe, a device) is refused without waiting.
class InputFile : public XmlInput {
 public:
  explicit InputFile(const char* path) : path_(path) {}
  ~InputFile() override;

  bool Open();
  bool Read(char* to, std::size_t room, std::size_t& length) override;
  // As it was when the file was opened.
  std::size_t size() const override { return size_; }
  // Goes back to the start. False after a failure.
  bool Rewind();

 private:
  bool Fail(int error);

  std::string path_;
  std::size_t size_ = 0;
  std::size_t done_ = 0;  // how much of it was read
  bool failed_ = false;
  int descriptor_ = -1;
};

// A file that replaces another as a whole: at every moment the path holds the old file or the new one. What
// was written without a Finish is removed. A symbolic link at the path stays and its target is replaced; the
// old file's mode, and its owner where that is allowed, are kept.
//
// Until it is whole the file has no name, where the system can do that, else one beside the target. The
// system cannot put a file without a name in the place of another: it gets the name beside the target for the
// moment before it is renamed. While a file has that name it is locked; one that is not was left by a process
// that was killed.
class OutputFile {
 public:
  explicit OutputFile(const char* path) : path_(path) {}
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;
  ~OutputFile();

  // Each is false on a failure, after which only the destructor may follow.
  bool Open();
  bool Write(std::string_view content);
  bool Finish();

 private:
  // These give an error number, 0 for success.
  int FollowLinks();
  int LookAtTarget();
  int CreateUnnamed();
  int CreateNamed();
  int KeepMode() const;
  int Append(std::string_view content) const;
  int Flush() const;
  int Close();
  int Link(const std::filesystem::path& path) const;
  int TakeName();
  int CopyToNamed();
  int TakeTarget();
  template <class Make>
  int MakeBeside(const Make& make);
  bool Ok(std::string_view step, int error) const;
  bool Settle() { return Ok("cannot flush", Flush()) && Ok("cannot close", Close()); }

  std::string path_;  // as the caller wrote it
  std::filesystem::path target_;
  std::filesystem::path folder_;  // of the target
  bool replaces_ = false;         // whether there is an old file
  unsigned mode_ = 0;             // of the old file
  unsigned owner_ = 0;            // of the old file
  unsigned group_ = 0;            // of the old file
  std::filesystem::path beside_;  // the name beside the target, while the file has it
  int descriptor_ = -1;
};

}  // namespace rytesavc
