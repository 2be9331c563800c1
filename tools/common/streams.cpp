#include "streams.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string_view>

#include "failure.h"
#include "held_signals.h"
#include "staged_file.h"

namespace fs = std::filesystem;

namespace {

/// A descriptor, closed in the end.
struct Descriptor {
  explicit Descriptor(int opened) : number(opened) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number >= 0) close(number);
  }
  int number;
};

int write_all(int to, const char* bytes, std::size_t length) {
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

bool is_standard(const std::string& name) { return name == "-"; }

int descriptor_of(const std::string& name) {
  if (name == "/dev/stdin") return STDIN_FILENO;
  if (name == "/dev/stdout") return STDOUT_FILENO;
  if (name == "/dev/stderr") return STDERR_FILENO;
  for (const std::string_view folder : {"/dev/fd/", "/proc/self/fd/"}) {
    if (!name.starts_with(folder)) continue;
    int number = -1;
    const char* const end = name.data() + name.size();
    const auto [stop, error] = std::from_chars(name.data() + folder.size(), end, number);
    return error == std::errc() && stop == end ? number : -1;
  }
  return -1;
}

std::string output_name(const std::string& name) { return descriptor_of(name) == STDOUT_FILENO ? "-" : name; }

bool is_stream(const std::string& name) {
  std::error_code error;
  const fs::file_status status = fs::status(name, error);
  return is_standard(name) || descriptor_of(name) >= 0 ||
         (fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status));
}

std::string shown_input(const std::string& name) { return is_standard(name) ? "standard input" : name; }
std::string shown_name(const std::string& name) { return is_standard(name) ? "standard output" : name; }

int copy_all(int from, int to) {
  std::array<char, 1U << 16U> bytes{};
  for (;;) {
    const ssize_t got = read(from, bytes.data(), bytes.size());
    if (got == 0) return 0;
    if (got < 0 && errno != EINTR) return errno;
    if (got < 0) continue;
    if (const int error = write_all(to, bytes.data(), static_cast<std::size_t>(got)); error != 0)
      return error;
  }
}

RYXmlWrapperBase load_tree(const std::string& name) {
  std::string path = name;
  std::optional<Descriptor> copy;
  if (is_stream(name)) {  // The node class reads regular files, and this one is in memory.
    const Descriptor stream(is_standard(name) ? dup(STDIN_FILENO) : open(name.c_str(), O_RDONLY | O_CLOEXEC));
    copy.emplace(memfd_create("tree", MFD_CLOEXEC));
    const int error = stream.number < 0 || copy->number < 0 ? errno : copy_all(stream.number, copy->number);
    if (error != 0) throw Failure(shown_input(name) + ": cannot read: " + std::strerror(error));
    path = "/proc/self/fd/" + std::to_string(copy->number);
  }
  RYXmlWrapperBase tree;
  if (tree.load(path.c_str(), 0) == 0) throw file_failure(shown_input(name));
  return tree;
}

void save_tree(const RYXmlWrapperBase& tree, const std::string& name) {
  std::optional<HeldSignals> signals(std::in_place);
  if (!is_stream(name)) {
    if (tree.Save(name.c_str()) == 0) throw file_failure(name);
    signals->all_is_written(/*status=*/0);
    return;
  }
  StagedFile staged(name);
  if (tree.Save(staged.path()) == 0) throw file_failure(shown_name(name));
  staged.commit();
  signals.reset();
  staged.send();
}
