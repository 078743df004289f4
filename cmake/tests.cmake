# All portable tests are one program; ctest runs each test on its own.
find_package(GTest REQUIRED)
include(GoogleTest)

file(GLOB test_sources CONFIGURE_DEPENDS tests/*.cpp tests/*/*_test.cpp tests/support/*.cpp developer_console/*.cpp)
add_executable(tolvex_tests ${test_sources} console/csv.cpp console/json.cpp)
target_include_directories(tolvex_tests PRIVATE tests)
target_link_libraries(tolvex_tests PRIVATE tolvex_rooms GTest::gmock GTest::gtest_main)
target_compile_definitions(tolvex_tests PRIVATE TOLVEX_SOURCE_DIR="${PROJECT_SOURCE_DIR}"
                                                TOLVEX_COMMAND="$<TARGET_FILE:tolvex_command>")
add_dependencies(tolvex_tests tolvex_command)
include(cmake/keys_of_openssl.cmake)
add_keys_of_openssl(tolvex_tests)
# Which tests there are depends on the databases that the environment names, so they are listed when they are run. Those
# on a shared server take turns.
set(on_a_server "*/sqlServer:*/odbcNamed")
gtest_discover_tests(tolvex_tests DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60
                     TEST_FILTER "*:-SqlServer.*:${on_a_server}" PROPERTIES TIMEOUT 300)
gtest_discover_tests(tolvex_tests DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 60 TEST_FILTER "${on_a_server}"
                     PROPERTIES TIMEOUT 300 RESOURCE_LOCK server)
# The issuing life on a SQL Server is one test, so that one line says when it did not run.
add_test(NAME SqlServer_life_on_TOLVEX_PRUEBA_SQLSERVER COMMAND tolvex_tests --gtest_filter=SqlServer.*)
set_tests_properties(SqlServer_life_on_TOLVEX_PRUEBA_SQLSERVER PROPERTIES
                     TIMEOUT 900 RESOURCE_LOCK server SKIP_REGULAR_EXPRESSION "not run: TOLVEX_PRUEBA_SQLSERVER names no")

# What the documents show.
add_test(NAME docs.orders_and_code_are_so COMMAND ${PROJECT_SOURCE_DIR}/tests/docs/docs_test.sh
         $<TARGET_FILE:tolvex_command> ${PROJECT_BINARY_DIR}/docs_test)

# A host outside this build: examples/nativo against the installed package.
add_test(NAME ExampleHost.builds_against_the_installed_package_and_issues
    COMMAND ${CMAKE_COMMAND} -DBUILD=${PROJECT_BINARY_DIR} -DSOURCE=${PROJECT_SOURCE_DIR}/examples/nativo
            -DWORK=${PROJECT_BINARY_DIR}/example_host -DSANITIZE=${TOLVEX_SANITIZE}
            -P ${PROJECT_SOURCE_DIR}/tests/example_host.cmake)
set_tests_properties(ExampleHost.builds_against_the_installed_package_and_issues PROPERTIES TIMEOUT 300)

add_test(NAME house.rooms COMMAND ${PROJECT_SOURCE_DIR}/tests/house/rooms.sh)
