# The everyday commands. `make demo` and `make check` do everything on a fresh machine.

.PHONY: all packages build demo check unit asan office lint format bench screenshots clean

CTEST := ctest --output-on-failure

all: build

packages:
	@tools/install-packages.sh

build: packages
	@cmake --preset release >/dev/null
	@cmake --build --preset release

demo: build
	@tools/demo.sh

# The sanitizers first: what they find explains the rest.
check: asan build lint
	$(CTEST) --test-dir build/release -j2 -L unit
	$(CTEST) --test-dir build/release -j2 -L libreoffice

asan: packages
	@cmake --preset asan >/dev/null
	@cmake --build --preset asan
	$(CTEST) --test-dir build/asan -j2

unit: build
	$(CTEST) --test-dir build/release -j2 -L unit

office: build
	$(CTEST) --test-dir build/release -j2 -L libreoffice

lint: build
	@tools/lint.sh

format:
	@tools/sources.sh | xargs clang-format -i

bench: build
	@/usr/bin/python3 bench/run.py --json build/bench.json

# The pictures of docs/manual.md.
screenshots: build
	@/usr/bin/python3 tools/screenshots.py

clean:
	rm -rf build
