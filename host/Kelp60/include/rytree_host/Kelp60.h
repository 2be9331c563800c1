// Numbers in texts, searches in texts, and the text match of the host.
#pragma once

#include "rytree_host/export.h"

// A null text counts as the empty one throughout.

/// Splits the number off the end of a text: `prefix` (may be null) gets what comes before it, the result is
/// the number. The number is the longest run of trailing digits; of a run that does not fit an int, the
/// longest end that does. Without trailing digits the prefix is the whole text and the result 0. `prefix`
/// needs room for the whole text and its NUL.
KELP60_API int string_to_prefix_end_number(char* prefix, const char* text);

/// The number in decimal, in a buffer of the thread that the next call overwrites.
KELP60_API const char* kelp_number_to_text(int number);

/// The first place of a character in a text, or null. The NUL at the end does not count. The last argument
/// has no effect.
KELP60_API char* kelp_find_char(char* text, char character, int option);

/// The same for a closing character. `option` has no effect; the work word (may be null) is set to 0.
KELP60_API char* kelp_find_closing_char(char* text, char character, int option, int* work);

/// Nonzero if `filter` matches the whole of `text`. In the filter `*` stands for any stretch, an empty one
/// too, and `?` for one character of the default page or one byte that belongs to none. Case counts if
/// `caseSensitive` is nonzero. The last two arguments have no effect. Time grows with the lengths of filter
/// and text, whatever they hold; only a stretch between stars that mixes `?` with characters can take as long
/// as its length times that of the text, divided by 64.
KELP60_API int kelp_text_match(const char* filter, const char* text, int caseSensitive, int option1,
                               int option2);

/// The number to use where one is missing: 256.
KELP60_API int kelp_default_number();
