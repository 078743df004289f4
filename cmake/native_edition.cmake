# The native edition: the library for C++ hosts, the command-line program, tests and benchmarks.
find_package(CLI11 REQUIRED)
find_package(fmt REQUIRED)
pkg_check_modules(TOMLPLUSPLUS REQUIRED IMPORTED_TARGET tomlplusplus)

add_library(tolvex SHARED $<TARGET_OBJECTS:tolvex_rooms>)
add_library(tolvex::tolvex ALIAS tolvex)
target_link_libraries(tolvex PRIVATE ${TOLVEX_LIBRARIES})
target_include_directories(tolvex INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:include>)
target_compile_features(tolvex INTERFACE cxx_std_20)
set_target_properties(tolvex PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})

file(GLOB console_sources CONFIGURE_DEPENDS console/*.cpp console/*/*.cpp)
add_executable(tolvex_command ${console_sources})
set_target_properties(tolvex_command PROPERTIES OUTPUT_NAME tolvex RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
target_link_libraries(tolvex_command PRIVATE tolvex_rooms CLI11::CLI11 fmt::fmt PkgConfig::TOMLPLUSPLUS)

include(cmake/install.cmake)

if(TOLVEX_TESTS)
    enable_testing()
    include(cmake/tests.cmake)
endif()
if(TOLVEX_FUZZ)
    include(cmake/fuzz.cmake)
endif()
if(TOLVEX_BENCH)
    add_subdirectory(bench)
endif()
