# Each scenario file is a test; together they are run twice and compared.
file(GLOB_RECURSE scenario_files CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/scenarios/*.json")
if(NOT scenario_files)
  message(FATAL_ERROR "${CMAKE_CURRENT_SOURCE_DIR}/scenarios: no scenario")
endif()

foreach(file IN LISTS scenario_files)
  cmake_path(RELATIVE_PATH file BASE_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}/scenarios" OUTPUT_VARIABLE path)
  cmake_path(REMOVE_EXTENSION path LAST_ONLY OUTPUT_VARIABLE path)
  # The report goes nowhere; what the run has to object to stands on the error stream.
  add_test(NAME "scenario.${path}" COMMAND sh -c "exec \"$1\" --json \"$2\" >/dev/null" sh $<TARGET_FILE:orvane-sim>
                                           "${file}")
  set_tests_properties("scenario.${path}" PROPERTIES TIMEOUT 120)
endforeach()

# Natively alone: instrumented, each child searches for leaks or adds its counts with all files in memory.
if(NOT ORVANE_SANITIZED AND NOT ORVANE_COVERAGE)
  add_test(NAME scenarios.determinism
           COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/determinism.py" $<TARGET_FILE:orvane-sim>
                   "${CMAKE_CURRENT_SOURCE_DIR}/scenarios")
  set_tests_properties(scenarios.determinism PROPERTIES TIMEOUT 600)
endif()
# Calls that fail, and people who meddle: a share of what ./test --sweep runs.
if(NOT ORVANE_COVERAGE)
  set(reliability "${CMAKE_CURRENT_SOURCE_DIR}/reliability")
  set(fault_budget 3000)
  set(pair_budget 300)
  set(meddling_budget 1500)
  if(ORVANE_SANITIZED)
    set(fault_budget 250)
    set(pair_budget 30)
    set(meddling_budget 100)
  endif()
  add_test(NAME reliability.sweep
           COMMAND "${Python3_EXECUTABLE}" "${reliability}/sweep.py" --simulator $<TARGET_FILE:orvane-sim>
                   --budget ${fault_budget} --pairs ${pair_budget})
  add_test(NAME reliability.meddling
           COMMAND "${Python3_EXECUTABLE}" "${reliability}/meddling.py" --simulator $<TARGET_FILE:orvane-sim>
                   --budget ${meddling_budget})
  # A share of a long life, all in one process. Sanitizers keep what is freed.
  set(memory_option)
  if(ORVANE_SANITIZED)
    set(memory_option --no-memory)
  endif()
  add_executable(orvane_long_life "${reliability}/long_life/long_life.cpp")
  target_link_libraries(orvane_long_life PRIVATE orvane_simulation)
  add_test(NAME reliability.long_life
           COMMAND "${Python3_EXECUTABLE}" "${reliability}/long_life.py" --program $<TARGET_FILE:orvane_long_life>
                   --calls 2000 ${memory_option})
  foreach(subject IN ITEMS promises variants)
    add_test(NAME reliability.${subject} COMMAND "${Python3_EXECUTABLE}" "${reliability}/${subject}_test.py")
  endforeach()
  set_tests_properties(reliability.sweep reliability.meddling reliability.long_life PROPERTIES TIMEOUT 600)
endif()
# Calls of the platform are counted, so one build shows them.
if(NOT ORVANE_SANITIZED AND NOT ORVANE_COVERAGE)
  set(calls "${CMAKE_CURRENT_SOURCE_DIR}/calls")
  add_test(NAME calls.exact COMMAND "${Python3_EXECUTABLE}" "${calls}/platform_calls_test.py" $<TARGET_FILE:orvane-sim>)
  set_tests_properties(calls.exact PROPERTIES TIMEOUT 300)
  add_test(NAME calls.table COMMAND "${Python3_EXECUTABLE}" "${calls}/table.py" --check)
endif()
add_test(NAME scenarios.determinism_itself
         COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/determinism_test.py")
# What the kit would write is what runs.
add_test(NAME scenarios.kit COMMAND "${Python3_EXECUTABLE}" "${CMAKE_CURRENT_SOURCE_DIR}/scenarios/build.py" --check)
# A report that was kept is shown as the run itself: a delivery, a window with its backdrop, menus and pictures.
string(
  CONCAT show_kept_report
         "folder=$(mktemp -d) && \"$1\" --json \"$2\" >$folder/report && \"$1\" \"$2\" >$folder/printed && "
         "\"$1\" --report $folder/report \"$2\" | cmp - $folder/printed; status=$?; rm -r $folder; exit $status")
foreach(shown IN ITEMS run/claude day/whole-day day/picture-from-the-clipboard)
  add_test(NAME "scenarios.report_shown.${shown}"
           COMMAND sh -c "${show_kept_report}" sh $<TARGET_FILE:orvane-sim>
                   "${CMAKE_CURRENT_SOURCE_DIR}/scenarios/${shown}.json")
endforeach()
