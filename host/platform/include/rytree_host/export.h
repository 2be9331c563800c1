// What compilers have beyond the language, and the plain form for those that lack it. No other header asks which compiler
// it is for. Attributes such as [[gnu::noinline]] need no plain form: compilers that do not know them ignore them.
#pragma once

#include <cstdint>

#if defined(_WIN32) && defined(RYTREE_STATIC)
#define RYTREE_EXPORT
#define RYTREE_IMPORT
#elif defined(_WIN32)
#define RYTREE_EXPORT __declspec(dllexport)
#define RYTREE_IMPORT __declspec(dllimport)
#elif defined(__GNUC__)
#define RYTREE_EXPORT __attribute__((visibility("default")))
#define RYTREE_IMPORT RYTREE_EXPORT
#else
#define RYTREE_EXPORT
#define RYTREE_IMPORT
#endif

/// Marks what a shared library shows to its users: RYTREE_API for rytree_Utils, one more for each library of
/// the host. A library exports its own and imports the others'.
#ifdef rytree_Utils_EXPORTS
#define RYTREE_API RYTREE_EXPORT
#else
#define RYTREE_API RYTREE_IMPORT
#endif
#ifdef ryframework_EXPORTS
#define RYFRAMEWORK_API RYTREE_EXPORT
#else
#define RYFRAMEWORK_API RYTREE_IMPORT
#endif
#ifdef rytesavc_EXPORTS
#define RYTESAVC_API RYTREE_EXPORT
#else
#define RYTESAVC_API RYTREE_IMPORT
#endif
#ifdef ryUtils_EXPORTS
#define RYUTILS_API RYTREE_EXPORT
#else
#define RYUTILS_API RYTREE_IMPORT
#endif
#ifdef Kelp60_EXPORTS
#define KELP60_API RYTREE_EXPORT
#else
#define KELP60_API RYTREE_IMPORT
#endif

#ifdef __GNUC__
/// The arguments must end in a null pointer.
#define RYTREE_ENDS_IN_NULL __attribute__((sentinel))
/// Argument `text` is a printf format, and what it formats begins at argument `first`, 0 where that is a
/// va_list. Both count from 1, the object of a member function included.
#define RYTREE_PRINTF(text, first) __attribute__((format(RYTREE_PRINTF_KIND, text, first)))
#ifdef __MINGW32__
#define RYTREE_PRINTF_KIND gnu_printf  // without this the compiler takes the formats for the system library's
#else
#define RYTREE_PRINTF_KIND printf
#endif
#else
#define RYTREE_ENDS_IN_NULL
#define RYTREE_PRINTF(text, first)
#endif

#ifdef __clang__
/// Put around plain functions that return a class, which Clang warns about: both sides are C++.
#define RYTREE_CLASS_RESULTS \
  _Pragma("clang diagnostic push") _Pragma("clang diagnostic ignored \"-Wreturn-type-c-linkage\"")
#define RYTREE_CLASS_RESULTS_END _Pragma("clang diagnostic pop")
#else
#define RYTREE_CLASS_RESULTS
#define RYTREE_CLASS_RESULTS_END
#endif

namespace rytree_host {

/// The two halves of the product of 128 bits, put together by exclusive or. For hashes.
[[gnu::always_inline]] inline std::uint64_t FoldedProduct(std::uint64_t one, std::uint64_t other) {
#ifdef __SIZEOF_INT128__
  __extension__ using Wide = unsigned __int128;
  const Wide product = static_cast<Wide>(one) * other;
  return static_cast<std::uint64_t>(product) ^ static_cast<std::uint64_t>(product >> 64);
#else
  constexpr std::uint64_t kLow = 0xFFFFFFFF;
  const std::uint64_t lowest = (one & kLow) * (other & kLow);
  const std::uint64_t middle = (one >> 32) * (other & kLow) + (lowest >> 32);
  const std::uint64_t rest = (one & kLow) * (other >> 32) + (middle & kLow);
  const std::uint64_t high = (one >> 32) * (other >> 32) + (middle >> 32) + (rest >> 32);
  return high ^ (rest << 32 | (lowest & kLow));
#endif
}

}  // namespace rytree_host
