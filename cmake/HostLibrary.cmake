# host_library(NAME DEPENDS ... PRIVATE_DEPENDS ... PLATFORM ... INCLUDES ...): makes a library of the bundled host from
# the sources of the calling folder, with public headers in include/ below it and in INCLUDES, and from those of the
# named topics of the platform folder. Libraries and headers are installed with the library's package.
function(host_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "DEPENDS;PRIVATE_DEPENDS;PLATFORM;INCLUDES")
  file(GLOB sources CONFIGURE_DEPENDS "*.cpp")
  add_library(${name} ${sources})
  set(includes "${CMAKE_CURRENT_SOURCE_DIR}/include" ${arg_INCLUDES})
  target_include_directories(${name}
    PUBLIC "$<BUILD_INTERFACE:${includes}>" "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>"
    PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
  platform_sources(${name} ${arg_PLATFORM})
  target_link_libraries(${name} PUBLIC ${arg_DEPENDS} PRIVATE ${arg_PRIVATE_DEPENDS} $<BUILD_INTERFACE:rytree_build_flags>)
  target_compile_features(${name} PUBLIC cxx_std_20)
  set_target_properties(${name} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${RYTREE_ABI} POSITION_INDEPENDENT_CODE ON)
  if(RYTREE_INSTALL)
    install(TARGETS ${name} EXPORT rytree_UtilsTargets ${RYTREE_INSTALL_LIBRARY})
    list(TRANSFORM includes APPEND "/")
    install(DIRECTORY ${includes} TYPE INCLUDE FILES_MATCHING PATTERN "*.h")
  endif()
endfunction()
