# Targets out of folders. A folder without a source yet makes no target, and what would use that
# target does without it.
include_guard()

set(ORVANE_SOURCE_DIR "${CMAKE_CURRENT_SOURCE_DIR}/src")
set(ORVANE_SIMULATION_DIR "${CMAKE_CURRENT_SOURCE_DIR}/simulation")

# orvane_sources(RESULT PATTERN...): the files that match, those that come later included.
function(orvane_sources result)
  file(GLOB found CONFIGURE_DEPENDS LIST_DIRECTORIES false ${ARGN})
  set(${result} "${found}" PARENT_SCOPE)
endfunction()

# orvane_join_sources(NAME...): several sources are compiled as one where ORVANE_JOINED says so.
function(orvane_join_sources)
  foreach(name IN LISTS ARGN)
    if(TARGET ${name})
      set_target_properties(${name} PROPERTIES UNITY_BUILD "${ORVANE_JOINED}" UNITY_BUILD_BATCH_SIZE 8)
    endif()
  endforeach()
endfunction()

# orvane_static_library(NAME SOURCE...)
function(orvane_static_library name)
  if(ARGN)
    add_library(${name} STATIC ${ARGN})
    target_link_libraries(${name} PUBLIC orvane_options)
  endif()
endfunction()

# orvane_link_present(NAME SCOPE LIBRARY...): links those of the libraries that are there.
function(orvane_link_present name scope)
  foreach(library IN LISTS ARGN)
    if(TARGET ${name} AND TARGET ${library})
      target_link_libraries(${name} ${scope} ${library})
    endif()
  endforeach()
endfunction()
