# Headers that are compiled once for many sources: most of a source's compilation is its headers.
# Every source still includes what it uses; the preset `tidy` builds without, and so sees it.
option(MORVANE_PRECOMPILED "compile the headers that most sources share once" ON)

# morvane_precompile(): for all targets, once they all stand.
function(morvane_precompile)
  if(NOT MORVANE_PRECOMPILED)
    return()
  endif()
  morvane_add_precompiled(standard)
  if(MORVANE_TESTS)
    morvane_add_precompiled(tests GTest::gmock)
  endif()
  if(MORVANE_WINDOW)
    morvane_add_precompiled(window Qt6::Quick)
    if(MORVANE_TESTS)
      morvane_add_precompiled(window_tests Qt6::Quick GTest::gmock)
    endif()
  endif()
  morvane_precompile_below(${PROJECT_SOURCE_DIR})
endfunction()

# The library that stands for a header of cmake/precompiled.
function(morvane_add_precompiled name)
  set(source ${CMAKE_BINARY_DIR}/precompiled/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "// The header ${name}.h alone.\n")
  add_library(morvane_precompiled_${name} STATIC ${source})
  target_link_libraries(morvane_precompiled_${name} PRIVATE morvane::warnings
    nlohmann_json::nlohmann_json ${ARGN})
  target_precompile_headers(morvane_precompiled_${name} PRIVATE
    ${PROJECT_SOURCE_DIR}/cmake/precompiled/${name}.h)
  if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    # Without the moment of its making, so that ccache knows it again.
    target_compile_options(morvane_precompiled_${name} PRIVATE "SHELL:-Xclang -fno-pch-timestamp")
  endif()
endfunction()

function(morvane_precompile_below directory)
  get_property(targets DIRECTORY ${directory} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target IN LISTS targets)
    get_target_property(type ${target} TYPE)
    # A precompiled header serves the options alone that it was made with.
    get_target_property(own ${target} COMPILE_OPTIONS)
    if(NOT target MATCHES "^morvane_precompiled_" AND NOT "${own}" MATCHES "-O[0-9]"
        AND type MATCHES "^(STATIC_LIBRARY|OBJECT_LIBRARY|EXECUTABLE)$")
      morvane_header_of(${target} name)
      target_precompile_headers(${target} REUSE_FROM morvane_precompiled_${name})
    endif()
  endforeach()
  get_property(folders DIRECTORY ${directory} PROPERTY SUBDIRECTORIES)
  foreach(folder IN LISTS folders)
    morvane_precompile_below(${folder})
  endforeach()
endfunction()

# The header that serves a target, by what it is linked with.
function(morvane_header_of target result)
  get_target_property(linked ${target} LINK_LIBRARIES)
  set(name standard)
  if("${linked}" MATCHES "GTest::")
    set(name tests)
  endif()
  if("${linked}" MATCHES "Qt6::Q(uick|ml)|morvane::(window|art|theme|components)|morvane_preview")
    set(name window)
    if("${linked}" MATCHES "GTest::")
      set(name window_tests)
    endif()
  endif()
  set(${result} ${name} PARENT_SCOPE)
endfunction()
