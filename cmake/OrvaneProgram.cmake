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
    # By its bare name, out of which the tool makes symbols.
    set(command "${CMAKE_DLLTOOL}" -d "${definitions}" -l "lib${dll}.a")
  endif()
  add_custom_command(
    OUTPUT "${library}"
    COMMAND ${command}
    DEPENDS "${definitions}"
    WORKING_DIRECTORY "${ORVANE_GENERATED_DIR}"
    COMMENT "Making the import library of ${dll}.dll"
    VERBATIM)
  add_custom_target(import_${dll} DEPENDS "${library}")
  add_dependencies(${target} import_${dll})
  target_link_libraries(${target} PRIVATE "${library}")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${library}")
endfunction()

orvane_sources(program_sources "${ORVANE_SOURCE_DIR}/*/*.cpp")

file(MAKE_DIRECTORY "${ORVANE_GENERATED_DIR}")
configure_file("${ORVANE_PACKAGING_DIR}/version.h.in" "${ORVANE_GENERATED_DIR}/version.h" @ONLY)

# orvane_program_options(TARGET): what a program that ships is built with. The same sources give the same
# bytes, wherever they lie; debug information is taken out of the files when they are packed.
function(orvane_program_options target)
  target_include_directories(${target} PRIVATE "${ORVANE_SOURCE_DIR}" "${ORVANE_PACKAGING_DIR}" "${ORVANE_GENERATED_DIR}")
  target_link_libraries(${target} PRIVATE orvane_options)
  # Windows 10 and later.
  target_compile_definitions(${target} PRIVATE UNICODE _UNICODE NOMINMAX STRICT WINVER=0x0A00 _WIN32_WINNT=0x0A00)
  if(MSVC)
    target_compile_options(${target} PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:/Zi;/Brepro>")
    # The manifest is a resource of ours.
    target_link_options(${target} PRIVATE /MANIFEST:NO /DEBUG /OPT:REF /Brepro)
  else()
    # Without the working directory in what is compiled, the compiler cache serves every build folder.
    set(flags -municode -ffunction-sections -fdata-sections -g1 -fno-working-directory "-ffile-prefix-map=${CMAKE_SOURCE_DIR}=."
              "-ffile-prefix-map=${CMAKE_BINARY_DIR}=build")
    target_compile_options(${target} PRIVATE "$<$<COMPILE_LANGUAGE:CXX>:${flags}>")
    target_link_options(${target} PRIVATE -municode -static -static-libgcc -static-libstdc++ LINKER:--gc-sections
                        LINKER:--no-insert-timestamp)
  endif()
endfunction()

# What reads windows and tells providers serves the tool beside the program as well.
orvane_sources(reading_sources "${ORVANE_SOURCE_DIR}/provider_identity/*.cpp" "${ORVANE_SOURCE_DIR}/composer/uia_operations.cpp"
               "${ORVANE_SOURCE_DIR}/activation/process_image.cpp" "${ORVANE_SOURCE_DIR}/embedding/utf_conversion.cpp")
list(REMOVE_ITEM program_sources ${reading_sources})
add_library(orvane_reading OBJECT ${reading_sources})
orvane_program_options(orvane_reading)

add_executable(orvane WIN32 ${program_sources} $<TARGET_OBJECTS:orvane_reading> "${ORVANE_PACKAGING_DIR}/orvane.rc")
orvane_join_sources(orvane)
set_source_files_properties(
  "${ORVANE_PACKAGING_DIR}/orvane.rc"
  PROPERTIES OBJECT_DEPENDS
             "${ORVANE_PACKAGING_DIR}/orvane.ico;${ORVANE_PACKAGING_DIR}/orvane.manifest;${ORVANE_GENERATED_DIR}/version.h")
orvane_program_options(orvane)
target_link_libraries(orvane PRIVATE user32 gdi32 dwmapi shell32 ole32 oleaut32 advapi32 uuid)

foreach(dll IN ITEMS flutter_windows desktop_drop_plugin url_launcher_windows_plugin webview_windows_plugin)
  orvane_import_library(orvane ${dll})
endforeach()
