#include "streams.h"

#include <cerrno>
#include <optional>

#include "failure.h"
#include "platform/errors.h"
#include "platform/paths.h"
#include "platform/signals.h"
#include "platform/streams.h"
#include "staged_file.h"

namespace {

/// A descriptor, closed in the end.
struct Descriptor {
  explicit Descriptor(int opened) : number(opened) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { platform::Close(number); }
  int number;
};

}  // namespace

bool is_standard(const std::string& name) { return name == "-"; }

std::string input_name(const std::string& name) {
  return platform::DescriptorOf(name) == platform::kStandardInput ? "-" : name;
}

std::string output_name(const std::string& name) {
  return platform::DescriptorOf(name) == platform::kStandardOutput ? "-" : name;
}

bool is_stream(const std::string& name) {
  return is_standard(name) || platform::DescriptorOf(name) >= 0 ||
         platform::KindOf(name) == platform::Kind::kStream;
}

std::string shown_input(const std::string& name) { return is_standard(name) ? "standard input" : name; }
std::string shown_name(const std::string& name) { return is_standard(name) ? "standard output" : name; }

RYXmlWrapperBase load_tree(const std::string& name) {
  std::string path = name;
  std::optional<platform::PassingFile> copy;
  if (is_stream(name)) {  // The node class reads regular files.
    const Descriptor stream(is_standard(name) ? platform::Duplicate(platform::kStandardInput)
                                              : platform::OpenToRead(name));
    copy.emplace();
    const int error = stream.number < 0 || copy->descriptor() < 0
                          ? errno
                          : platform::CopyAll(stream.number, copy->descriptor());
    if (error != 0) throw Failure(shown_input(name) + ": cannot read: " + platform::ErrorText(error));
    path = copy->path();
  }
  RYXmlWrapperBase tree;
  if (tree.load(path.c_str(), 0) == 0) throw file_failure(shown_input(name));
  return tree;
}

void save_tree(const RYXmlWrapperBase& tree, const std::string& name) {
  std::optional<platform::HeldSignals> signals(std::in_place);
  if (!is_stream(name)) {
    if (tree.Save(name.c_str()) == 0) throw file_failure(name);
    signals->AllIsWritten(/*status=*/1);  // as where the program cannot tell of it
    return;
  }
  StagedFile staged(name);
  if (tree.Save(staged.path()) == 0) throw file_failure(shown_name(name));
  staged.take();
  signals.reset();
  staged.send();
}
