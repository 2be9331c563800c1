# Runs PROGRAM in GDB, which finds the printers beside the library in FOLDER, and compares what it shows.
execute_process(
  COMMAND "${GDB}" -q -nx -batch -iex "add-auto-load-safe-path ${FOLDER}" -x "${CMAKE_CURRENT_LIST_DIR}/shown.gdb" "${PROGRAM}"
  OUTPUT_VARIABLE printed ERROR_VARIABLE errors)
if(errors MATCHES "ptrace|trace the inferior|[Oo]peration not permitted")
  message("SKIPPED: gdb cannot trace a program here")
  return()
endif()
string(REGEX REPLACE "^.*\nSHOWN\n" "" shown "${printed}")
file(READ "${CMAKE_CURRENT_LIST_DIR}/shown.txt" expected)
if(NOT shown STREQUAL expected)
  message(FATAL_ERROR "gdb shows:\n${shown}\n${errors}")
endif()
