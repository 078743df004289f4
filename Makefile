# make demo      sets everything up, builds the program and issues sample documents in demo/
# make test      sets everything up, builds both editions and runs every test
# make windows   builds TOLVEX.dll for 64 and 32 bits into build/windows
# make bench     measures how fast documents are issued
.PHONY: all demo test windows bench clean

windows_bitnesses := x86_64 i686

all:
	setup/native.sh
	cmake -S . -B build -G Ninja -DTOLVEX_TESTS=OFF
	cmake --build build

demo: all
	build/tolvex demo --carpeta demo

windows:
	setup/windows.sh
	setup/testbed.sh
	for bits in $(windows_bitnesses); do \
	    cmake -S . -B build/windows/$$bits -G Ninja -DCMAKE_TOOLCHAIN_FILE=cmake/mingw-$$bits.cmake && \
	    cmake --build build/windows/$$bits || exit 1; \
	done

test: windows
	setup/native.sh
	cmake -S . -B build/sanitized -G Ninja -DTOLVEX_SANITIZE=ON
	cmake --build build/sanitized
	mkdir -p build/all_tests
	echo 'subdirs(../sanitized $(windows_bitnesses:%=../windows/%))' > build/all_tests/CTestTestfile.cmake
	ctest --test-dir build/all_tests --output-on-failure --parallel 2

bench:
	setup/native.sh
	cmake -S . -B build/bench -G Ninja -DTOLVEX_TESTS=OFF -DTOLVEX_BENCH=ON
	cmake --build build/bench
	build/bench/bench/issue_bench
	build/bench/bench/two_stations

clean:
	rm -rf build demo
