# What orvane.exe is measured beside, built as it is.
include_guard()

set(ORVANE_PROGRAM_BENCHMARK "${CMAKE_CURRENT_LIST_DIR}")

add_executable(idle WIN32 "${ORVANE_PROGRAM_BENCHMARK}/idle.cpp")
orvane_program_options(idle)
target_link_libraries(idle PRIVATE user32)

add_executable(stopwatch "${ORVANE_PROGRAM_BENCHMARK}/stopwatch.cpp")
orvane_program_options(stopwatch)
target_link_libraries(stopwatch PRIVATE user32)

if(NOT MSVC)
  # What each folder and the standard library take of the file.
  target_link_options(orvane PRIVATE "LINKER:-Map=${CMAKE_CURRENT_BINARY_DIR}/orvane.map")
endif()
