# For scripts/lint alone: the main functions of all programs in one source, and all fuzz targets in
# another. clang-tidy then looks at the standard library once for all of them.
function(join_for_lint target entry)  # the function that each of the sources defines; sources
  add_library(${target} OBJECT EXCLUDE_FROM_ALL ${ARGN})
  set_target_properties(${target} PROPERTIES UNITY_BUILD_UNIQUE_ID ${entry})
endfunction()

file(GLOB sources ${PROJECT_SOURCE_DIR}/src/*/main.cpp)
join_for_lint(joined_programs main ${sources})
target_link_libraries(joined_programs PRIVATE nv8x_publish)

set(fuzz ${PROJECT_SOURCE_DIR}/tests/fuzz)
file(GLOB sources ${fuzz}/*_target.cpp)
join_for_lint(joined_fuzz_targets run_target ${sources}
  ${fuzz}/document_checks.cpp ${fuzz}/scratch_folder.cpp ${fuzz}/whole_run_input.cpp)
target_include_directories(joined_fuzz_targets PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(joined_fuzz_targets PRIVATE nv8x_publish nv8x_import nv8x_csv PkgConfig::LIBXML2)
target_compile_definitions(joined_fuzz_targets PRIVATE NV8X_EXAMPLE_CLIP="")

join_for_lint(joined_fuzz_entries main ${fuzz}/replay.cpp ${fuzz}/libfuzzer_entry.cpp ${fuzz}/one_process.cpp)
target_include_directories(joined_fuzz_entries PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(joined_fuzz_entries PRIVATE nv8x_metadata)
