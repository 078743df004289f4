# cmake --install: library, public headers, command, and the package file that find_package(tolvex) reads.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

install(TARGETS tolvex EXPORT tolvex_targets)
install(TARGETS tolvex_command)
install(DIRECTORY include/tolvex TYPE INCLUDE)
install(DIRECTORY schema/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tolvex/schema FILES_MATCHING PATTERN "*.sql")
install(DIRECTORY printing/layouts/ DESTINATION ${CMAKE_INSTALL_DATADIR}/tolvex/layouts FILES_MATCHING PATTERN "*.rdl")
install(EXPORT tolvex_targets NAMESPACE tolvex:: FILE tolvex-config.cmake
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tolvex)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/tolvex-config-version.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/tolvex-config-version.cmake DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/tolvex)
