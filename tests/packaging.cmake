# What orvane.exe and the tool beside it are made of, read out of their files.
set(program "${CMAKE_CURRENT_SOURCE_DIR}/packaging")
foreach(subject IN ITEMS kind imports resources)
  add_test(NAME packaging.${subject}
           COMMAND "${Python3_EXECUTABLE}" "${program}/check_exe.py" ${subject} $<TARGET_FILE:orvane>
                   --version ${PROJECT_VERSION} --root "${PROJECT_SOURCE_DIR}")
endforeach()
add_test(NAME packaging.tool
         COMMAND "${Python3_EXECUTABLE}" "${program}/check_exe.py" tool $<TARGET_FILE:orvane-snapshot>
                 --version ${PROJECT_VERSION} --root "${PROJECT_SOURCE_DIR}")
add_test(NAME packaging.checker COMMAND "${Python3_EXECUTABLE}" "${program}/check_exe_test.py" $<TARGET_FILE:orvane>
                                        ${PROJECT_VERSION} "${PROJECT_SOURCE_DIR}")
