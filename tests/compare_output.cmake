# Fails unless PROGRAM succeeds and prints what the file EXPECTED holds.
execute_process(COMMAND "${CMAKE_COMMAND}" -E env LC_ALL=C ${PROGRAM} OUTPUT_VARIABLE printed COMMAND_ERROR_IS_FATAL ANY)
string(REPLACE "\r\n" "\n" printed "${printed}")  # as programs for Windows end lines
file(READ "${EXPECTED}" expected)
if(NOT printed STREQUAL expected)
  message(FATAL_ERROR "Printed is not what ${EXPECTED} holds:\n${printed}")
endif()
