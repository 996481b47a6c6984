# Kelvarin: thin front over CMake. Every package the build needs comes from Debian.
PACKAGES := g++ cmake make ccache pkg-config qt6-base-dev qt6-base-dev-tools qt6-image-formats-plugins \
            libgl-dev qt6-svg-dev libsqlite3-dev mdbtools-dev libgcrypt20-dev libgtest-dev libgmock-dev \
            libbenchmark-dev xvfb xauth clang-format desktop-file-utils chromium libxcb1-dev \
            qtkeychain-qt6-dev radicale
BUILD    ?= build
PREFIX   ?= /usr/local
JOBS     ?= $(shell nproc 2>/dev/null || echo 2)
SUDO     := $(shell [ "$$(id -u)" = 0 ] || echo sudo)

.PHONY: all deps configure build run test bench fuzz format format-check clean install

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

# The program, its menu entry, file type, icons, tips and help pages; DESTDIR stages the tree.
install: build
	DESTDIR="$(DESTDIR)" cmake --install $(BUILD) --prefix $(PREFIX)

test: build format-check
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: build
	./$(BUILD)/kelvarin-bench

# Fuzzing of the data library and the exchange readers: clang's libFuzzer with AddressSanitizer
# and UndefinedBehaviorSanitizer, in a build folder of its own. Each target runs FUZZ_RUNS inputs; any crash or sanitizer report fails.
FUZZ_PACKAGES := clang libclang-rt-dev llvm cmake make pkg-config qt6-base-dev libsqlite3-dev
FUZZ_BUILD    ?= build-fuzz
FUZZ_RUNS     ?= 1000000
FUZZ_TARGETS  := translator like helpers recordset gif vcard csv davxml

fuzz:
	@missing=""; for p in $(FUZZ_PACKAGES); do dpkg -s $$p >/dev/null 2>&1 || missing="$$missing $$p"; done; \
	if [ -n "$$missing" ]; then \
	  echo "Installing:$$missing"; \
	  $(SUDO) apt-get update -qq && DEBIAN_FRONTEND=noninteractive $(SUDO) apt-get install -y -qq $$missing; \
	fi
	@[ -f $(FUZZ_BUILD)/CMakeCache.txt ] || cmake -S fuzz -B $(FUZZ_BUILD) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DCMAKE_CXX_COMPILER=clang++
	cmake --build $(FUZZ_BUILD) -j $(JOBS)
	@for t in $(FUZZ_TARGETS); do \
	  mkdir -p $(FUZZ_BUILD)/corpus/$$t; \
	  dict=""; [ -f fuzz/$$t.dict ] && dict="-dict=fuzz/$$t.dict"; \
	  flags=$$(cat fuzz/$$t.flags 2>/dev/null); \
	  echo "== fuzz_$$t: $(FUZZ_RUNS) runs"; \
	  start=$$(date +%s%N); \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	    ./$(FUZZ_BUILD)/fuzz_$$t -runs=$(FUZZ_RUNS) -timeout=10 -print_final_stats=1 -artifact_prefix=$(FUZZ_BUILD)/ $$dict $$flags \
	    $(FUZZ_BUILD)/corpus/$$t $$( [ -d fuzz/seeds/$$t ] && echo fuzz/seeds/$$t ) \
	    > $(FUZZ_BUILD)/fuzz_$$t.log 2>&1 || { tail -n 60 $(FUZZ_BUILD)/fuzz_$$t.log; echo "fuzz_$$t failed: see $(FUZZ_BUILD)/fuzz_$$t.log"; exit 1; }; \
	  end=$$(date +%s%N); \
	  grep -E "^(Done|stat::number_of_executed_units|stat::average_exec_per_sec)" $(FUZZ_BUILD)/fuzz_$$t.log; \
	  echo "fuzz_$$t: $$(( (end - start) / 1000000 )) ms"; \
	done

FORMATTED = $$(git ls-files 'src/*.cpp' 'src/*.h' 'tests/*.cpp' 'tests/*.h' 'bench/*.cpp' 'bench/*.h' 'fuzz/*.cpp' 'fuzz/*.h' 'tools/*.cpp')

format:
	clang-format -i $(FORMATTED)

# Fails, naming the places, when a file does not match .clang-format (make format mends them).
format-check: deps
	clang-format --dry-run --Werror $(FORMATTED)

clean:
	rm -rf $(BUILD)
