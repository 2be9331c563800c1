# How the libraries and programs are laid out on Windows: DLLs and programs side by side in bin, under plain names, as a
# program looks for its DLLs where it is itself; import libraries in lib. The compiler's own run-time libraries are linked
# in, so that nothing else has to be shipped.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_SHARED_LIBRARY_PREFIX "")
set(CMAKE_SHARED_MODULE_PREFIX "")
add_link_options(-static)
