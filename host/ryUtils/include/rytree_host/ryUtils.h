// Text and sort services of the host.
#pragma once

#include "rytree_host/carray.h"
#include "rytree_host/cstring.h"
#include "rytree_host/export.h"

/// Puts the message of that number into `out`, an empty text for an unknown number. The last argument has no
/// effect. 1 if there is such a message, 0 if not or if `out` is null.
RYUTILS_API int ryu_load_err_msg_str(int number, CString* out, int option);

/// Splits `text` at each `separator` into `tokens`, replacing what it held. Empty tokens count, a closing
/// separator gives an empty last one, and a null or empty text gives none. Separators and quotes are
/// characters of the default page, never a part of one. A stretch between two `quote` characters is not split
/// and keeps them; a `quote` without its partner is an ordinary character. `quote` 0 means none; the last
/// argument has no effect. `status` (may be null) gets 1 if a quote had no partner, else 0. Gives the number
/// of tokens; with null `tokens` they are only counted.
RYUTILS_API int ryutilsGetTokens(const char* text, CStringArray* tokens, char separator, int* status,
                                 int quote, int option);

/// Makes a valid tag name of a string in place: letters, digits and underscores of ASCII stay, every byte
/// of another character becomes an underscore, a leading digit gets one in front, an empty name becomes "_".
/// The last argument has no effect. 1, whether or not the name was changed; 0 if it is null.
RYUTILS_API int ryuMakeValidCName(CString* name, int option);

/// Sorts in place, ascending. The last argument has no effect.
RYUTILS_API void ryutilsSort(CArray<unsigned, unsigned>& numbers, int option);
