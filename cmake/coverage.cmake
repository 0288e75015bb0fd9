# Counts which lines and branches the tests run, for scripts/coverage.
option(NV8X_COVERAGE "Count the lines and branches that run (gcov)" OFF)

if(NV8X_TESTS)  # a package's sources have no tests
  add_library(keep_counts OBJECT EXCLUDE_FROM_ALL ${PROJECT_SOURCE_DIR}/tests/support/keep_counts.cpp)
endif()
if(NV8X_COVERAGE)
  add_compile_options(--coverage)
  add_link_options(--coverage)
  # Every program of the build also keeps the counts of runs that end abruptly.
  link_libraries(keep_counts)
endif()
