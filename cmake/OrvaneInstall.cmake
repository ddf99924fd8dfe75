# cmake --install: for Windows what the archive holds, side by side in one folder; natively the simulator.
include_guard()

if(WIN32)
  # Read with any editor of Windows.
  configure_file("${ORVANE_PACKAGING_DIR}/READ-ME.txt.in" "${ORVANE_GENERATED_DIR}/READ-ME.txt" @ONLY NEWLINE_STYLE DOS)
  install(TARGETS orvane orvane-snapshot RUNTIME DESTINATION .)
  install(FILES "${ORVANE_GENERATED_DIR}/READ-ME.txt" DESTINATION .)
  if(MSVC)
    install(FILES $<TARGET_PDB_FILE:orvane> $<TARGET_PDB_FILE:orvane-snapshot> DESTINATION symbols OPTIONAL)
  endif()
else()
  install(TARGETS orvane-sim RUNTIME)
endif()
