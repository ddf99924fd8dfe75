# Targets out of folders.
include_guard()

set(ORVANE_SOURCE_DIR "${CMAKE_CURRENT_SOURCE_DIR}/src")
set(ORVANE_SIMULATION_DIR "${CMAKE_CURRENT_SOURCE_DIR}/simulation")

# orvane_sources(RESULT PATTERN...): the files that match, those that come later included. A pattern that
# matches nothing is a mistake.
function(orvane_sources result)
  set(all)
  foreach(pattern IN LISTS ARGN)
    file(GLOB found CONFIGURE_DEPENDS LIST_DIRECTORIES false "${pattern}")
    if(NOT found)
      message(FATAL_ERROR "${pattern}: no file matches")
    endif()
    list(APPEND all ${found})
  endforeach()
  set(${result} "${all}" PARENT_SCOPE)
endfunction()

# orvane_join_sources(NAME...): several sources are compiled as one where ORVANE_JOINED says so.
function(orvane_join_sources)
  set_target_properties(${ARGN} PROPERTIES UNITY_BUILD "${ORVANE_JOINED}" UNITY_BUILD_BATCH_SIZE 8)
endfunction()

# orvane_static_library(NAME SOURCE...)
function(orvane_static_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC orvane_options)
endfunction()
