// What the compiler is told about functions, and the plain form for compilers that lack it. These are the
// only macros of the project. Attributes such as [[gnu::noinline]] need no plain form: other compilers pass over them.
#pragma once

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
