# The two commands of the README:
#   make demo   set up, build, and run the guided tour on an embedded database
#   make test   set up, build, and run every test (plain and under sanitizers;
#               the Windows server for x64 and x86 when MinGW-w64 is present,
#               and its automation clients under Wine when wine64 is present)

BUILD      ?= build
ASAN_BUILD ?= build-asan
JOBS       ?= $(shell nproc 2>/dev/null || echo 2)
GENERATOR  := $(shell command -v ninja >/dev/null 2>&1 && echo "-G Ninja")
WIN64_BUILD ?= build-win64
WIN32_BUILD ?= build-win32
MINGW      := $(shell command -v x86_64-w64-mingw32-g++-posix >/dev/null 2>&1 && echo yes)
WINE64     := $(shell (command -v wine64 || ls /usr/lib/wine/wine64) 2>/dev/null | head -n 1)

.PHONY: all setup build build-asan build-windows build-win32 demo test test-release test-asan test-windows bench bench-windows clean

all: build

setup:
	@scripts/setup

$(BUILD)/CMakeCache.txt: | setup
	cmake -S . -B $(BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=Release

$(ASAN_BUILD)/CMakeCache.txt: | setup
	cmake -S . -B $(ASAN_BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=Debug -DTELVARO_SANITIZE=ON -DTELVARO_BENCH=OFF

build: setup $(BUILD)/CMakeCache.txt
	cmake --build $(BUILD) -j $(JOBS)

build-asan: setup $(ASAN_BUILD)/CMakeCache.txt
	cmake --build $(ASAN_BUILD) -j $(JOBS)

$(WIN64_BUILD)/CMakeCache.txt: | setup
	cmake -S . -B $(WIN64_BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=Release \
	  -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-mingw-x86_64.cmake

$(WIN32_BUILD)/CMakeCache.txt: | setup
	cmake -S . -B $(WIN32_BUILD) $(GENERATOR) -DCMAKE_BUILD_TYPE=Release -DTELVARO_TESTS=OFF -DTELVARO_BENCH=OFF \
	  -DCMAKE_TOOLCHAIN_FILE=cmake/toolchain-mingw-i686.cmake

# telvaro.dll for x64.
build-windows: setup $(WIN64_BUILD)/CMakeCache.txt
	cmake --build $(WIN64_BUILD) -j $(JOBS)

# telvaro.dll for x86, checked statically: no 32-bit Wine runs here, so its
# clients are not built.
build-win32: setup $(WIN32_BUILD)/CMakeCache.txt
	cmake --build $(WIN32_BUILD) -j $(JOBS)
	python3 tests/windows/check_x86_build.py $(WIN32_BUILD)

# The x64 server runs under Wine against real automation clients.
test-windows: build-windows build-win32 build
ifneq ($(WINE64),)
	python3 tests/wine/run_wine_tests.py $(WIN64_BUILD) $(BUILD)/telvaro
else
	@echo "wine64 not found: the Wine tests were not run"
endif

demo: build
	$(BUILD)/telvaro demo

test-release: build
	cd $(BUILD) && ctest --output-on-failure

test-asan: build-asan
	cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure

ifeq ($(MINGW),yes)
test: test-release test-asan test-windows
else
test: test-release test-asan
	@echo "MinGW-w64 not found: the Windows server was not built"
endif

bench: build
	$(BUILD)/telvaro_bench

# The server's late binding under Wine: Invoke by DISPID against the v-table.
bench-windows: build-windows
ifneq ($(WINE64),)
	python3 bench/wine/run_com_bench.py $(WIN64_BUILD)
else
	@echo "wine64 not found: the server's benchmark was not run"
endif

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(WIN64_BUILD) $(WIN32_BUILD)
