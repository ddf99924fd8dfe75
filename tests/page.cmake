# The page of a run: what it holds, and how it stands in a browser.
set(page_tests "${CMAKE_CURRENT_SOURCE_DIR}/page")
add_test(NAME page.file COMMAND "${Python3_EXECUTABLE}" "${page_tests}/page_test.py" $<TARGET_FILE:orvane-sim>)
set_tests_properties(page.file PROPERTIES TIMEOUT 300)
# Once is enough: the browser is the same for every build.
if(NOT ORVANE_SANITIZED AND NOT ORVANE_COVERAGE)
  add_test(NAME page.browser COMMAND "${Python3_EXECUTABLE}" "${page_tests}/browser_test.py" $<TARGET_FILE:orvane-sim>)
  set_tests_properties(page.browser PROPERTIES TIMEOUT 300)
endif()
