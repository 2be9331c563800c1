// Streams by their descriptors. Names are UTF-8. What fails leaves its reason in errno.
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

// An empty file for what passes through the program. It is gone with this object.
class PassingFile {
 public:
  PassingFile();
  PassingFile(const PassingFile&) = delete;
  PassingFile& operator=(const PassingFile&) = delete;
  ~PassingFile() { Close(descriptor_); }

  // -1 if it could not be made.
  int descriptor() const { return descriptor_; }
  // What the bytes can be read by.
  const std::string& path() const { return path_; }

 private:
  int descriptor_ = -1;
  std::string path_;
};

// A new file of the system's folder for such, for this program to remove; "" on a failure.
std::string MakeTemporaryFile();

// A number that no other program has now.
int ProgramNumber();

}  // namespace platform
