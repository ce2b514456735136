# make demo   build the program and run it on the sample solution
# make test   build everything under AddressSanitizer and UndefinedBehaviorSanitizer
#             and run the whole test suite
# make bench  build optimised and run the benchmarks

PACKAGES := cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev \
            libsqlite3-dev sqlite3 libpugixml-dev libcli11-dev ccache tmux \
            libcups2-dev tidy python3-html5lib libgsf-1-dev python3-xlrd libncurses-dev
JOBS ?= $(shell nproc)
# ccache makes rebuilds of an unchanged tree (CI on the same machine) quick.
LAUNCHER := -DCMAKE_CXX_COMPILER_LAUNCHER=ccache
RELEASE := build/release
ASAN := build/asan
# The SARIF test validates the output against the SARIF 2.1.0 schema with a JSON-schema
# validator; both come from the npm registry and are installed here, outside the sources.
SARIF_VALIDATOR := build/sarif-validator
SARIF_PACKAGES := ajv@8.17.1 ajv-draft-04@1.0.0 ajv-formats@3.0.1 @microsoft/jest-sarif@1.0.0-beta.0

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

# Node.js and npm come with the machine; Debian's packages stand in where they do not.
$(SARIF_VALIDATOR)/installed:
	@command -v npm >/dev/null 2>&1 || { \
	  if [ "$$(id -u)" = 0 ]; then SUDO=; else SUDO=sudo; fi; \
	  $$SUDO apt-get update -qq && DEBIAN_FRONTEND=noninteractive $$SUDO apt-get install -y -qq nodejs npm; }
	rm -rf $(SARIF_VALIDATOR) && mkdir -p $(SARIF_VALIDATOR)
	echo '{"private": true}' > $(SARIF_VALIDATOR)/package.json
	cd $(SARIF_VALIDATOR) && npm install --no-audit --no-fund --loglevel=error $(SARIF_PACKAGES)
	echo $(SARIF_PACKAGES) > $@

test: deps $(ASAN)/build.ninja $(SARIF_VALIDATOR)/installed
	cmake --build $(ASAN) -j $(JOBS)
	cd $(ASAN) && ASAN_OPTIONS=detect_leaks=1 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  ANNOTRA_SARIF_VALIDATOR_REQUIRED=1 ctest --output-on-failure -j $(JOBS)

bench: deps $(RELEASE)/build.ninja
	cmake --build $(RELEASE) -j $(JOBS)
	@for b in $(RELEASE)/bench/*_bench; do echo "== $$b"; ANNOTRA_APP_PATH=$(CURDIR)/resources $$b; done

clean:
	rm -rf build
