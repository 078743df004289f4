# TARGET: tests that see keys, and what the openssl program of this machine seals with them.
function(add_keys_of_openssl target)
    set(script ${PROJECT_SOURCE_DIR}/tests/support/keys_of_openssl.sh)
    set(header ${CMAKE_CURRENT_BINARY_DIR}/made/made_keys_of_openssl.hpp)
    file(MAKE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR}/made)
    add_custom_command(OUTPUT ${header} COMMAND ${script} ${header} DEPENDS ${script} VERBATIM)
    target_sources(${target} PRIVATE ${header})
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/made)
endfunction()
