# Fails unless PROGRAM succeeds and prints what the file EXPECTED holds.
execute_process(COMMAND "${CMAKE_COMMAND}" -E env LC_ALL=C "${PROGRAM}" OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
file(READ "${EXPECTED}" expected)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "Printed is not what ${EXPECTED} holds:\n${printed}")
endif()
