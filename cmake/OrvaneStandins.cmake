# Windows binaries in place of what the host needs around it: browsers, UI Automation, the spell
# checker, the embedding library and its plugins; and the contract suite against the real platform.
include_guard()

set(ORVANE_STANDINS_DIR "${CMAKE_CURRENT_SOURCE_DIR}/standins")
set(ORVANE_CONTRACT_DIR "${CMAKE_CURRENT_SOURCE_DIR}/tests/contract")

# The JSON library is headers alone, installed natively. Only they are shown to the cross compiler:
# the rest of their folder is another system's.
find_path(
  ORVANE_JSON_INCLUDE nlohmann/json.hpp
  PATHS /usr/local/include /usr/include REQUIRED
  NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(ORVANE_JSON_INCLUDE)
set(headers "${CMAKE_CURRENT_BINARY_DIR}/include")
file(MAKE_DIRECTORY "${headers}")
file(CREATE_LINK "${ORVANE_JSON_INCLUDE}/nlohmann" "${headers}/nlohmann" SYMBOLIC)

# What every stand-in is built with. Nothing of simulation/include may be seen here: <windows.h> is
# the platform's.
add_library(orvane_windows INTERFACE)
target_link_libraries(orvane_windows INTERFACE orvane_options)
target_compile_definitions(orvane_windows INTERFACE UNICODE _UNICODE NOMINMAX WINVER=0x0A00 _WIN32_WINNT=0x0A00)
# Without symbols: a run copies the browser under each name that it needs. Laid out in the file as in
# memory: Wine maps such files, others it reads whole into each process.
target_link_options(orvane_windows INTERFACE -static -static-libgcc -static-libstdc++ -s LINKER:--file-alignment=0x1000)

# The model of pages, and the reader of scenario files: what knows nothing of the simulated platform.
orvane_sources(world_sources "${ORVANE_SIMULATION_DIR}/world/*.cpp" "${ORVANE_SIMULATION_DIR}/scenario/*.cpp")
foreach(bound IN ITEMS child_runs painted_report person_printer report run_record run_scenario
                       scene scripted_interface trace_times)
  list(REMOVE_ITEM world_sources "${ORVANE_SIMULATION_DIR}/scenario/${bound}.cpp")
endforeach()
orvane_static_library(orvane_world ${world_sources})
target_link_libraries(orvane_world PUBLIC orvane_windows)
set_source_files_properties("${ORVANE_SIMULATION_DIR}/world/clock.cpp" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
target_include_directories(orvane_world PUBLIC "${ORVANE_SIMULATION_DIR}" "${ORVANE_SOURCE_DIR}" "${ORVANE_STANDINS_DIR}")
target_include_directories(orvane_world SYSTEM PUBLIC "${headers}")

# Whoever sets the scene writes the real clipboard as the browsers do.
orvane_sources(clipboard_sources "${ORVANE_STANDINS_DIR}/browser/real_clipboard.cpp")
orvane_sources(common_sources "${ORVANE_STANDINS_DIR}/common/*.cpp")
orvane_static_library(orvane_standins_common ${common_sources} ${clipboard_sources})
target_link_libraries(orvane_standins_common PUBLIC orvane_world)

set(standin_libraries orvane_standins_common advapi32 user32 gdi32 ole32 oleaut32 uuid)

# orvane_standin_library(NAME SOURCE...): NAME.dll. Where packaging/ lists the names that the host
# imports, one that the library lacks ends the link.
function(orvane_standin_library name)
  set(definitions "${CMAKE_CURRENT_SOURCE_DIR}/packaging/${name}.def")
  add_library(${name} SHARED ${ARGN})
  if(EXISTS "${definitions}")
    target_sources(${name} PRIVATE "${definitions}")
  endif()
  set_target_properties(${name} PROPERTIES PREFIX "" LINK_DEPENDS_NO_SHARED ON)
  target_link_libraries(${name} PRIVATE ${standin_libraries})
endfunction()

# orvane_standin_program(NAME SOURCE...): NAME.exe, without a console.
function(orvane_standin_program name)
  add_executable(${name} WIN32 ${ARGN})
  target_compile_options(${name} PRIVATE -municode)
  target_link_options(${name} PRIVATE -municode)
  target_link_libraries(${name} PRIVATE ${standin_libraries})
endfunction()

orvane_sources(browser_sources "${ORVANE_STANDINS_DIR}/browser/*.cpp")
list(REMOVE_ITEM browser_sources ${clipboard_sources})
orvane_standin_program(browser ${browser_sources})
orvane_sources(session_sources "${ORVANE_STANDINS_DIR}/session/*.cpp")
orvane_standin_program(session ${session_sources})

orvane_sources(embedding_sources "${ORVANE_STANDINS_DIR}/flutter_windows/*.cpp"
               "${ORVANE_SIMULATION_DIR}/windows/engine_room.cpp")
orvane_standin_library(flutter_windows ${embedding_sources})
foreach(plugin IN ITEMS desktop_drop_plugin url_launcher_windows_plugin webview_windows_plugin)
  orvane_sources(plugin_sources "${ORVANE_STANDINS_DIR}/plugins/${plugin}.cpp")
  orvane_standin_library(${plugin} ${plugin_sources})
endforeach()
orvane_sources(compositor_sources "${ORVANE_STANDINS_DIR}/dwmapi/*.cpp")
orvane_standin_library(dwmapi ${compositor_sources})
foreach(server IN ITEMS automation spelling)
  orvane_sources(server_sources "${ORVANE_STANDINS_DIR}/${server}/*.cpp")
  orvane_standin_library(orvane_${server} ${server_sources})
endforeach()

add_subdirectory(tests/e2e)

orvane_join_sources(orvane_world orvane_standins_common browser session flutter_windows orvane_automation orvane_spelling)
