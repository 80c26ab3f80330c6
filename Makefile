# Morvane: the two everyday commands are `make run` and `make test`.
BUILD      ?= build
ASAN_BUILD ?= build-asan
JOBS       ?= $(shell nproc)
CMAKE_ARGS ?=

.PHONY: deps build run test test-plain test-asan bench format check-format clean

deps:
	bash scripts/install-deps.sh

build: deps
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo $(CMAKE_ARGS)
	cmake --build $(BUILD) -j $(JOBS)

# Starts the desktop program; without a display it runs inside a virtual X server.
run: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then ./$(BUILD)/shell/morvane; \
	else echo "No display found: starting Morvane under xvfb-run"; xvfb-run -a ./$(BUILD)/shell/morvane; fi

# Every test: the warnings-as-errors build, then the sanitizer build.
test: deps check-format test-plain test-asan

test-plain:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DMORVANE_WERROR=ON $(CMAKE_ARGS)
	cmake --build $(BUILD) -j $(JOBS)
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

test-asan:
	cmake -S . -B $(ASAN_BUILD) -DCMAKE_BUILD_TYPE=Debug -DMORVANE_WERROR=ON -DMORVANE_SANITIZE=ON -DMORVANE_BUILD_BENCHMARKS=OFF $(CMAKE_ARGS)
	cmake --build $(ASAN_BUILD) -j $(JOBS)
	cd $(ASAN_BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: build
	bash bench/run.sh $(BUILD)

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

check-format:
	git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

clean:
	rm -rf $(BUILD) $(ASAN_BUILD)
