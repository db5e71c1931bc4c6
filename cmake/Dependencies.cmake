# What comes from packages. Nothing is vendored.

find_package(Threads REQUIRED)
find_package(PkgConfig REQUIRED)
find_package(ICU 70 REQUIRED COMPONENTS uc i18n)
find_package(nlohmann_json 3.11 REQUIRED)
pkg_check_modules(LIBPLIST REQUIRED IMPORTED_TARGET libplist-2.0)
if(MORVANE_TESTS)
  find_package(GTest REQUIRED)
  include(GoogleTest)
endif()
if(MORVANE_BENCHMARKS)
  find_package(benchmark REQUIRED)
endif()

# The window's toolkit. The logic never links it; the thread sanitizer's build leaves it out.
option(MORVANE_WINDOW "build the window and what of the desktop needs the toolkit" ON)
if(MORVANE_WINDOW)
  find_package(Qt6 6.4 REQUIRED
    COMPONENTS Core Gui Qml Quick QuickControls2 Svg Widgets Network DBus Test)
  pkg_check_modules(SODIUM REQUIRED IMPORTED_TARGET libsodium)
  # Debug builds interpret QML: compiling it ahead of time costs minutes and finds nothing more.
  if(CMAKE_BUILD_TYPE STREQUAL "Debug")
    set(QT_QML_NO_CACHEGEN ON)
  endif()
  set(QT_QML_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml)
endif()
