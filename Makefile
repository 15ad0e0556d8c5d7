# SPDX-License-Identifier: GPL-3.0-or-later

# What people do with the program. How it is built stands in CMakeLists.txt and CMakePresets.json.

.PHONY: run install dist deb test test-on check demo gallery help-pictures bench soak monkey fuzz mutants format tidy clean

# The programs of the release and development builds. Both folders keep the settings of whoever ran them.
RELEASE := build/release
DEV := build/dev

define build_release
	./setup
	cmake --preset release
	cmake --build --preset release
endef

run:
	@if [ -z "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	  echo "make run: there is no display here (neither DISPLAY nor WAYLAND_DISPLAY is set)."; \
	  echo "Start it from a desktop session, or on a virtual display: xvfb-run make run"; \
	  echo "(xvfb-run comes with: apt-get install xvfb xauth)"; \
	  exit 1; \
	fi
	$(build_release)
	$(RELEASE)/bin/brindlemark

# make install PREFIX=<folder>: over an installed program, it keeps the settings.
install: export FOLDER = $(patsubst ~/%,$(HOME)/%,$(or $(PREFIX),~/Brindlemark))
install:
	@package/usable-folder "$$FOLDER"
	$(build_release)
	cmake --install $(RELEASE) --strip --prefix "$$FOLDER"
	@echo
	@echo "Brindlemark is installed."
	@echo "  Start it:                              $$FOLDER/brindlemark"
	@echo "  Put it into the menu of your desktop:  $$FOLDER/add-to-menu"

# An archive with an installed program, in dist/.
dist:
	$(build_release)
	package/dist $(RELEASE)

# A package for the Debian on which it is built, in dist/.
deb:
	./setup --package
	package/make-deb

test:
	./setup --test
	cmake --preset dev
	cmake --build --preset dev
	ctest --preset dev

# The same, an installation and a listing in a bare system, which is made for it: make test-on SYSTEM=debian13
test-on:
	tests/systems/test-on "$(SYSTEM)"

# What a change must pass beside the tests: both compilers, a release, the sanitizers over all tests that need no display,
# the code's form, and the analyser on what has changed since BASE.
BASE ?= HEAD~1

check:
	./setup --test --develop --fuzz
	for build in release-strict release-clang; do \
	  cmake --preset $$build && cmake --build --preset $$build || exit 1; \
	done
	cmake --preset asan
	cmake --build --preset asan --target tests_without_display
	ctest --preset asan --label-exclude display
	@if clang-format --version | grep -q 'version 14\.'; then \
	  git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run -Werror; \
	else echo "make check: the form is that of clang-format 14, which is not here."; fi
	@if git rev-parse --verify --quiet $(BASE) >/dev/null; then \
	  git diff --name-only --diff-filter=d $(BASE) -- '*.cpp' | tests/analyse; \
	else echo "make check: nothing analysed, as this clone has no $(BASE); name another BASE."; fi

# Makes listings as a seller does, on a virtual display; the pages and pictures of the screen lie in out/ then.
demo:
	./setup --test
	cmake --preset dev
	cmake --build --preset dev --target tst_demo
	DEMO_OUT="$(CURDIR)/out" tests/with-display $(DEV)/tests/tst_demo

# Pictures of all windows at several scales, sizes of the desktop's font and palettes: out/gallery/index.html.
gallery:
	./setup --test
	cmake --preset dev
	cmake --build --preset dev --target gallery
	tests/windows/make-gallery $(DEV)/tests/gallery "$(CURDIR)/out/gallery"

# Takes the pictures of the help page anew; look at them before you commit them.
help-pictures:
	./setup --test
	cmake --preset dev
	cmake --build --preset dev --target gallery
	tests/windows/make-help-pictures $(DEV)/tests/gallery data

# Measures everything and writes docs/BENCHMARKS.md. BENCH_QUICK=1 make bench is a short try, which leaves the page alone.
bench:
	./setup --bench
	cmake --preset bench
	cmake --build --preset bench --target run-benchmarks

# Opens and closes all windows, changes tabs and makes listings again and again; fails when something is left over or
# memory grows. The three numbers can be given: make soak OPENINGS=100
# The allocator's caches are off, as it counts what it keeps for itself as in use.
OPENINGS ?= 2000
TABS ?= 1000
LISTINGS ?= 300

soak:
	./setup --test
	cmake --preset dev
	cmake --build --preset dev --target tst_soak
	GLIBC_TUNABLES=glibc.malloc.tcache_count=0:glibc.malloc.mxfast=0 QTEST_FUNCTION_TIMEOUT=7200000 \
	  QT_QPA_PLATFORM=offscreen SOAK_OPENINGS=$(OPENINGS) SOAK_TABS=$(TABS) SOAK_LISTINGS=$(LISTINGS) \
	  $(DEV)/tests/tst_soak -silent

# A user who acts by chance, for so many seconds. What it finds it tells as a short list of actions.
# SEED=<number> begins with that one; REPLAY=<file> does what is listed there.
SECONDS = 600

monkey:
	./setup --test
	cmake --preset dev
	cmake --build --preset dev --target tst_monkey
	QT_QPA_PLATFORM=offscreen $(DEV)/tests/tst_monkey --seconds $(SECONDS) $(addprefix --seed ,$(SEED)) \
	  $(addprefix --replay ,$(REPLAY))

# Each fuzzer for TIME seconds, as many side by side as there are cores. Fails when one finds something.
TIME ?= 600

fuzz:
	./setup --fuzz
	cmake --preset fuzz
	cmake --build --preset fuzz
	fuzz/run build/fuzz $(TIME)

# Plants faults in the code and runs the tests that must notice each. ONLY=<words> takes those whose file, texts or tests
# hold a word; CHECK=1 only looks whether they can still be planted.
mutants:
ifdef CHECK
	tests/mutants/run --check $(ONLY)
else
	./setup --test --mutants
	cmake --preset mutants
	cmake --build --preset mutants
	tests/mutants/run $(ONLY)
endif

format:
	./setup --develop
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

tidy:
	./setup --test --develop
	cmake --preset release-clang && cmake --build --preset release-clang
	cmake --preset asan && cmake --build --preset asan
	git ls-files '*.cpp' | tests/analyse

# Removes what was compiled, not the settings and lists that the program keeps beside itself.
clean:
	@for folder in build/*/; do \
	  if [ -f "$$folder/build.ninja" ]; then cmake --build "$$folder" --target clean; fi; \
	done
