# One folder, one target: the folders are layers, and a layer that reaches upward does not link.

# morvane_layer(NAME [USES target…] [USES_PRIVATE target…]): the library of this folder, made of all
# its .cpp files.
function(morvane_layer name)
  cmake_parse_arguments(arg "" "" "USES;USES_PRIVATE" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_library(morvane_${name} STATIC ${sources})
  add_library(morvane::${name} ALIAS morvane_${name})
  target_include_directories(morvane_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(morvane_${name} PUBLIC ${arg_USES}
    PRIVATE morvane::warnings ${arg_USES_PRIVATE})
endfunction()

# Several files of a test program are compiled as one, for most of a test's compilation is its
# headers. A file whose names clash with a neighbour's says
# SKIP_UNITY_BUILD_INCLUSION.
option(MORVANE_UNITY_TESTS "compile several files of a test program as one" ON)

# morvane_test(NAME [USES target…]): one test program of this folder's .cpp files; ctest -N lists
# each of its tests.
function(morvane_test name)
  cmake_parse_arguments(arg "" "" "USES;LABELS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.cpp)
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/src)
  target_link_libraries(${name} PRIVATE morvane::warnings ${arg_USES} GTest::gmock
    GTest::gtest_main)
  if(MORVANE_UNITY_TESTS)
    set_target_properties(${name} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 8)
  endif()
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 600
    PROPERTIES LABELS "${arg_LABELS}")
endfunction()
