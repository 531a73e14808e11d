# SPDX-License-Identifier: MPL-2.0
# The everyday commands. `make demo` and `make check` install what they need, on a fresh machine all of
# it; `make packages` and `make check-packages` do only that; nothing else installs anything.

.PHONY: all packages check-packages build demo check unit long asan fuzz office lint format bench \
  screenshots newer windows-packages windows windows-behind word word32 package \
  reproducible install clean

CTEST := ctest --output-on-failure

# $(call configure,PRESET,PACKAGES,COMMAND): configures with a preset. Where that fails because
# packages are missing, they are named, and the command that installs them.
configure = cmake --preset $(1) >/dev/null || { \
  missing=$$(tools/install-packages.sh --missing $(2)); \
  [ -z "$$missing" ] || echo "$$missing; \`$(3)\` installs them" >&2; exit 1; }

# The program and the extension. A build that was configured with tests stays so.
all:
	@[ -e build/release/build.ninja ] || $(call configure,product,build,make packages)
	@cmake --build --preset product

packages:
	@tools/install-packages.sh build

check-packages:
	@tools/install-packages.sh check windows

# The same with all tests and measurements.
build:
	@$(call configure,release,check,make check-packages)
	@cmake --build --preset release

demo:
	@tools/install-packages.sh demo
	@$(MAKE) --no-print-directory all
	@tools/demo.sh

# The sanitizers first: what they find explains the rest. The tests in the office wait a good part
# of their time, in which the build for Windows goes on.
check: check-packages
	@$(MAKE) --no-print-directory asan
	@$(MAKE) --no-print-directory build
	$(CTEST) --test-dir build/release -j2 -L 'unit|lint'
	@$(MAKE) --no-print-directory -j2 office windows-behind

asan:
	@$(call configure,asan,check,make check-packages)
	@cmake --build --preset asan
	$(CTEST) --test-dir build/asan -j2 -LE long

# Of these, only the random inputs for the database engine, the pictures and the documents, for
# HUEBRUSH_FUZZ_SECONDS each.
fuzz:
	@$(call configure,asan,check,make check-packages)
	@cmake --build --preset asan --target damage_fuzz edit_fuzz \
	  picture_fuzz document_fuzz
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
	@$(call configure,windows-x86_64,windows,make windows-packages)
	@cmake --build --preset windows-x86_64 --target word_bench word_window_bench
	@/usr/bin/python3 bench/run.py --json build/bench.json

# The pictures of docs/manual.md and docs/manual.cs.md.
screenshots: all
	@$(call configure,windows-x86_64,windows,make windows-packages)
	@cmake --build --preset windows-x86_64 --target word_testhost huebrush_word_dll huebrush_word_data
	@$(word_data)
	@/usr/bin/python3 tools/screenshots.py

# The build and the tests in a Debian 13 of its own, with the newer LibreOffice there, and what is
# built here tried there. As root.
newer: build
	@tools/newer.sh

windows-packages:
	@tools/install-packages.sh windows

# The logic, compiled for Windows: for 32 bits without its tests, and for 64 with them, which run under
# Wine.
windows:
	@$(call configure,windows-i686,windows,make windows-packages)
	@$(gently) cmake --build --preset windows-i686
	@$(call configure,windows-x86_64,windows,make windows-packages)
	@$(gently) cmake --build --preset windows-x86_64
	$(CTEST) --test-dir build/windows-x86_64 -j2
	@awk '/PASSED/ { tests += $$4 } END { print tests " tests passed under Wine" }' \
	  build/windows-x86_64/Testing/Temporary/LastTest.log

# The same behind other work, for which its compilers make room: tests with a screen have users that
# wait. What it prints comes at its end, in full only where it failed.
windows-behind:
	@mkdir -p build
	@$(MAKE) --no-print-directory windows gently='nice -n 10' >build/windows.log 2>&1 || \
	  { cat build/windows.log; exit 1; }
	@tail -n 1 build/windows.log

# The Word add-in for 32 and 64 bits, as a package, with a list of what its files need and offer.
wine := tests/windows/wine.sh $(CURDIR)/build/windows-x86_64/wine
# Makes the first palettes, beside the DLL: always the same ones of the same sources.
word_data = $(wine) start && \
  SOURCE_DATE_EPOCH="$${SOURCE_DATE_EPOCH-$$(git log -1 --format=%ct 2>/dev/null)}" \
  $(wine) run build/windows-x86_64/bin/huebrush_word_data.exe; \
  result=$$?; $(wine) end; exit $$result
word:
	@$(call configure,windows-i686,windows,make windows-packages)
	@cmake --build --preset windows-i686 --target huebrush_word_dll
	@$(call configure,windows-x86_64,windows,make windows-packages)
	@cmake --build --preset windows-x86_64 --target huebrush_word_dll huebrush_word_data
	@$(word_data)
	@/usr/bin/python3 src/ports/word/package/make_package.py build/windows-i686 \
	  build/windows-x86_64 build/windows-x86_64/bin/Data/fill.mdb LICENSE build/huebrush-word.zip

# All that users install, in build/packages: for Debian, LibreOffice anywhere, and Word.
package:
	@tools/install-packages.sh package windows
	@$(MAKE) --no-print-directory all
	@$(MAKE) --no-print-directory word
	@tools/package.sh

# Builds the packages of the last commit twice, in different folders, and compares them.
reproducible:
	@tools/install-packages.sh package windows
	@tools/reproducible.sh

# The tests of all that is built for 32 bits, in a 32-bit Debian of its own. As root.
word32:
	@$(call configure,windows-i686,windows,make windows-packages)
	@cmake --build --preset windows-i686 --target all
	@$(call configure,windows-x86_64,windows,make windows-packages)
	@cmake --build --preset windows-x86_64 --target huebrush_word_dll
	@tools/word32.sh

# Below PREFIX, or the folder that the build was configured for (/usr/local).
install: all
	@cmake --install build/release $(if $(PREFIX),--prefix $(PREFIX))

clean:
	rm -rf build
