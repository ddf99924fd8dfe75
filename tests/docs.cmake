# The documents: held to what the program does, and to what its sources say.
set(document_tests "${CMAKE_CURRENT_SOURCE_DIR}/docs")
add_test(NAME docs.markdown COMMAND "${Python3_EXECUTABLE}" "${document_tests}/markdown_test.py")
add_test(NAME docs.drawing COMMAND "${Python3_EXECUTABLE}" "${document_tests}/drawing_test.py")
add_test(NAME docs.platform COMMAND "${Python3_EXECUTABLE}" "${document_tests}/platform_test.py")
add_test(NAME docs.links COMMAND "${Python3_EXECUTABLE}" "${document_tests}/links_test.py")
set(documents docs.markdown docs.drawing docs.platform docs.links)

# Natively alone: the words are the same in every build.
if(NOT ORVANE_SANITIZED AND NOT ORVANE_COVERAGE)
  foreach(document IN ITEMS channels traces)
    add_test(NAME docs.${document}
             COMMAND "${Python3_EXECUTABLE}" "${document_tests}/${document}_test.py" $<TARGET_FILE:orvane-sim>)
    list(APPEND documents docs.${document})
  endforeach()
endif()
set_tests_properties(${documents} PROPERTIES LABELS docs TIMEOUT 300)
