// One call: its arguments are taken from the scene, as one of the ways to succeed says or as a program chooses.
#pragma once

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>

#include "fuzz/calls/opcode.h"
#include "fuzz/calls/program.h"
#include "fuzz/calls/scene.h"

namespace calls {

class Call {
 public:
  /// Without a program every argument is as in `way`.
  Call(Scene& scene, const Way& way, Program* program) : scene_(scene), way_(way), program_(program) {}

  template <class Result, class... Argument>
  void make(Result (*function)(Argument...)) {
    // A flag is passed as a whole word.
    using Wide = Result (*)(std::conditional_t<std::is_same_v<Argument, bool>, unsigned, Argument>...);
    const auto wide = reinterpret_cast<Wide>(reinterpret_cast<void (*)()>(function));
    run(wide, std::tuple<decltype(take(Type<Argument>()))...>{take(Type<Argument>())...});
  }
  template <class Result, class... Argument>
  void make(Result (RYXmlWrapperBase::*operation)(Argument...)) {
    run(operation, std::tuple<RYXmlWrapperBase&, decltype(take(Type<Argument>()))...>{
                       take(Type<RYXmlWrapperBase&>()), take(Type<Argument>())...});
  }
  template <class Result, class... Argument>
  void make(Result (RYXmlWrapperBase::*operation)(Argument...) const) {
    run(operation, std::tuple<RYXmlWrapperBase&, decltype(take(Type<Argument>()))...>{
                       take(Type<RYXmlWrapperBase&>()), take(Type<Argument>())...});
  }

  int result = 0;
  bool succeeded = false;

 private:
  template <class T>
  struct Type {};

  // The value that the hints give the next argument; null if the program is to choose.
  const char* next_value();

  int take(Type<int>) { return static_cast<int>(number()); }
  unsigned take(Type<unsigned>) { return static_cast<unsigned>(number()); }
  unsigned long take(Type<unsigned long>) { return static_cast<unsigned long>(number()); }
  char take(Type<char>);
  unsigned take(Type<bool>) { return scene_.flag_word(static_cast<unsigned>(number())); }
  double take(Type<double>);
  const char* take(Type<const char*>);
  HostArrayObject* take(Type<HostArrayObject*>);
  RYPropertyName take(Type<const RYPropertyName&>) { return RYPropertyName(take(Type<const char*>())); }
  template <class T>
  T& take(Type<T&>) {
    return variable<std::remove_const_t<T>>(next_value());
  }
  template <class T>
  T* take(Type<T*>) {
    const char* const value = next_value();
    if (value != nullptr ? std::string_view(value) == "null" : program_->byte() == 0) return nullptr;
    return &variable<std::remove_const_t<T>>(value);
  }

  // A variable with that value, or one as it is.
  template <class T>
  T& variable(const char* value) {
    if constexpr (std::is_same_v<T, CArray<int, int>>) {
      return variable<HostIntArray>(value).array();
    } else if constexpr (std::is_same_v<T, CArray<double, double>>) {
      return variable<HostDoubleArray>(value).array();
    } else if constexpr (std::is_same_v<T, CStringArray>) {
      return variable<HostStringArray>(value).array();
    } else {
      Slots<T>& slots = scene_.slots<T>();
      if (value == nullptr) return pick(slots);
      T& next = slots.next();
      set(next, value);
      return next;
    }
  }
  void set(RYXmlWrapperBase& node, const char* value);
  void set(CString& text, const char* value) { text = value; }
  void set(bool& flag, const char* value);
  void set(HostIntArray& array, const char* value);
  void set(HostDoubleArray& array, const char* value);
  void set(HostBoolArray& array, const char* value);
  void set(HostStringArray& array, const char* value);
  void set(tagRYSOBJVECT& vector, const char* value);
  void set(_SETVALUESBYIDS& hook, const char* value);
  void set(_variant_t& variant, const char* value) { variant = _variant_t(value); }
  template <class Number>
  requires std::is_arithmetic_v<Number>
  void set(Number& number, const char* value) { number = static_cast<Number>(std::strtod(value, nullptr)); }
  template <class Other>
  requires std::is_class_v<Other>
  void set(Other& other, const char*) { other = Other(); }

  // One of the handles, or of the first few variables, so that a call often gets one twice. It keeps its value until the
  // call is made: a text may be in it.
  template <class T>
  T& pick(Slots<T>& slots) {
    if constexpr (std::is_same_v<T, RYXmlWrapperBase>) return slots.all[program_->byte() % slots.all.size()];
    const std::size_t place = program_->byte() % 3;
    slots.used = std::max(slots.used, place + 1);
    return slots.all[place];
  }
  template <class T>
  T& pick_given(Slots<T>& slots) {
    return slots.used == 0 ? pick(slots)
                           : slots.all[program_->byte() % std::min(slots.used, slots.all.size())];
  }
  long long number();
  const char* any_text();

  int to_int(int value) { return value; }
  int to_int(const RYXmlWrapperBase& node) {
    return (scene_.slots<RYXmlWrapperBase>().all.back() = node).IsNodeValid();
  }
  int to_int(const CString& text) { return (scene_.slots<CString>().all.back() = text).GetLength(); }
  int to_int(const RYXmlFailure& failure) { return failure.line + 1; }
  int to_int(const RYXmlPassedOver& passed) { return passed.comments + 1; }

  template <class Function, class... Argument>
  void run(Function function, const std::tuple<Argument...>& arguments) {
    finish([&] {
      const auto call = [&](auto&... argument) { return std::invoke(function, argument...); };
      if constexpr (std::is_void_v<decltype(std::apply(call, arguments))>) {
        std::apply(call, arguments);
        return 0;
      } else {
        return to_int(std::apply(call, arguments));
      }
    });
  }
  void finish(const std::function<int()>& work);

  Scene& scene_;
  const Way& way_;
  Program* program_;
  std::size_t arguments_ = 0;
};

/// Makes a call, and gives whether it succeeded.
bool make_call(Scene& scene, const Opcode& opcode, const Way& way, Program* program = nullptr);
/// Makes a call as in `way`. Gives its result and what the scene is afterwards.
std::string outcome(Scene& scene, const Opcode& opcode, const Way& way);

/// Runs a whole program in a scene of its own, with a check after each call. `made` and `succeeded`, if given, count the
/// calls of each opcode.
void run_program(std::string_view bytes, std::vector<int>* made = nullptr,
                 std::vector<int>* succeeded = nullptr);

}  // namespace calls
