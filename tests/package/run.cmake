# Installs a build, then configures, builds and runs the app in this folder against what was installed, and compares what
# it prints.
#   cmake -DBUILD=folder -DWORK=folder [-DGENERATOR=… -DCOMPILER=… -DFLAGS=…] -P run.cmake
foreach(name IN ITEMS GENERATOR COMPILER FLAGS)
  if(NOT DEFINED ${name})
    file(STRINGS "${BUILD}/CMakeCache.txt" line REGEX "^CMAKE_(CXX_)?${name}:")
    string(REGEX REPLACE "^[^=]*=(.*)$" "\\1" ${name} "${line}")
  endif()
endforeach()

function(run)
  execute_process(COMMAND ${ARGV} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
  set(output "${output}" PARENT_SCOPE)
  if(NOT status EQUAL 0)
    list(JOIN ARGV " " command)
    message(FATAL_ERROR "${command}: ${status}\n${output}")
  endif()
endfunction()

file(REMOVE_RECURSE "${WORK}")
set(examples "${CMAKE_CURRENT_LIST_DIR}/../../examples")
run("${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${WORK}/first")
file(RENAME "${WORK}/first" "${WORK}/prefix")  # the package can be moved
run("${CMAKE_COMMAND}" -S "${CMAKE_CURRENT_LIST_DIR}" -B "${WORK}/build" -G "${GENERATOR}"
  "-DCMAKE_CXX_COMPILER=${COMPILER}" "-DCMAKE_CXX_FLAGS=${FLAGS}" "-DCMAKE_PREFIX_PATH=${WORK}/prefix")
run("${CMAKE_COMMAND}" --build "${WORK}/build")
file(GLOB_RECURSE printers "${WORK}/prefix/*/librytesavc.so.*-gdb.py")
if(NOT printers)
  message(FATAL_ERROR "What shows nodes in gdb is not installed beside its library")
endif()
if(EXISTS "${WORK}/prefix/bin/rytree-tree")
  run("${WORK}/prefix/bin/rytree-tree" --version)
endif()
run("${CMAKE_COMMAND}" "-DPROGRAM=${WORK}/build/app" "-DEXPECTED=${examples}/carry_values.txt"
  -P "${CMAKE_CURRENT_LIST_DIR}/../compare_output.cmake")
message(STATUS "installed, moved, found, built, run")
