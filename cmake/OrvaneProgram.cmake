# orvane.exe, the program that ships.
include_guard()

set(ORVANE_PACKAGING_DIR "${CMAKE_CURRENT_SOURCE_DIR}/packaging")
set(ORVANE_GENERATED_DIR "${CMAKE_CURRENT_BINARY_DIR}/generated")

# orvane_import_library(TARGET DLL): links TARGET against DLL.dll by packaging/DLL.def.
function(orvane_import_library target dll)
  set(definitions "${ORVANE_PACKAGING_DIR}/${dll}.def")
  if(MSVC)
    set(library "${ORVANE_GENERATED_DIR}/${dll}.lib")
    set(command "${CMAKE_AR}" /nologo /machine:x64 "/def:${definitions}" "/out:${library}")
  else()
    set(library "${ORVANE_GENERATED_DIR}/lib${dll}.a")
    set(command "${CMAKE_DLLTOOL}" -d "${definitions}" -l "${library}")
  endif()
  add_custom_command(
    OUTPUT "${library}"
    COMMAND ${command}
    DEPENDS "${definitions}"
    COMMENT "Making the import library of ${dll}.dll"
    VERBATIM)
  add_custom_target(import_${dll} DEPENDS "${library}")
  add_dependencies(${target} import_${dll})
  target_link_libraries(${target} PRIVATE "${library}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${library}")
endfunction()

orvane_sources(program_sources "${ORVANE_SOURCE_DIR}/*/*.cpp")
if(NOT program_sources)
  return()
endif()

file(MAKE_DIRECTORY "${ORVANE_GENERATED_DIR}")
configure_file("${ORVANE_PACKAGING_DIR}/version.h.in" "${ORVANE_GENERATED_DIR}/version.h" @ONLY)

add_executable(orvane WIN32 ${program_sources} "${ORVANE_PACKAGING_DIR}/orvane.rc")
set_source_files_properties(
  "${ORVANE_PACKAGING_DIR}/orvane.rc"
  PROPERTIES OBJECT_DEPENDS
             "${ORVANE_PACKAGING_DIR}/orvane.ico;${ORVANE_PACKAGING_DIR}/orvane.manifest;${ORVANE_GENERATED_DIR}/version.h")
target_include_directories(orvane PRIVATE "${ORVANE_SOURCE_DIR}" "${ORVANE_PACKAGING_DIR}" "${ORVANE_GENERATED_DIR}")
target_link_libraries(orvane PRIVATE orvane_options user32 gdi32 dwmapi shell32 ole32 oleaut32 advapi32 uuid)
# Windows 10 and later.
target_compile_definitions(orvane PRIVATE UNICODE _UNICODE NOMINMAX STRICT WINVER=0x0A00 _WIN32_WINNT=0x0A00)
if(MSVC)
  # The manifest is a resource of ours.
  target_link_options(orvane PRIVATE /MANIFEST:NO /OPT:REF)
else()
  target_compile_options(orvane PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:-municode;-ffunction-sections;-fdata-sections>")
  target_link_options(orvane PRIVATE -municode -static -static-libgcc -static-libstdc++ LINKER:--gc-sections)
endif()

foreach(dll IN ITEMS flutter_windows desktop_drop_plugin url_launcher_windows_plugin webview_windows_plugin)
  orvane_import_library(orvane ${dll})
endforeach()
