// The version of the library, which the build reads here.
#pragma once

#define RYTREE_VERSION_MAJOR 1
#define RYTREE_VERSION_MINOR 0
#define RYTREE_VERSION_PATCH 0

/// To compare with: 10203 is 1.2.3.
#define RYTREE_VERSION (RYTREE_VERSION_MAJOR * 10000 + RYTREE_VERSION_MINOR * 100 + RYTREE_VERSION_PATCH)

/// In figures and full stops, "1.2.3".
#define RYTREE_VERSION_TEXT           \
  RYTREE_QUOTED(RYTREE_VERSION_MAJOR) \
  "." RYTREE_QUOTED(RYTREE_VERSION_MINOR) "." RYTREE_QUOTED(RYTREE_VERSION_PATCH)
#define RYTREE_QUOTED(number) RYTREE_QUOTED_TEXT(number)
#define RYTREE_QUOTED_TEXT(text) #text

#if __cplusplus < 202002L
#error "rytree_Utils needs C++20: compile with -std=c++20 or a later standard"
#endif
