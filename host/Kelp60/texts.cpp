#include <cstring>

#include "rytree_host/Kelp60.h"

char* kelp_find_char(char* text, char character, int /*option*/) {
  return text && character ? std::strchr(text, character) : nullptr;
}

char* kelp_find_closing_char(char* text, char character, int option, int* work) {
  if (work) *work = 0;
  return kelp_find_char(text, character, option);
}
