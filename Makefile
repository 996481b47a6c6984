# Kelvarin: thin front over CMake. Every package the build needs comes from Debian.
PACKAGES := g++ cmake make ccache pkg-config qt6-base-dev qt6-base-dev-tools qt6-image-formats-plugins \
            libgl-dev libsqlite3-dev libgtest-dev libgmock-dev libbenchmark-dev xvfb xauth clang-format
BUILD    ?= build
JOBS     ?= $(shell nproc 2>/dev/null || echo 2)
SUDO     := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

.PHONY: all deps configure build run test bench format format-check clean

all: build

deps:
	@missing=""; for p in $(PACKAGES); do dpkg -s $$p >/dev/null 2>&1 || missing="$$missing $$p"; done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) apt-get update -qq && DEBIAN_FRONTEND=noninteractive $(SUDO) apt-get install -y -qq $$missing; \
	fi

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo

configure: deps $(BUILD)/CMakeCache.txt

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@if [ -z "$$DISPLAY" ] && [ -z "$$WAYLAND_DISPLAY" ] && [ "$$QT_QPA_PLATFORM" != offscreen ]; then \
	  echo "make run: no display found (DISPLAY and WAYLAND_DISPLAY are empty). Start Kelvarin from a desktop session, or try: xvfb-run make run" >&2; \
	  exit 1; \
	fi
	./$(BUILD)/kelvarin

test: build format-check
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: build
	./$(BUILD)/kelvarin-bench

FORMATTED = $$(git ls-files 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp' 'bench/*.h' 'fuzz/*.cpp' 'fuzz/*.h')

format:
	clang-format -i $(FORMATTED)

# Fails, naming the places, when a file does not match .clang-format (make format mends them).
format-check: deps
	clang-format --dry-run --Werror $(FORMATTED)

clean:
	rm -rf $(BUILD)
