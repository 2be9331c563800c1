# Switches of the build, and the flags that every target of this repository shares.
option(RYTREE_DEVELOPER "Warnings are errors; tests, tools and examples are built" OFF)
option(RYTREE_EXTRAS "Build the library of <rytree_Utils/extras.h>" ON)
option(RYTREE_TESTS "Build the tests" ${RYTREE_DEVELOPER})
option(RYTREE_TOOLS "Build the tools rytree-transfer and rytree-tree" ${PROJECT_IS_TOP_LEVEL})
option(RYTREE_INSTALL "Install the libraries, and the tools if they are built" ${PROJECT_IS_TOP_LEVEL})
option(RYTREE_EXAMPLES "Build the examples" ${RYTREE_DEVELOPER})
option(RYTREE_BENCH "Build the benchmarks" OFF)
option(RYTREE_FUZZ "Build the fuzzers (Clang)" OFF)
set(RYTREE_SANITIZE "" CACHE STRING "Sanitizers for everything, as in address,undefined or thread")

if(NOT DEFINED BUILD_SHARED_LIBS)
  set(BUILD_SHARED_LIBS ON)
endif()
# What belongs to the whole build is left to the project that this one is part of.
if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Kind of build" FORCE)
endif()

# Counts the changes after which a program has to be compiled again. It is in the names of the shared libraries.
set(RYTREE_ABI 1)
# What is installed belongs to one of three packages: libraries, development, tools.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
set(RYTREE_INSTALL_LIBRARY LIBRARY COMPONENT libraries NAMELINK_COMPONENT development RUNTIME COMPONENT libraries)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_INSTALL_RPATH "$ORIGIN")  # installed libraries find each other, wherever they are moved together

find_program(RYTREE_CCACHE ccache)
if(RYTREE_DEVELOPER AND RYTREE_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${RYTREE_CCACHE}")
endif()

add_library(rytree_build_flags INTERFACE)
target_compile_options(rytree_build_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow
  $<$<BOOL:${RYTREE_DEVELOPER}>:-Werror>
  -fno-semantic-interposition  # nobody replaces a function of these libraries, so calls within one are direct
  # A unique symbol would keep the library in memory when it is unloaded.
  $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
  # Two plain exports return C++ objects.
  $<$<CXX_COMPILER_ID:Clang>:-Wno-return-type-c-linkage>
  # GCC 12 wrongly sees an overlap in "text" + std::string when it optimizes.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>)
if(WIN32)
  include(RytreeWindows)
  target_compile_options(rytree_build_flags INTERFACE -Wno-attributes)
else()
  # The same for calls between the files of one library.
  target_link_options(rytree_build_flags INTERFACE "LINKER:-Bsymbolic-functions")
endif()

if(RYTREE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)  # lets the fuzzers see which code an input reaches
endif()
if(RYTREE_SANITIZE)
  add_compile_options(-fsanitize=${RYTREE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${RYTREE_SANITIZE})
  # Its types of functions are symbols that libraries find in each other, and then cannot be unloaded.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND RYTREE_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize=function)
  endif()
endif()
