#include <cstring>

#include "rytree_host/Kelp60.h"
#include "rytree_host/multibyte.h"

char* kelp_find_char(char* text, char character, int /*option*/) {
  return const_cast<char*>(_mbschr(text, character));
}

char* kelp_find_closing_char(char* text, char character, int option, int* work) {
  if (work) *work = 0;
  return kelp_find_char(text, character, option);
}
