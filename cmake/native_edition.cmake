# The native edition: the library for C++ hosts, tests and benchmarks.
add_library(tolvex SHARED $<TARGET_OBJECTS:tolvex_rooms>)
add_library(tolvex::tolvex ALIAS tolvex)
target_link_libraries(tolvex PRIVATE ${TOLVEX_LIBRARIES})
target_include_directories(tolvex INTERFACE
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:include>)
target_compile_features(tolvex INTERFACE cxx_std_20)
set_target_properties(tolvex PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})

if(TOLVEX_INSTALL)
    include(cmake/install.cmake)
endif()
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

# Built when it is asked for (make soak).
add_executable(soak EXCLUDE_FROM_ALL trials/soak.cpp)
target_link_libraries(soak PRIVATE tolvex_rooms fmt::fmt)
