# The front door. `make run` and `make test` need nothing but Debian 12 or 13: they install what is
# missing, configure, build with all cores what they need, and go.
#
#   make run                 open the window; without a display, run the tour of the examples
#   make run ARGS="..."      run the program with these arguments, written as for a shell
#   make build               build only; the program is build/release/bin/morvalen
#   make test                build everything but the benchmarks, and run all tests
#   make soak                fuzz and soak for an hour, under the sanitizers
#   make bench               build and run all benchmarks
#   make faults              let everything that writes meet failing calls and kills
#   make install PREFIX=DIR  install program, libraries, headers and the CMake package
#   make uninstall PREFIX=DIR  remove what was installed there
#   make package             make Debian packages of it, in build/package
#   make docs                make the pages of the public headers and of the commands, in build/docs
#   make screenshots         make the pictures of the README anew
#   make format              format all sources
#   make clean               remove everything that was built

PREFIX ?= /usr/local
DESTDIR ?=
ARGS ?=
# Under CI the same build has warnings as errors.
preset = $(if $(CI),ci,release)
folder = build/release
program = $(folder)/bin/morvalen
cmake = cmake --preset $(preset) $(if $(VERBOSE),,--log-level=WARNING)

# Texts of users get to the shell as they are, whatever is in them: by the environment.
export RUN_ARGUMENTS := $(value ARGS)
export INSTALL_PREFIX := $(PREFIX)
export DESTDIR

.PHONY: help run build test soak faults bench install uninstall package docs screenshots format clean

help:
	@sed -n 's/^#   make /make /p' Makefile

# ARGS is the rest of a command line, as if it were typed after the program's name.
run: build
	@if [ -n "$$RUN_ARGUMENTS" ]; then \
	    eval "$(program) $$RUN_ARGUMENTS"; \
	elif [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	    exec $(program); \
	else \
	    session=$$(mktemp -d) && trap 'rm -rf "$$session"' EXIT && \
	    $(program) --session "$$session" --batch examples/01-tour.tcl; \
	fi

# Configured once; later the build itself sees what has changed.
configured = $(folder)/configured-$(preset)
$(configured): CMakePresets.json
	@scripts/prerequisites build
	@$(cmake)
	@rm -f $(folder)/configured-*
	@touch $@

build: $(configured)
	@cmake --build --preset $(preset) --target morvalen

test: $(configured)
	@scripts/prerequisites test
	@cmake --build --preset $(preset)
	@ctest --preset $(preset) --parallel $$(($$(nproc) + 1)); status=$$?; \
	    scripts/left-out $(folder); exit $$status

soak:
	@scripts/prerequisites sanitize
	@cmake --preset asan --log-level=WARNING
	@cmake --build --preset asan
	@scripts/soak build/asan 900

bench: $(configured)
	@scripts/prerequisites bench
	@$(cmake) -D MORVALEN_BENCH=ON
	@cmake --build --preset $(preset) --target benchmarks
	@for bench in $(folder)/bench/*; do \
	    [ -x "$$bench" ] && [ -f "$$bench" ] || continue; \
	    echo "== $$(basename "$$bench")"; "$$bench" || exit 1; \
	done

faults: $(configured)
	@scripts/prerequisites test
	@cmake --build --preset $(preset) --target inject_faults
	@$(folder)/tests/inject_faults

install: build
	@cmake --install $(folder) --prefix "$$INSTALL_PREFIX"

uninstall:
	@scripts/uninstall $(folder)/install_manifest.txt "$$INSTALL_PREFIX"

package:
	@scripts/prerequisites package
	@scripts/package build/package

docs: $(configured)
	@scripts/prerequisites docs
	@scripts/docs build/docs
	@cmake --build --preset $(preset) --target reference-pages
	@$(folder)/docs/reference/reference-pages build/docs/reference

screenshots: build
	@scripts/screenshots $(program)

format:
	@scripts/prerequisites ci
	@scripts/check-format --fix

clean:
	@rm -rf build
