#include "platform/streams.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace platform {

namespace {

int WriteAll(int to, const char* bytes, std::size_t length) {
  while (length > 0) {
    const ssize_t written = write(to, bytes, length);
    if (written < 0 && errno != EINTR) return errno;
    if (written <= 0) continue;
    bytes += written;
    length -= static_cast<std::size_t>(written);
  }
  return 0;
}

}  // namespace

int OpenToRead(const std::string& name) { return open(name.c_str(), O_RDONLY | O_CLOEXEC); }
int OpenToWrite(const std::string& name) { return open(name.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY); }
int Duplicate(int descriptor) { return fcntl(descriptor, F_DUPFD_CLOEXEC, 0); }
void Close(int descriptor) {
  if (descriptor >= 0) close(descriptor);
}

int CopyAll(int from, int to) {
  std::array<char, 1U << 16U> bytes{};
  for (;;) {
    const ssize_t got = read(from, bytes.data(), bytes.size());
    if (got == 0) return 0;
    if (got < 0 && errno != EINTR) return errno;
    if (got < 0) continue;
    if (const int error = WriteAll(to, bytes.data(), static_cast<std::size_t>(got)); error != 0) return error;
  }
}

int DescriptorOf(const std::string& name) {
  if (name == "/dev/stdin") return kStandardInput;
  if (name == "/dev/stdout") return kStandardOutput;
  if (name == "/dev/stderr") return kStandardError;
  for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
    if (!name.starts_with(folder)) continue;
    int number = -1;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + folder.size(), end, number);
    return error == std::errc() && stop == end ? number : -1;
  }
  return -1;
}

PassingFile::PassingFile()
    : descriptor_(memfd_create("tree", MFD_CLOEXEC)), path_("/proc/self/fd/" + std::to_string(descriptor_)) {}

std::string MakeTemporaryFile() {
  std::string path = (std::filesystem::temp_directory_path() / "rytree-XXXXXX").string();
  const int file = mkstemp(path.data());
  if (file < 0) return {};
  close(file);
  return path;
}

int ProgramNumber() { return getpid(); }

}  // namespace platform
