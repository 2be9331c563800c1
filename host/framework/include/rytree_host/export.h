// What the compiler is told about functions, and the plain form for compilers that lack it. These are the
// only macros of the project.
#pragma once

#ifdef __GNUC__
/// A shared library shows it to its users.
#define RYTREE_API __attribute__((visibility("default")))
/// The arguments must end in a null pointer.
#define RYTREE_ENDS_IN_NULL __attribute__((sentinel))
/// Argument `text` is a printf format, and what it formats begins at argument `first`, 0 where that is a
/// va_list. Both count from 1, the object of a member function included.
#define RYTREE_PRINTF(text, first) __attribute__((format(printf, text, first)))
#else
#define RYTREE_API
#define RYTREE_ENDS_IN_NULL
#define RYTREE_PRINTF(text, first)
#endif
