#include "fuzz/calls/scene.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fuzz/calls/opcode.h"

namespace calls {

namespace {

[[noreturn]] void fail(const std::string& why) {
  std::fprintf(stderr, "%s\n", why.c_str());
  std::abort();
}

std::string xml_of(const RYXmlWrapperBase& node) {
  CString text;
  node.GetXmlText(&text);
  return std::string(text.View());
}

void check_round_trip(const RYXmlWrapperBase& root) {
  CString first, second;
  RYXmlWrapperBase again;
  again.CreateNew(0, nullptr);
  if (root.GetXmlText(&first) == 0 || again.SetXmlText(first) == 0 || again.GetXmlText(&second) == 0 ||
      first != second) {
    fail("A tree does not come back from its XML text:\n" + std::string(first.View()) + "\n" +
         std::string(second.View()) + "\n" + RYXmlWrapperBase::LastFailure().text);
  }
}

template <class Array>
std::size_t size_of(const Array& array) {
  std::size_t size = static_cast<std::size_t>(array.GetSize());
  if constexpr (std::is_same_v<Array, CStringArray>)
    for (const CString& text : array) size += text.View().size();
  return size;
}

void show_item(std::string& to, const RYXmlWrapperBase& node) { to += xml_of(node); }
void show_item(std::string& to, const CString& text) { to += text.View(); }
void show_item(std::string& to, const bool& flag) {
  unsigned char byte;  // not always a bool
  std::memcpy(&byte, &flag, 1);
  to += byte != 0 ? '1' : '0';
}
template <class Number>
requires std::is_arithmetic_v<Number>
void show_item(std::string& to, const Number& number) { to += std::to_string(number); }
template <class Array, int Code>
void show_item(std::string& to, const HostArray<Array, Code>& array) {
  for (const auto& element : array.array()) show_item(to, element), to += '|';
}
void show_item(std::string& to, const tagRYSOBJVECT& vector) {
  for (const double number : vector.values) show_item(to, number), to += '|';
}
void show_item(std::string& to, const tagDescStatResults& results) {
  show_item(to, results.N), show_item(to, results.Mean);
}
template <class Other>
requires std::is_class_v<Other>
void show_item(std::string&, const Other&) {}

}  // namespace

std::string scratch_folder() {
  const std::filesystem::path usual = std::filesystem::temp_directory_path() / "";
  return access("/dev/shm", W_OK) == 0 ? "/dev/shm/" : usual.string();
}

Scene::~Scene() {
  if (!file_.empty()) std::remove(file_.c_str());
  if (CodePage::Default() != nullptr) RYXmlWrapperBase::SetDefaultCodePage(65001);
  bool off = false;
  VCTreeAccessBlockLocalization(&off, false);
}

void Scene::begin() {
  std::apply([](auto&... each) { ((each.used = 0), ...); }, slots_);
  trees_.clear();
  flags_passed = 0;
}

RYXmlWrapperBase Scene::root_of(std::string_view shape) {
  for (const auto& [name, root] : trees_)
    if (name == shape) return root;
  for (const Shape& known : shapes()) {
    if (known.name != shape) continue;
    RYXmlWrapperBase root;
    root.CreateNew(0, nullptr);
    const CodePage* const page = CodePage::Default();
    if (page != nullptr) RYXmlWrapperBase::SetDefaultCodePage(65001);
    if (root.SetXmlText(known.xml) == 0) fail("No XML text: " + std::string(shape));
    if (page != nullptr) RYXmlWrapperBase::SetDefaultCodePage(page->number());
    trees_.emplace_back(shape, root);
    return root;
  }
  fail("There is no such shape: " + std::string(shape));
}

const char* Scene::file(const std::string* contents) {
  static std::atomic<int> count;
  if (file_.empty())
    file_ = scratch_folder() + "calls." + std::to_string(getpid()) + "." + std::to_string(++count);
  std::remove(file_.c_str());
  if (contents != nullptr) std::ofstream(file_, std::ios::binary) << *contents;
  return file_.c_str();
}

unsigned Scene::flag_word(unsigned given) {
  const int number = flags_passed++;
  return flag && flag->first == number ? flag->second : given;
}

std::vector<RYXmlWrapperBase> Scene::roots() const {
  std::vector<RYXmlWrapperBase> found;
  const auto add = [&found](RYXmlWrapperBase node) {
    if (node.IsNodeValid() == 0) return;
    for (RYXmlWrapperBase above = node; above.GetParent(above) != 0;) node = above;
    if (std::find(found.begin(), found.end(), node) == found.end()) found.push_back(node);
  };
  for (const auto& [name, root] : trees_) add(root);
  for (const RYXmlWrapperBase& node : std::get<Slots<RYXmlWrapperBase>>(slots_).all) add(node);
  return found;
}

std::string Scene::show() const {
  std::string shown;
  for (const RYXmlWrapperBase& root : roots()) show_item(shown, root), shown += '\n';
  const auto show_all = [&shown](const auto& slots) {
    for (const auto& item : slots.all) show_item(shown, item), shown += '|';
    shown += '\n';
  };
  std::apply([&](const auto&... slots) { (show_all(slots), ...); }, slots_);
  if (file_.empty()) return shown;
  std::ifstream saved(file_, std::ios::binary);
  return shown.append(std::istreambuf_iterator<char>(saved), {});
}

std::string Scene::unsound() const {
  std::string all;
  for (const RYXmlWrapperBase& root : roots()) {
    CString fault;
    if (root.IsTreeSound(&fault) == 0) all.append(fault.View()).append("; ");
  }
  return all;
}

void Scene::check() {
  constexpr int kMostNodes = 1500;
  constexpr std::size_t kMostBytes = 10000;
  if (const std::string fault = unsound(); !fault.empty()) fail("A tree is unsound: " + fault);
  const std::vector<RYXmlWrapperBase> all = roots();
  const bool utf8 = CodePage::Default() == nullptr;
  if (utf8 && !all.empty() && all[++checks_ % all.size()].GetTreeSize() < 200)
    check_round_trip(all[checks_ % all.size()]);

  for (RYXmlWrapperBase& node : slots<RYXmlWrapperBase>().all)
    if (node.GetTreeSize() > kMostNodes) node.ReleaseNode();
  for (CString& text : slots<CString>().all)
    if (text.View().size() > kMostBytes) text.Empty();
  const auto empty = [](auto& arrays) {
    for (auto& array : arrays.all)
      if (size_of(array.array()) > kMostBytes) array.array().RemoveAll();
  };
  empty(slots<HostIntArray>()), empty(slots<HostDoubleArray>()), empty(slots<HostBoolArray>());
  empty(slots<HostStringArray>());
}

}  // namespace calls
