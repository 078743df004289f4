# make demo         sets everything up, builds the program and issues sample documents in demo/
# make test         sets everything up, builds both editions, runs every test and what make check looks at
# make test-native  builds and tests the native edition alone: without Wine, and without root once set up
# make check        looks over the sources: layout, clang-tidy, what each room includes; make format lays them out
# make windows      builds TOLVEX.dll for 64 and 32 bits into build/windows
# make dist         makes what a customer installs, into build/dist: for Windows an installer and a zip, for Linux a
#                   Debian package and a tar file
# make faults       does every operation with each of its calls going wrong in turn, and looks at what is left: an hour and
#                   a half; STEP=20 is every twentieth call
# make kills        kills stations in the middle of issuing, a thousand times, and looks at what is left
# make soak         20,000 documents, 10,000 certificates, 1,000 PDF files and forms in one process: memory stays flat
# make soak-windows the same from a Windows host, with 2,000 documents; PERCENT=5 with either is a twentieth of them
# make fuzz         inputs made by chance for what reads other people's texts and bytes, SECONDS_EACH (60) a target
# make bench        measures how fast documents are issued, printed and verified; make bench-windows the same from Windows hosts
.PHONY: all demo test test-native sanitized check format windows dist trials faults kills soak soak-windows fuzz bench bench-windows clean

windows_bitnesses := x86_64 i686
run_tests := ctest --output-on-failure --parallel 2 --test-dir

all:
	setup/native.sh
	cmake --preset release
	cmake --build build

demo: all
	build/tolvex demo --carpeta demo

sanitized:
	setup/native.sh
	cmake --preset sanitized
	cmake --build build/sanitized

test-native: sanitized
	$(run_tests) build/sanitized

# What cannot be set up or built besides the native edition keeps no test from running: those that lack it say so.
test: sanitized
	-setup/check.sh
	-setup/testbed.sh
	-$(MAKE) windows
	-$(MAKE) dist
	-$(MAKE) trials
	mkdir -p build/all_tests
	cp cmake/all_tests.cmake build/all_tests/CTestTestfile.cmake
	$(run_tests) build/all_tests

check:
	setup/native.sh
	setup/check.sh
	tests/house/rooms.sh
	tests/house/format.sh
	tests/house/tidy.sh

format:
	setup/check.sh
	clang-format-14 -i $$(tests/house/sources.sh)

windows:
	setup/windows.sh
	for bits in $(windows_bitnesses); do \
	    cmake --preset windows-$$bits && cmake --build build/windows/$$bits || exit 1; \
	done

dist: all windows
	dist/make.sh

# What the long trials need besides the program.
trials: all
	cmake --build build --target faulty_system file_server soak

faults: trials
	trials/faults.sh build/tolvex build/faulty_system.so build/file_server.so build/faults $(STEP)

kills: all
	trials/kills.sh build/tolvex build/kills 1000

soak: trials
	trials/soak.sh build/tolvex build/soak build/soak_shop $(PERCENT)

soak-windows: all windows
	setup/testbed.sh
	trials/windows/soak.sh 64 build/tolvex build/windows/x86_64 $(PERCENT)
	trials/windows/soak.sh 32 build/tolvex build/windows/i686 $(PERCENT)

# The conversion of arguments takes part where the test bed has been set up.
fuzz: SECONDS_EACH ?= 60
fuzz:
	setup/native.sh
	setup/fuzz.sh
	cmake --preset fuzz
	cmake --build build/fuzz
	[ ! -e build/testbed ] || $(MAKE) windows
	trials/fuzz.sh build/fuzz $(SECONDS_EACH)

bench:
	setup/native.sh
	cmake --preset bench
	cmake --build build/bench
	bench/table.sh

bench-windows: all windows
	setup/testbed.sh
	for bits in $(windows_bitnesses); do \
	    cmake --preset windows-$$bits -DTOLVEX_BENCH=ON && \
	    cmake --build build/windows/$$bits --target calls_bench || exit 1; \
	done
	bench/windows/run.sh

clean:
	rm -rf build demo
