// Flags as callers hand them over.
#pragma once

#include <cstring>

/// A flag among the arguments of an export. A caller in another language may hand over any byte, and each but
/// 0 means true. A C++ function does not get that far: its compiler takes for granted that a bool is 0 or 1,
/// and a 2 then counts as true in one place and as false in another. So a function with `Flag` where the
/// export has `bool` does the work, and the export is an alias of it:
///     extern "C" int flagged_NAME(RYXmlWrapperBase* node, Flag recursive) { … }
///     [[gnu::alias("flagged_NAME")]] decltype(NAME) NAME;
/// The machine passes both in the same place: the flag is the low byte there, and the higher bytes are garbage.
/// It is an enum and not a class: compilers may split a class argument in calls within one file.
/// A compiler without aliases gets a definition of each export instead (cmake/PlainForms.cmake), in which another byte
/// than 0 and 1 counts as that compiler takes it.
enum class Flag : unsigned {};

inline bool is_set(Flag flag) { return (static_cast<unsigned>(flag) & 0xFF) != 0; }

/// Reads a flag in the caller's memory by the same rule.
inline bool is_set(const bool& flag) {
  unsigned char byte = 0;
  std::memcpy(&byte, &flag, sizeof byte);
  return byte != 0;
}
