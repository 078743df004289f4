# cmake --install: library, public headers, command, and the package file that find_package(tolvex) reads.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS tolvex EXPORT tolvex_targets)
install(TARGETS tolvex_command)

# Of the program's own declarations.
set(manual ${PROJECT_BINARY_DIR}/tolvex.1)
set(completion ${PROJECT_BINARY_DIR}/tolvex.bash)
add_custom_command(OUTPUT ${manual} ${completion} DEPENDS tolvex_command VERBATIM
    COMMAND sh -c "'$<TARGET_FILE:tolvex_command>' --man > ${manual}"
    COMMAND sh -c "'$<TARGET_FILE:tolvex_command>' --completado > ${completion}")
add_custom_target(tolvex_reference ALL DEPENDS ${manual} ${completion})
install(FILES ${manual} DESTINATION ${CMAKE_INSTALL_MANDIR}/es/man1)
install(FILES ${completion} DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME tolvex)
install(DIRECTORY include/tolvex TYPE INCLUDE)
install(DIRECTORY schema/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tolvex/schema FILES_MATCHING PATTERN "*.sql")
install(DIRECTORY printing/layouts/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tolvex/layouts FILES_MATCHING PATTERN "*.rdl")
install(EXPORT tolvex_targets NAMESPACE tolvex:: FILE tolvex-config.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tolvex)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/tolvex-config-version.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/tolvex-config-version.cmake DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tolvex)
