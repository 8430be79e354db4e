# The front door. `make run` and `make test` need nothing but Debian 12: they install what is
# missing, configure, build with all cores, and go.
#
#   make run                 open the window; without a display, run the tour of the examples
#   make run ARGS="..."      run the program with these arguments
#   make build               build only; the program is build/release/bin/morvalen
#   make test                build and run all tests
#   make bench               build and run all benchmarks
#   make install PREFIX=DIR  install program, libraries, headers and the CMake package
#   make screenshots         make the pictures of the README anew
#   make format              format all sources
#   make clean               remove everything that was built

PREFIX ?= /usr/local
DESTDIR ?=
ARGS ?=
# Under CI the same build has warnings as errors.
preset = $(if $(CI),ci,release)
program = build/release/bin/morvalen

.PHONY: run build configure test bench install screenshots format clean

run: build
	@if [ -n '$(value ARGS)' ]; then \
	    exec $(program) $(ARGS); \
	elif [ -n "$$DISPLAY$$WAYLAND_DISPLAY" ]; then \
	    exec $(program); \
	else \
	    session=$$(mktemp -d) && trap 'rm -rf "$$session"' EXIT && \
	    $(program) --session "$$session" --batch examples/01-tour.tcl; \
	fi

build: configure
	@cmake --build --preset $(preset)

configure:
	@scripts/prerequisites build
	@cmake --preset $(preset) $(if $(VERBOSE),,--log-level=WARNING)

test:
	@scripts/prerequisites test
	@$(MAKE) --no-print-directory build
	@ctest --preset $(preset) --parallel $$(nproc)

bench: build
	@for bench in build/release/bench/*; do \
	    [ -x "$$bench" ] && [ -f "$$bench" ] || continue; \
	    echo "== $$(basename "$$bench")"; "$$bench" || exit 1; \
	done

install: build
	@DESTDIR='$(DESTDIR)' cmake --install build/release --prefix '$(PREFIX)'

screenshots: build
	@scripts/screenshots $(program)

format:
	@scripts/prerequisites ci
	@scripts/check-format --fix

clean:
	@rm -rf build
