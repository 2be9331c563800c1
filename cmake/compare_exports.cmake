# Compares the symbols that a shared library exports with a list, one demangled name a line. UPDATE writes the list first.
#   cmake -DNM=nm -DLIBRARY=librytree_Utils.so -DLIST=exports.txt [-DUPDATE=ON] -P compare_exports.cmake
# A DLL keeps its exports elsewhere, which -DOBJDUMP=… -DCXXFILT=… read.
if(OBJDUMP)
  execute_process(
    COMMAND "${OBJDUMP}" --private-headers "${LIBRARY}" COMMAND "${CXXFILT}"
    OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "^.*\\[Ordinal/Name Pointer\\] Table" "" headers "${headers}")
  string(REGEX MATCHALL "\n\t\\[ *[0-9]+\\] [^\n]+" shown "${headers}")
  list(TRANSFORM shown REPLACE "^\n\t\\[ *[0-9]+\\] " "")
else()
  execute_process(
    COMMAND "${NM}" --dynamic --defined-only --demangle --format=posix "${LIBRARY}"
    OUTPUT_VARIABLE shown COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE " [A-Za-z] [0-9a-f]+ *[0-9a-f]*\n" "\n" shown "${shown}")
  string(REGEX MATCHALL "[^\n]+" shown "${shown}")
endif()
list(REMOVE_DUPLICATES shown)  # a constructor has two symbols of one name
list(SORT shown)

if(UPDATE)
  list(JOIN shown "\n" text)
  file(WRITE "${LIST}" "${text}\n")
endif()

file(STRINGS "${LIST}" listed)
if(OBJDUMP)  # DWORD, which these two exports take, and va_list are other types there
  list(TRANSFORM listed REPLACE "unsigned int" "unsigned long"
    REGEX "^(VCTreePrepareForMenu|vctree_modify_DWORD_attribute)\\(")
  list(TRANSFORM listed REPLACE "__va_list_tag" "char" REGEX "^tmxfu_tree_check_get_node_ex\\(")
endif()
set(missing ${listed})
list(REMOVE_ITEM missing ${shown})
list(TRANSFORM missing PREPEND "  listed and not exported: ")
set(extra ${shown})
list(REMOVE_ITEM extra ${listed})
list(TRANSFORM extra PREPEND "  exported and not listed: ")
set(faults ${missing} ${extra})
if(faults)
  list(JOIN faults "\n" faults)
  message(FATAL_ERROR "${LIBRARY} against ${LIST}:\n${faults}")
endif()
list(LENGTH shown count)
message(STATUS "${count} exports")
