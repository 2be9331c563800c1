// Streams by their descriptors. Names are UTF-8. A call that fails leaves the reason in errno.
#pragma once

#include <string>

namespace platform {

inline constexpr int kStandardInput = 0;
inline constexpr int kStandardOutput = 1;
inline constexpr int kStandardError = 2;

// These give a descriptor that no program started meanwhile inherits, -1 on a failure.
int OpenToRead(const std::string& name);
int OpenToWrite(const std::string& name);
int Duplicate(int descriptor);
void Close(int descriptor);

// Copies from one descriptor to the other up to the end. An error number, 0 for success.
int CopyAll(int from, int to);

// The descriptor that a name like "/dev/stdout" stands for; -1 for any other name.
int DescriptorOf(const std::string& name);

// An empty file for data that passes through the program. It is removed with this object.
class PassingFile {
 public:
  PassingFile();
  PassingFile(const PassingFile&) = delete;
  PassingFile& operator=(const PassingFile&) = delete;
  ~PassingFile() { Close(descriptor_); }

  // -1 if it could not be made.
  int descriptor() const { return descriptor_; }
  // The path by which the bytes can be read.
  const std::string& path() const { return path_; }

 private:
  int descriptor_ = -1;
  std::string path_;
};

// The path of a new file in the system's folder for temporary files, which the caller removes; "" on a failure.
std::string MakeTemporaryFile();

// A number that no other program has now.
int ProgramNumber();

}  // namespace platform
