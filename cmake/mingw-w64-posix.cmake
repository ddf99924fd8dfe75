# The same with the runtime library's own threads, which the stand-ins use.
include("${CMAKE_CURRENT_LIST_DIR}/mingw-w64.cmake")
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
