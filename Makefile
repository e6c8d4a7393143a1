# The two commands of the README:
#   make demo   set up, build, and run the guided tour on an embedded database
#   make test   set up, build, and run every test (plain and under sanitizers)

BUILD      ?= build
ASAN_BUILD ?= build-asan
JOBS       ?= $(shell nproc 2>/dev/null || echo 2)
GENERATOR  := $(shell command -v ninja >/dev/null 2>&1 && echo "-G Ninja")

.PHONY: all setup build build-asan demo test test-release test-asan bench clean

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

demo: build
	$(BUILD)/telvaro demo

test-release: build
	cd $(BUILD) && ctest --output-on-failure

test-asan: build-asan
	cd $(ASAN_BUILD) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 ctest --output-on-failure

test: test-release test-asan

bench: build
	$(BUILD)/telvaro_bench

clean:
	rm -rf $(BUILD) $(ASAN_BUILD)
