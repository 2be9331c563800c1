// The system's message catalogues.
#pragma once

namespace platform {

// The text in the user's language, as UTF-8; the text itself where the catalogue "rytree" has none.
const char* LocalizedText(const char* text);

}  // namespace platform
