# Fuzzers, for clang: cmake --preset fuzz && cmake --build build/fuzz, then for instance
# build/fuzz/flat_file_fuzz -max_total_time=60 FOLDER_WITH_FLAT_FILES
foreach(target IN ITEMS conversion_fuzz expression_fuzz flat_file_fuzz font_fuzz layout_fuzz picture_fuzz report_fuzz
                       rewriter_fuzz seal_text_fuzz)
    add_executable(${target} tests/fuzz/${target}.cpp)
    target_include_directories(${target} PRIVATE tests)
    target_link_libraries(${target} PRIVATE tolvex_rooms)
    target_link_options(${target} PRIVATE -fsanitize=fuzzer)
    set_target_properties(${target} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
endforeach()
target_sources(report_fuzz PRIVATE tests/support/schema_change.cpp)
