# How the libraries and programs are laid out on Windows: DLLs and programs side by side in bin, under plain names, as a
# program looks for its DLLs where it is itself; import libraries in lib.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(CMAKE_SHARED_MODULE_PREFIX "")

# The compiler's run-time libraries are DLLs too, beside the others and installed with them: all DLLs and the program
# share one copy, so an exception that one of them throws can be caught and freed in another.
set(RYTREE_RUNTIME_LIBRARIES)
foreach(library IN ITEMS libstdc++-6 libgcc_s_seh-1 libwinpthread-1)
  execute_process(COMMAND "${CMAKE_CXX_COMPILER}" "-print-file-name=${library}.dll"
    OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
  if(NOT EXISTS "${file}")
    message(FATAL_ERROR "${CMAKE_CXX_COMPILER} has no ${library}.dll")
  endif()
  list(APPEND RYTREE_RUNTIME_LIBRARIES "${file}")
endforeach()
file(COPY ${RYTREE_RUNTIME_LIBRARIES} DESTINATION "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
if(RYTREE_INSTALL)
  install(PROGRAMS ${RYTREE_RUNTIME_LIBRARIES} TYPE BIN COMPONENT libraries)
endif()
