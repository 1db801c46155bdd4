# Quilmar: `make run` starts the desktop on the demo company; `make test` runs every test.
# Both install what is missing (Debian packages) and build first.

BUILD ?= build
JOBS ?= $(shell nproc)
export CCACHE_BASEDIR := $(CURDIR)

.PHONY: all deps configure build test run bench fuzz clean format

all: build

deps:
	@./scripts/instalar-dependencias.sh

$(BUILD)/build.ninja: CMakeLists.txt
	cmake -S . -B $(BUILD) -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo

configure: deps $(BUILD)/build.ninja

build: configure
	cmake --build $(BUILD) -j $(JOBS)

test: build
	cd $(BUILD) && ctest -j $(JOBS) --output-on-failure --timeout 600

run: build
	@./scripts/ejecutar.sh $(BUILD)

bench: deps
	cmake -S . -B $(BUILD)-bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DQUILMAR_BENCH=ON
	cmake --build $(BUILD)-bench -j $(JOBS)
	./scripts/bench.sh $(BUILD)-bench

format:
	git ls-files '*.cpp' '*.h' | xargs clang-format -i

# Fuzz targets of the parsers of outside input (clang, libFuzzer), ten minutes each by default.
fuzz: deps
	./scripts/fuzz.sh $(BUILD)-fuzz

clean:
	rm -rf $(BUILD) $(BUILD)-bench $(BUILD)-fuzz
