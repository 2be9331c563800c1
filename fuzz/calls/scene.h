// What calls work on, and where their results go.
#pragma once

#include <rytree_Utils.h>
#include <rytree_host/variant.h>

#include <array>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace calls {

/// Where the files of scenes are: in memory, if there is such a place, as a saved file is flushed.
std::string scratch_folder();

/// The variables of one type.
template <class T>
struct Slots {
  std::array<T, 6> all{};
  std::size_t used = 0;  // by the call that is prepared
  T& next() { return all[used++ % all.size()]; }
};

class Scene {
 public:
  Scene() = default;
  Scene(const Scene&) = delete;
  Scene& operator=(const Scene&) = delete;
  ~Scene();

  template <class T>
  Slots<T>& slots() {
    return std::get<Slots<T>>(slots_);
  }
  /// Begins a call: it uses the slots from the first on.
  void begin();
  /// The root of a tree of that shape; within a call the same tree each time.
  RYXmlWrapperBase root_of(std::string_view shape);
  /// The path of a file of this scene with these bytes; without them there is no such file.
  const char* file(const std::string* contents);
  /// The text, kept as long as the scene.
  const char* keep(std::string text) { return texts_.emplace_back(std::move(text)).c_str(); }
  /// The byte of the next flag, as `flag` wants it or as given.
  unsigned flag_word(unsigned given);

  /// The roots of all trees there are.
  std::vector<RYXmlWrapperBase> roots() const;
  /// Everything that a call can have changed, as one text.
  std::string show() const;
  /// What is wrong with a tree, empty if nothing is.
  std::string unsound() const;
  /// Ends the program if a tree is unsound or does not come back from its XML text, and empties what has grown large.
  void check();

  /// Makes the prepared call, if set, and gives its result.
  std::function<int(const std::function<int()>&)> around;
  /// The word that is passed as the flag of that number, of which only the low byte counts.
  std::optional<std::pair<int, unsigned>> flag;
  int flags_passed = 0;  // by the last call

 private:
  std::tuple<Slots<RYXmlWrapperBase>, Slots<CString>, Slots<int>, Slots<double>, Slots<bool>, Slots<unsigned>,
             Slots<unsigned long>, Slots<HostIntArray>, Slots<HostStringArray>, Slots<HostDoubleArray>,
             Slots<HostBoolArray>, Slots<tagDescStatResults>, Slots<tagRYSOBJVECT>, Slots<_SETVALUESBYIDS>,
             Slots<_variant_t>, Slots<STNODETEXTOPTS>>
      slots_;
  std::vector<std::pair<std::string, RYXmlWrapperBase>>
      trees_;  // those that the last call was given, by shape
  std::deque<std::string> texts_;
  std::string file_;
  std::size_t checks_ = 0;
};

}  // namespace calls
