# The host inside the simulated Windows: simulation/include stands in front in place of the
# platform's headers, the desktop model in place of its libraries.
include_guard()

find_package(Threads REQUIRED)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)

# The embedding client apart from the rest of the host: its tests bring a library of their own.
orvane_sources(embedding_sources "${ORVANE_SOURCE_DIR}/embedding/*.cpp")
orvane_sources(host_sources "${ORVANE_SOURCE_DIR}/*/*.cpp")
list(REMOVE_ITEM host_sources ${embedding_sources})
orvane_static_library(orvane_embedding ${embedding_sources})
orvane_static_library(orvane_host ${host_sources})

# The host sees the platform's headers and itself, and nothing else of the simulation.
foreach(library IN ITEMS orvane_embedding orvane_host)
  target_include_directories(${library} PUBLIC "${ORVANE_SIMULATION_DIR}/include" "${ORVANE_SOURCE_DIR}")
endforeach()
target_link_libraries(orvane_host PUBLIC orvane_embedding)

orvane_sources(simulation_sources "${ORVANE_SIMULATION_DIR}/world/*.cpp" "${ORVANE_SIMULATION_DIR}/windows/*.cpp"
               "${ORVANE_SIMULATION_DIR}/scenario/*.cpp")
orvane_static_library(orvane_simulation ${simulation_sources})
target_include_directories(orvane_simulation PUBLIC "${ORVANE_SIMULATION_DIR}/include" "${ORVANE_SOURCE_DIR}"
                                                    "${ORVANE_SIMULATION_DIR}")
target_link_libraries(orvane_simulation PUBLIC Threads::Threads nlohmann_json::nlohmann_json)
# appendTrace(EncodableList&, const std::string&, const std::string&): the simulation notes the
# virtual time of each step. A changed signature ends the link with an undefined __real_ symbol.
string(CONCAT append_trace "_ZN6orvane11appendTraceERSt6vectorINS_14EncodableValueESaIS1_EE"
                           "RKNSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEESC_")
target_link_options(orvane_simulation INTERFACE "LINKER:--wrap=${append_trace}")

orvane_join_sources(orvane_simulation)
if(ORVANE_SANITIZED)
  # The linter takes the commands for the host's sources, one by one, from the native build. The embedding
  # client's tests link some of its sources without the platform that the others call.
  orvane_join_sources(orvane_host)
  # Calls of appendTrace are taken at the link, which those of its own source aren't.
  set_source_files_properties("${ORVANE_SOURCE_DIR}/browser_channel/trace_log.cpp" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Every local variable of an instrumented function has a place of its own: with what it calls put into
    # it, a level of a message takes more of the stack than a thousand levels have.
    set_source_files_properties("${ORVANE_SOURCE_DIR}/embedding/standard_codec_reading.cpp"
                                PROPERTIES COMPILE_OPTIONS "-fno-inline-functions-called-once;-fno-inline-small-functions")
  endif()
endif()
# Its records are of types that no other source sees.
set_source_files_properties("${ORVANE_SIMULATION_DIR}/world/clock.cpp" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)

# Each needs the other's symbols: the platform starts the host, the host calls the platform. The
# host's sources still see nothing of the simulation.
target_link_libraries(orvane_simulation PUBLIC orvane_host)
# Helpers of theirs are named as those of the report are: never compiled as one with it.
set_source_files_properties("${ORVANE_SIMULATION_DIR}/scenario/run_record.cpp" "${ORVANE_SIMULATION_DIR}/scenario/scene.cpp"
                            PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
foreach(library IN ITEMS orvane_embedding orvane_host)
  set_property(TARGET ${library} APPEND PROPERTY INTERFACE_LINK_LIBRARIES "$<LINK_ONLY:orvane_simulation>")
  # What one pulls out of the other may ask for more of the one.
  set_target_properties(${library} PROPERTIES LINK_INTERFACE_MULTIPLICITY 3)
endforeach()

# The page of a run: its files are put into the program.
set(page_folder "${ORVANE_SIMULATION_DIR}/page")
set(page_source "${CMAKE_CURRENT_BINARY_DIR}/generated/page_template.cpp")
orvane_sources(page_parts "${page_folder}/*.html" "${page_folder}/*.css" "${page_folder}/*.js")
add_custom_command(
  OUTPUT "${page_source}"
  COMMAND "${CMAKE_COMMAND}" "-DFOLDER=${page_folder}" "-DOUTPUT=${page_source}" -P
          "${CMAKE_CURRENT_SOURCE_DIR}/cmake/embed_page.cmake"
  DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/cmake/embed_page.cmake" ${page_parts}
  COMMENT "Putting the page of a run together"
  VERBATIM)
orvane_sources(page_sources "${page_folder}/*.cpp")
add_executable(orvane-sim "${ORVANE_SIMULATION_DIR}/main.cpp" ${page_sources} "${page_source}")
target_link_libraries(orvane-sim PRIVATE orvane_simulation CLI11::CLI11)
