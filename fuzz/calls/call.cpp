#include "fuzz/calls/call.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace calls {

namespace {

// Calls `add` with each element of a list as in "int:1;2".
template <class Add>
void for_each_element(std::string_view list, const Add& add) {
  for (const std::string_view type : {"int:", "text:", "double:", "bool:"})
    if (list.starts_with(type)) list.remove_prefix(type.size());
  while (!list.empty()) {
    const std::string element(list.substr(0, list.find(';')));
    add(element.c_str());
    list.remove_prefix(std::min(list.size(), element.size() + 1));
  }
}

std::string in_utf16(const std::string& text) {
  std::string wide = "\xFF\xFE";
  for (const char c : text) wide.append(1, c).append(1, '\0');
  return wide;
}

}  // namespace

const char* Call::next_value() {
  const char* const value = way_.values[arguments_++];
  return program_ == nullptr || program_->byte() < 96 ? value : nullptr;
}

long long Call::number() {
  constexpr int kLimits[] = {0, 1, -1, 2, 3, 255, 256, 1000, INT_MAX, INT_MIN, 1 << 24, 932, 1252};
  if (const char* const value = next_value()) return std::strtoll(value, nullptr, 0);
  const int kind = static_cast<int>(program_->byte());
  return std::min(way_.most, kind < 64    ? program_->pick(kLimits)
                             : kind < 160 ? program_->pick(numbers())
                                          : kind - 160);
}

char Call::take(Type<char>) {
  const char* const value = next_value();
  return value != nullptr ? *value : static_cast<char>(program_->byte());
}

double Call::take(Type<double>) {
  constexpr double kLimits[] = {0, -1, 0.1, 1e300, 5e-324, 2451545.25, INFINITY, NAN};
  const char* const value = next_value();
  return value != nullptr ? std::strtod(value, nullptr) : program_->pick(kLimits);
}

const char* Call::take(Type<const char*>) {
  const std::string_view hint = way_.values[arguments_];
  const char* const value = next_value();
  if (!hint.starts_with("file:") && !hint.starts_with("utf16:")) {
    if (value == nullptr) return any_text();
    return hint == "null" ? nullptr : value;
  }
  if (value == nullptr && program_->byte() < 64) return program_->byte() < 128 ? "/no such folder/file" : "";
  const std::string_view shape = hint.substr(hint.find(':') + 1);
  if (shape.empty()) return scene_.file(nullptr);
  const auto known =
      std::find_if(shapes().begin(), shapes().end(), [&](const Shape& each) { return each.name == shape; });
  const std::string contents = hint.starts_with("utf16:") ? in_utf16(known->xml) : known->xml;
  return scene_.file(&contents);
}

// Many are in strings and arrays that the call may fill, most often in those that it was already given.
const char* Call::any_text() {
  switch (program_->byte() % 8) {
    case 0:
      return nullptr;
    case 1: {
      CString& text = pick_given(scene_.slots<CString>());
      if (text.IsEmpty()) text = program_->pick(words());
      return text;
    }
    case 2:
    case 5: {
      CStringArray& array = pick_given(scene_.slots<HostStringArray>()).array();
      if (array.IsEmpty()) array.Add(program_->pick(words()));
      return array.GetAt(static_cast<int>(program_->byte()) % array.GetSize());
    }
    case 3:
      return scene_.keep(std::string(program_->byte() * 20, 'x'));
    case 4:
      return scene_.keep(program_->text());
    default:
      return program_->pick(words());
  }
}

HostArrayObject* Call::take(Type<HostArrayObject*>) {
  if (const char* const value = next_value()) {
    const std::string_view list = value;
    if (list == "null") return nullptr;
    if (list.starts_with("int:")) return &variable<HostIntArray>(value);
    if (list.starts_with("double:")) return &variable<HostDoubleArray>(value);
    if (list.starts_with("bool:")) return &variable<HostBoolArray>(value);
    return &variable<HostStringArray>(value);
  }
  switch (program_->byte() % 8) {
    case 0:
      return nullptr;
    case 1:
      return &variable<HostBoolArray>(nullptr);
    case 2:
      return &variable<HostDoubleArray>(nullptr);
    case 3:
    case 4:
      return &variable<HostIntArray>(nullptr);
    default:
      return &variable<HostStringArray>(nullptr);
  }
}

void Call::set(RYXmlWrapperBase& node, const char* value) {
  std::string_view path = value;
  if (path == "-") return node.ReleaseNode();
  RYXmlWrapperBase at = scene_.root_of(path.substr(0, path.find('/')));
  for (std::size_t slash; (slash = path.find('/')) != path.npos;) {
    path.remove_prefix(slash + 1);
    at.GetChild(at, std::atoi(path.data()));
  }
  node = at;
}

void Call::set(bool& flag, const char* value) {
  const auto byte = static_cast<unsigned char>(scene_.flag_word(static_cast<unsigned>(std::atoi(value))));
  std::memcpy(&flag, &byte, 1);
}

void Call::set(HostIntArray& array, const char* value) {
  array.array().RemoveAll();
  for_each_element(value, [&](const char* element) { array.array().Add(std::atoi(element)); });
}
void Call::set(HostDoubleArray& array, const char* value) {
  array.array().RemoveAll();
  for_each_element(value, [&](const char* element) { array.array().Add(std::strtod(element, nullptr)); });
}
void Call::set(HostBoolArray& array, const char* value) {
  array.array().RemoveAll();
  for_each_element(value, [&](const char* element) { array.array().Add(*element == '1'); });
}
void Call::set(HostStringArray& array, const char* value) {
  array.array().RemoveAll();
  for_each_element(value, [&](const char* element) { array.array().Add(element); });
  array.array().FreeExtra();  // so that it moves when it grows
}
void Call::set(tagRYSOBJVECT& vector, const char* value) {
  vector.values.RemoveAll();
  for_each_element(value, [&](const char* element) { vector.values.Add(std::strtod(element, nullptr)); });
}
void Call::set(_SETVALUESBYIDS& hook, const char* value) {
  hook = {};
  hook.dataId = std::atoi(value);
  hook.callback = [](_SETVALUESBYIDS* at) { return *at->value += ", as the hook has it", 1; };
}

void Call::finish(const std::function<int()>& work) {
  const std::string before = way_.least == kChange ? scene_.show() : std::string();
  result = scene_.around ? scene_.around(work) : work();
  succeeded = way_.least == kChange ? scene_.show() != before : result >= way_.least;
}

namespace {

Call made_call(Scene& scene, const Opcode& opcode, const Way& way, Program* program) {
  scene.begin();
  if (way.page != 0) RYXmlWrapperBase::SetDefaultCodePage(way.page);
  Call call(scene, way, program);
  opcode.make(call);
  return call;
}

}  // namespace

bool make_call(Scene& scene, const Opcode& opcode, const Way& way, Program* program) {
  return made_call(scene, opcode, way, program).succeeded;
}

std::string outcome(Scene& scene, const Opcode& opcode, const Way& way) {
  const int result = made_call(scene, opcode, way, nullptr).result;
  return std::to_string(result) + "\n" + scene.show();
}

void run_program(std::string_view bytes, std::vector<int>* made, std::vector<int>* succeeded) {
  Scene scene;
  for (Program program(bytes); !program.at_end();) {
    const std::size_t number = program.word() % opcodes().size();
    const Opcode& opcode = opcodes()[number];
    const Way& way = program.pick(opcode.ways);
    const bool right = make_call(scene, opcode, way, program.byte() < 64 ? nullptr : &program);
    scene.check();
    if (made == nullptr) continue;
    ++(*made)[number];
    if (right) ++(*succeeded)[number];
  }
}

}  // namespace calls
