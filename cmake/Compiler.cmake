# The compiler, its warnings and the sanitizers.

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 14)
  message(FATAL_ERROR
    "GCC ${CMAKE_CXX_COMPILER_VERSION} destroys temporaries of an expression that holds co_await "
    "twice, without a warning. Use Clang 19 (packages: packaging/debian-packages.txt) or GCC 14.")
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_SCAN_FOR_MODULES OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
# Programs and libraries alike, so that they can share a precompiled header.
set(CMAKE_CXX_COMPILE_OPTIONS_PIE -fPIC)

option(MORVANE_TESTS "build the tests" ON)
option(MORVANE_BENCHMARKS "build the benchmarks" ON)
set(MORVANE_SANITIZE "" CACHE STRING "sanitizers, as -fsanitize takes them")

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
  # What stands in a precompiled header is told apart by its content.
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    ${CCACHE_PROGRAM})
endif()

add_library(morvane_warnings INTERFACE)
add_library(morvane::warnings ALIAS morvane_warnings)
target_compile_options(morvane_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
  -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough -Wswitch-enum
  -Wno-missing-field-initializers
  # libstdc++ 12 calls its own deprecated get_temporary_buffer from stable_sort.
  -Wno-deprecated-declarations)

if(CMAKE_CXX_COMPILER_ID MATCHES "Clang" AND NOT APPLE)
  find_program(LLD_PROGRAM NAMES ld.lld-19 ld.lld)
  if(LLD_PROGRAM)
    add_link_options(--ld-path=${LLD_PROGRAM})
  endif()
endif()

if(MORVANE_SANITIZE)
  add_compile_options(-fsanitize=${MORVANE_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${MORVANE_SANITIZE})
endif()
