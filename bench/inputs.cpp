#include "inputs.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numeric>
#include <random>
#include <utility>

#include "tree_maker.h"

namespace {

class ScratchFolder {
 public:
  ScratchFolder() : path_(parent() / ("rytree_bench." + std::to_string(getpid()))) {
    std::filesystem::create_directory(path_);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string file(const std::string& name) const { return path_ / name; }

 private:
  static std::filesystem::path parent() {
    return access("/dev/shm", W_OK) == 0 ? "/dev/shm" : std::filesystem::temp_directory_path();
  }

  std::filesystem::path path_;
};

const ScratchFolder& folder() {
  static const ScratchFolder made;
  return made;
}

std::string write_file(const std::string& name, const std::string& text) {
  std::string path = folder().file(name);
  std::ofstream file(path, std::ios::binary);
  file << text << std::flush;
  if (!file) std::abort();
  return path;
}

Input make_input(int nodes) {
  const std::string number = std::to_string(nodes);
  const MadeTree tree = make_tree(nodes);
  Input made{.nodes = nodes,
             .tree_path = write_file("tree" + number, tree.xml),
             .other_path = write_file("other" + number, tree.other_xml),
             .flat_path = write_file("flat" + number, make_flat_tree(nodes)),
             .ids = {},
             .values = {},
             .last_id = tree.last_id};
  std::vector<std::size_t> order(tree.leaf_ids.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::mt19937 random(7);
  for (std::size_t i = order.size(); i > 1; --i) std::swap(order[i - 1], order[random() % i]);
  for (const std::size_t leaf : order) {
    made.ids.push_back(tree.leaf_ids[leaf]);
    made.values.push_back(tree.new_values[leaf]);
  }
  return made;
}

}  // namespace

const Input& input(int nodes) { return made_once(nodes, make_input); }

const std::string& form_path(int nodes, FileForm form) {
  static std::map<std::pair<int, FileForm>, std::string> paths;
  std::string& path = paths[{nodes, form}];
  if (path.empty()) {
    const std::string name = "form" + std::to_string(static_cast<int>(form)) + '_' + std::to_string(nodes);
    path = write_file(name, in_form(make_tree(nodes).xml, form));
  }
  return path;
}

std::string scratch_path() { return folder().file("scratch"); }
