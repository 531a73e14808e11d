# The everyday commands. `make demo` and `make check` do everything on a fresh machine.

.PHONY: all packages build demo check unit long asan fuzz office lint format bench screenshots newer clean

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
check: asan build
	$(CTEST) --test-dir build/release -j2 -L 'unit|lint'
	$(CTEST) --test-dir build/release -j2 -L libreoffice

asan: packages
	@cmake --preset asan >/dev/null
	@cmake --build --preset asan
	$(CTEST) --test-dir build/asan -j2 -LE long

# Of these, only the random inputs for the database engine, for HUEBRUSH_FUZZ_SECONDS each.
fuzz: packages
	@cmake --preset asan >/dev/null
	@cmake --build --preset asan --target damage_fuzz edit_fuzz
	$(CTEST) --test-dir build/asan -L fuzz

unit: build
	$(CTEST) --test-dir build/release -j2 -L unit

# The tests that do only a part of their work in `make check`, with all of it.
long: build
	$(CTEST) --test-dir build/release -j2 -L long --verbose

office: build
	$(CTEST) --test-dir build/release -j2 -L libreoffice

lint: build
	@tools/lint.sh

format:
	@tools/sources.sh | xargs clang-format-14 -i

bench: build
	@/usr/bin/python3 bench/run.py --json build/bench.json

# The pictures of docs/manual.md.
screenshots: build
	@/usr/bin/python3 tools/screenshots.py

# The build and the tests in a Debian 13 of its own, with the newer LibreOffice there, and what is
# built here tried there. As root.
newer: build
	@tools/newer.sh

clean:
	rm -rf build
