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
