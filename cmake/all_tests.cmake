# What `make test` hands to ctest as build/all_tests/CTestTestfile.cmake: the tests of every build in one run, with one
# summary. A Windows edition that could not be built is a failing test there.
subdirs(../sanitized ../windows/x86_64 ../windows/i686)

add_test(house.format ../../tests/house/format.sh)
add_test(house.clang_tidy ../../tests/house/tidy.sh)
add_test(windows.both_bitnesses_build make -C ../.. windows)
set_tests_properties(windows.both_bitnesses_build PROPERTIES RESOURCE_LOCK testbed)

# A short run of each long trial.
add_test(trials.faults ../../trials/faults.sh ../tolvex ../faulty_system.so ../file_server.so ../faults 83)
add_test(trials.kills ../../trials/kills.sh ../tolvex ../kills 10)
add_test(trials.soak ../../trials/soak.sh ../tolvex ../soak ../soak_shop 2)
set_tests_properties(trials.faults trials.kills trials.soak PROPERTIES TIMEOUT 900)

# What make dist leaves, as customers install it.
add_test(dist.reproducible ../../tests/dist/reproducible_test.sh)
add_test(dist.installer ../../tests/dist/installer_test.sh)
add_test(dist.debian ../../tests/dist/debian_test.sh)
set_tests_properties(dist.reproducible dist.installer dist.debian PROPERTIES
                     SKIP_RETURN_CODE 77 TIMEOUT 900 RESOURCE_LOCK testbed)
