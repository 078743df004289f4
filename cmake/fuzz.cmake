# The targets of trials/fuzz/. With clang's libFuzzer (cmake --preset fuzz) they make inputs by chance; in the other
# builds the same targets replay their seeds, as tests.
set(fuzz_folder ${PROJECT_SOURCE_DIR}/trials/fuzz)

# NAME SOURCE…: the program NAME_fuzz.
function(add_fuzz_program name)
    add_executable(${name}_fuzz ${fuzz_folder}/${name}.cpp ${ARGN})
    target_include_directories(${name}_fuzz PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name}_fuzz PRIVATE tolvex_archive)
    set_target_properties(${name}_fuzz PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/fuzz)
    if(TOLVEX_FUZZ)
        target_link_options(${name}_fuzz PRIVATE -fsanitize=fuzzer)
    else()
        target_sources(${name}_fuzz PRIVATE ${fuzz_folder}/replay.cpp)
    endif()
endfunction()

# The same in the native edition.
function(add_fuzz_target name)
    add_fuzz_program(${name} ${ARGN})
    if(TOLVEX_TESTS)
        add_test(NAME fuzz.${name}.seeds COMMAND ${name}_fuzz ${fuzz_folder}/seeds/${name})
        set_tests_properties(fuzz.${name}.seeds PROPERTIES TIMEOUT 120)
    endif()
endfunction()
