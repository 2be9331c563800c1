# Exports with flags are aliases (frame/flag.h). A compiler that does not know the attribute takes an alias for a mere
# declaration; for such a compiler a source that defines each of these exports is written and added to the library's.
include(CheckCXXSourceCompiles)
check_cxx_source_compiles([=[
  extern "C" int work() { return 0; }
  [[gnu::alias("work")]] int same();
  int main() { return same(); }]=] RYTREE_HAS_ALIASES)
if(NOT RYTREE_HAS_ALIASES)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(plain_flags "${CMAKE_CURRENT_BINARY_DIR}/plain_flags.cpp")
  add_custom_command(OUTPUT "${plain_flags}"
    COMMAND Python3::Interpreter "${CMAKE_CURRENT_LIST_DIR}/plain_flags.py" "${plain_flags}" ${RYTREE_SOURCES}
    DEPENDS "${CMAKE_CURRENT_LIST_DIR}/plain_flags.py" ${RYTREE_SOURCES} VERBATIM)
  set_source_files_properties("${plain_flags}" PROPERTIES
    COMPILE_OPTIONS "$<$<CXX_COMPILER_ID:Clang>:-Wno-return-type-c-linkage>")
  list(APPEND RYTREE_SOURCES "${plain_flags}")
endif()
