# What holds for every target: the language, the compiler cache, warnings as errors, instruments.
include_guard()

option(ORVANE_SANITIZED "Run under AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(ORVANE_FUZZED "Build the fuzz targets alone, with clang's fuzzer around them" OFF)
option(ORVANE_BENCHMARKS "Insist on the benchmarks' packages" OFF)
option(ORVANE_COVERAGE "Count the lines that ran" OFF)
option(ORVANE_DIRECT_TESTS "Build and run the direct tests" ON)
option(ORVANE_JOINED "Compile several sources as one: quick where all must be compiled, slow where few change" OFF)
option(ORVANE_STANDINS "Build what stands around orvane.exe under Wine in place of orvane.exe" OFF)

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

find_program(ORVANE_CCACHE ccache)
mark_as_advanced(ORVANE_CCACHE)
if(ORVANE_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${ORVANE_CCACHE}")
endif()

# Every target of ours links this.
add_library(orvane_options INTERFACE)

if(MSVC)
  target_compile_options(orvane_options INTERFACE /W4 /WX /permissive- /utf-8 /EHsc)
  set(CMAKE_MSVC_RUNTIME_LIBRARY "MultiThreaded$<$<CONFIG:Debug>:Debug>")
else()
  # Only for C++: the resource compiler knows none of these.
  target_compile_options(
    orvane_options INTERFACE "$<$<COMPILE_LANGUAGE:CXX>:-Wall;-Wextra;-Wpedantic;-Wconversion;-Wshadow;-Werror>")
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # The platform's own VARIANT and INPUT are unions of records without names.
    target_compile_options(orvane_options INTERFACE -Wno-nested-anon-types)
  endif()
endif()

if(ORVANE_SANITIZED)
  set(ORVANE_INSTRUMENTS -fsanitize=address,undefined -fno-sanitize-recover=all)
  # A target with the property ORVANE_TEST_CODE leaves out what makes its compilation slowest.
  target_compile_options(
    orvane_options INTERFACE -fsanitize=address "$<$<NOT:$<BOOL:$<TARGET_PROPERTY:ORVANE_TEST_CODE>>>:-fsanitize=undefined>"
                             -fno-sanitize-recover=all)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # With the sanitizers' code around it GCC sees uninitialized members inside <regex> and <functional>.
    target_compile_options(orvane_options INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_compile_definitions(orvane_options INTERFACE _GLIBCXX_ASSERTIONS)
  target_link_options(orvane_options INTERFACE ${ORVANE_INSTRUMENTS})
endif()

if(ORVANE_COVERAGE)
  # Simulated threads of one process add to the same counters.
  target_compile_options(orvane_options INTERFACE --coverage -fprofile-update=atomic)
  target_link_options(orvane_options INTERFACE --coverage)
endif()

if(ORVANE_FUZZED)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "ORVANE_FUZZED needs clang, which brings the fuzzer")
  endif()
  # What the fuzzer learns from; the fuzzer itself is linked to its targets.
  target_compile_options(orvane_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(orvane_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
