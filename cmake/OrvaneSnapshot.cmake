# orvane-snapshot, the tool beside the program. Natively it reads the simulated Windows, for its tests.
include_guard()

set(ORVANE_TOOLS_DIR "${CMAKE_CURRENT_SOURCE_DIR}/tools")
set(ORVANE_PACKAGING_DIR "${CMAKE_CURRENT_SOURCE_DIR}/packaging")
set(ORVANE_GENERATED_DIR "${CMAKE_CURRENT_BINARY_DIR}/generated")
configure_file("${ORVANE_PACKAGING_DIR}/version.h.in" "${ORVANE_GENERATED_DIR}/version.h" @ONLY)

orvane_sources(snapshot_sources "${ORVANE_TOOLS_DIR}/snapshot/*.cpp")
list(REMOVE_ITEM snapshot_sources "${ORVANE_TOOLS_DIR}/snapshot/main.cpp")

if(NOT WIN32)
  orvane_static_library(orvane_snapshot ${snapshot_sources})
  target_include_directories(orvane_snapshot PUBLIC "${ORVANE_TOOLS_DIR}" "${ORVANE_GENERATED_DIR}")
  target_link_libraries(orvane_snapshot PUBLIC orvane_host)
  # It tells its version too.
  target_include_directories(orvane-sim PRIVATE "${ORVANE_GENERATED_DIR}")
  return()
endif()

add_executable(orvane-snapshot "${ORVANE_TOOLS_DIR}/snapshot/main.cpp" ${snapshot_sources}
                               $<TARGET_OBJECTS:orvane_reading> "${ORVANE_PACKAGING_DIR}/orvane-snapshot.rc")
orvane_program_options(orvane-snapshot)
set_source_files_properties(
  "${ORVANE_PACKAGING_DIR}/orvane-snapshot.rc"
  PROPERTIES OBJECT_DEPENDS "${ORVANE_PACKAGING_DIR}/orvane.manifest;${ORVANE_GENERATED_DIR}/version.h")
target_include_directories(orvane-snapshot PRIVATE "${ORVANE_TOOLS_DIR}")
target_link_libraries(orvane-snapshot PRIVATE user32 ole32 oleaut32 uuid)
