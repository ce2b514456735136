# make demo   build the program and run it on the sample solution
# make test   build everything under AddressSanitizer and UndefinedBehaviorSanitizer
#             and run the whole test suite
# make bench  build optimised and run the benchmarks

PACKAGES := cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev \
            libsqlite3-dev sqlite3 libpugixml-dev libcli11-dev ccache \
            libcups2-dev tidy python3-html5lib libgsf-1-dev python3-xlrd
JOBS ?= $(shell nproc)
# ccache makes rebuilds of an unchanged tree (CI on the same machine) quick.
LAUNCHER := -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
RELEASE := build/release
ASAN := build/asan

.PHONY: deps demo test bench build clean

# Installs the Debian packages the build needs, when some are missing.
deps:
	@missing=""; for p in $(PACKAGES); do \
	  dpkg-query -W -f='$${Status}' $$p 2>/dev/null | grep -q 'ok installed' || missing="$$missing $$p"; \
	done; \
	if [ -n "$$missing" ]; then \
	  echo "installing:$$missing"; \
	  if [ "$$(id -u)" = 0 ]; then SUDO=; else SUDO=sudo; fi; \
	  $$SUDO apt-get update -qq && DEBIAN_FRONTEND=noninteractive $$SUDO apt-get install -y -qq $$missing; \
	fi

$(RELEASE)/build.ninja: | deps
	cmake -S . -B $(RELEASE) -G Ninja -DCMAKE_BUILD_TYPE=Release -DANNOTRA_TESTS=OFF $(LAUNCHER)

$(ASAN)/build.ninja: | deps
	cmake -S . -B $(ASAN) -G Ninja -DCMAKE_BUILD_TYPE=Debug -DANNOTRA_SANITIZE=ON -DANNOTRA_BENCH=OFF $(LAUNCHER)

build: deps $(RELEASE)/build.ninja
	cmake --build $(RELEASE) -j $(JOBS) --target annotra

# The demo runs with settings of its own, so what it prints does not depend on the
# options stored by earlier runs.
demo: build
	rm -rf build/demo-home
	ANNOTRA_HOME=build/demo-home $(RELEASE)/app/annotra analyze samples/Demo.sln

test: deps $(ASAN)/build.ninja
	cmake --build $(ASAN) -j $(JOBS)
	cd $(ASAN) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ctest --output-on-failure -j $(JOBS)

bench: deps $(RELEASE)/build.ninja
	cmake --build $(RELEASE) -j $(JOBS)
	@for b in $(RELEASE)/bench/*_bench; do echo "== $$b"; $$b; done

clean:
	rm -rf build
