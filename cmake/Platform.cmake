# platform_sources(TARGET TOPIC...): adds what differs between operating systems, from host/platform, to a target. Each
# topic has one source for each system, behind one header, which is included as "platform/TOPIC.h".
if(WIN32)
  set(RYTREE_PLATFORM windows)
else()
  set(RYTREE_PLATFORM posix)
endif()
function(platform_sources target)
  foreach(topic IN LISTS ARGN)
    target_sources(${target} PRIVATE "${PROJECT_SOURCE_DIR}/host/platform/${topic}_${RYTREE_PLATFORM}.cpp")
  endforeach()
  target_include_directories(${target} PRIVATE "${PROJECT_SOURCE_DIR}/host")
endfunction()
