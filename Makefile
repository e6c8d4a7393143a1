# The two commands of the README:
#   make demo   set up, build, and run the guided tour on an embedded database
#   make test   set up, build, and run every suite: plain and under sanitizers,
#               the installed package with a consumer program, the Windows
#               server for x64 and x86 and its automation clients under Wine.
#               setup installs MinGW-w64 and Wine first; a suite that cannot
#               run fails the command.
# Documented escape hatch, for a machine that cannot run Windows code:
#   make test TELVARO_SKIP_WINDOWS=1   the Windows builds and the Wine tests
#               are left out, and the command says so.

BUILD      ?= build
ASAN_BUILD ?= build-asan
JOBS       ?= $(shell nproc 2>/dev/null || echo 2)
GENERATOR  := $(shell command -v ninja >/dev/null 2>&1 && echo "-G Ninja")
WIN64_BUILD ?= build-win64
WIN32_BUILD ?= build-win32
TELVARO_SKIP_WINDOWS ?=
# ccache hashes paths relative to the checkout, so clones elsewhere share it.
export CCACHE_BASEDIR ?= $(CURDIR)
# Looked up when a recipe runs, that is after setup has installed them.
find_wine64 = $$( (command -v wine64 || ls /usr/lib/wine/wine64) 2>/dev/null | head -n 1)

.PHONY: all setup build build-asan build-windows build-win32 demo test test-release test-asan test-windows \
        test-install check-mingw package bench bench-windows clean

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

check-mingw: setup
	@command -v x86_64-w64-mingw32-g++-posix >/dev/null 2>&1 && command -v i686-w64-mingw32-g++-posix >/dev/null 2>&1 \
	  || { echo "MinGW-w64 not found after setup: the Windows server cannot be built" >&2; exit 1; }

# telvaro.dll for x64.
build-windows: check-mingw $(WIN64_BUILD)/CMakeCache.txt
	cmake --build $(WIN64_BUILD) -j $(JOBS)

# telvaro.dll for x86, checked statically: no 32-bit Wine runs here, so its
# clients are not built.
build-win32: check-mingw $(WIN32_BUILD)/CMakeCache.txt
	cmake --build $(WIN32_BUILD) -j $(JOBS)
	python3 tests/windows/check_x86_build.py $(WIN32_BUILD)

# The x64 server runs under Wine against real automation clients.
test-windows: build-windows build-win32 build
	@wine="$(find_wine64)"; [ -n "$$wine" ] \
	  || { echo "wine64 not found after setup: the Wine tests cannot run" >&2; exit 1; }
	python3 tests/wine/run_wine_tests.py $(WIN64_BUILD) $(BUILD)/telvaro

demo: build
	$(BUILD)/telvaro demo

test-release: build
	cd $(BUILD) && ctest --output-on-failure

test-asan: build-asan
	cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure

# The library installed into a folder of the build, and a program outside
# the tree built against it with find_package and with pkg-config.
test-install: build
	rm -rf $(BUILD)/install-check
	cmake --install $(BUILD) --prefix $(CURDIR)/$(BUILD)/install-check/prefix
	tests/install/check_consumer.sh $(CURDIR)/$(BUILD)/install-check

ifeq ($(TELVARO_SKIP_WINDOWS),)
test: test-release test-asan test-install test-windows
else
test: test-release test-asan test-install
	@echo "TELVARO_SKIP_WINDOWS is set: the Windows builds and the Wine tests were left out"
endif

# A Debian package of the command line and the library, and a zip of both
# Windows servers with the type library.
package: build build-windows build-win32
	cd $(BUILD) && cpack -G DEB
	scripts/package-windows $(WIN64_BUILD) $(WIN32_BUILD) $(BUILD)

bench: build
	$(BUILD)/telvaro_bench

# The server's late binding under Wine: Invoke by DISPID against the v-table.
bench-windows: build-windows
	@wine="$(find_wine64)"; [ -n "$$wine" ] \
	  || { echo "wine64 not found after setup: the server's benchmark cannot run" >&2; exit 1; }
	python3 bench/wine/run_com_bench.py $(WIN64_BUILD)

clean:
	rm -rf $(BUILD) $(ASAN_BUILD) $(WIN64_BUILD) $(WIN32_BUILD)
