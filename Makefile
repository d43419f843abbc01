# vzplayer: `make run` plays the bundled demo, `make test` runs every test.
BUILD        ?= build
BUILD_ASAN   ?= build-asan
BUILD_FUZZ   ?= build-fuzz
JOBS         ?= $(shell nproc)
CMAKE_FLAGS  ?=

.PHONY: all build run test test-sanitize bench fuzz docs assets clean deps deps-test

all: build

deps:
	@tools/install-deps.sh build

deps-test:
	@tools/install-deps.sh test

build: deps
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(BUILD) -j $(JOBS)

# Plays the bundled demo in a window; without a display it plays it headless and
# writes a few frames as PNG files.
run: build
	@tools/run-sample.sh $(BUILD)/vzplayer

test: deps-test build
	@ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

test-sanitize: deps-test
	@cmake -S . -B $(BUILD_ASAN) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVZ_SANITIZE=ON -DVZ_BENCH=OFF >/dev/null
	@cmake --build $(BUILD_ASAN) -j $(JOBS)
	@ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1 \
	  ctest --test-dir $(BUILD_ASAN) --output-on-failure -j $(JOBS)

bench: build
	@tools/install-deps.sh bench
	@cmake -S . -B $(BUILD) -DVZ_BENCH=ON >/dev/null
	@cmake --build $(BUILD) -j $(JOBS)
	@tools/run-benchmarks.sh $(BUILD)

fuzz:
	@tools/install-deps.sh fuzz
	@CC=clang CXX=clang++ cmake -S . -B $(BUILD_FUZZ) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DVZ_FUZZ=ON -DVZ_TESTS=OFF -DVZ_BENCH=OFF >/dev/null
	@cmake --build $(BUILD_FUZZ) -j $(JOBS)
	@echo "Fuzz targets are in $(BUILD_FUZZ)/fuzz/"

docs: build
	@cmake --build $(BUILD) --target docs

# Regenerates the bundled demo's pictures, key files and music in demos/sample.
assets: deps
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release $(CMAKE_FLAGS) >/dev/null
	@cmake --build $(BUILD) -j $(JOBS) --target make_sample_assets
	@$(BUILD)/tools/make_sample_assets demos/sample

clean:
	rm -rf $(BUILD) $(BUILD_ASAN) $(BUILD_FUZZ)
