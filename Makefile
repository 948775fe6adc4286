# Quillmere — the three everyday commands.
#   make run    install what is missing, build, start the program
#   make test   install what is missing, build, run every test headless
#   make bench  build and run the benchmarks
#   make manual-shots  take the user manual's pictures from the program (build/Help/shots)
BUILD   ?= build
JOBS    ?= $(shell nproc 2>/dev/null || echo 2)
PACKAGES = cmake g++ make clang-format ccache qt6-base-dev qt6-charts-dev libgl-dev libbenchmark-dev xvfb xauth poppler-utils hledger libofx-dev pkg-config

.PHONY: all deps configure build run test bench manual-shots clean

all: build

deps:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'install ok installed' || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  if [ "$$(id -u)" = 0 ]; then \
	    echo "Installing:$$missing"; \
	    apt-get update -qq && DEBIAN_FRONTEND=noninteractive apt-get install -y -qq $$missing; \
	  else \
	    echo "Some packages are missing. Run this once, then try again:"; \
	    echo "  sudo apt-get install -y$$missing"; exit 1; \
	  fi; \
	fi

$(BUILD)/CMakeCache.txt:
	cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release

configure: deps $(BUILD)/CMakeCache.txt

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@test -d $(BUILD)/Help/shots || cmake --build $(BUILD) --target manual_shots || true
	$(BUILD)/quillmere $(ARGS)

test: build
	cd $(BUILD) && QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

bench: build
	$(BUILD)/bench/quillmere_bench

manual-shots: build
	cmake --build $(BUILD) --target manual_shots

clean:
	rm -rf $(BUILD)
