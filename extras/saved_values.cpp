// Whether a file holds saved values.
#include <rytree_Utils/extras.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

namespace rytree {

namespace {

constexpr std::string_view kRootTag = "Settings";
constexpr std::string_view kChildTag = "node";

bool is_child_tag(std::string_view tag) {
  if (!tag.starts_with(kChildTag)) return false;
  tag.remove_prefix(kChildTag.size());
  int id = 0;
  const auto [end, error] = std::from_chars(tag.data(), tag.data() + tag.size(), id);
  return error == std::errc() && end == tag.data() + tag.size();
}

/// Takes white space, the XML declaration, processing instructions and comments off the front. False if the
/// text ends in one of them.
bool skip_prolog(std::string_view& text) {
  for (;;) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    const bool comment = text.starts_with("<!--");
    if (!comment && !text.starts_with("<?")) return !text.empty();
    const std::string_view last = comment ? "-->" : "?>";
    const std::size_t end = text.find(last, 2);
    if (end == std::string_view::npos) return false;
    text.remove_prefix(end + last.size());
  }
}

/// The name of a file, which is UTF-8 on every system; empty if the system cannot have it.
std::filesystem::path path_of(std::string_view name) {
  try {
    return std::u8string(name.begin(), name.end());
  } catch (const std::system_error&) {
    return {};
  }
}

/// Whether the beginning of a file is enough to see that its root has another tag. Where a name is too long to be opened
/// here, it is not.
bool has_other_root(const char* file) {
  const std::filesystem::path path = path_of(file);
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;  // what is read from a pipe is gone
  std::string beginning(4096, '\0');
  std::ifstream in(path, std::ios::binary);
  in.read(beginning.data(), static_cast<std::streamsize>(beginning.size()));
  std::string_view text(beginning.data(), static_cast<std::size_t>(in.gcount()));
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  if (!skip_prolog(text) || text.size() < 2 || text[0] != '<' || text[1] == '!') return false;
  text.remove_prefix(1);
  const std::size_t end = text.find_first_of(" \t\r\n/>");
  return end != std::string_view::npos && text.substr(0, end) != kRootTag;
}

}  // namespace

bool holds_saved_values(const char* file) {
  RYXmlWrapperBase root;
  if (file == nullptr || has_other_root(file) || root.load(file, 0) == 0) return false;
  if (tag_of(root) != kRootTag || root.GetNodeCount() == 0) return false;
  RYXmlWrapperBase child;
  for (root.FirstChild(child); child.IsNodeValid() != 0; child.NextSibling(child)) {
    if (child.GetNodeCount() > 0 || !is_child_tag(tag_of(child))) return false;
  }
  return true;
}

}  // namespace rytree
