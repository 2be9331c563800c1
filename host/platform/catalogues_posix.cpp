#include "platform/catalogues.h"

#include <libintl.h>

namespace platform {

const char* LocalizedText(const char* text) {
  bind_textdomain_codeset("rytree", "UTF-8");
  return dgettext("rytree", text);
}

}  // namespace platform
