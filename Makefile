# Brenlow: `make run` builds and starts the program, `make test` builds and
# passes every test. Both install what is missing first.
BUILD ?= build
CMAKE_FLAGS ?= -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
# Further cache settings (CI: -DBRENLOW_WERROR=ON); given, they configure again.
CMAKE_EXTRA ?=
JOBS ?= $(shell nproc)

.PHONY: bootstrap configure build run test bench format clean package package-check

bootstrap:
	@bash scripts/bootstrap

configure: bootstrap
	@test -f $(BUILD)/build.ninja -a -z "$(CMAKE_EXTRA)" || cmake -S . -B $(BUILD) $(CMAKE_FLAGS) $(CMAKE_EXTRA)

build: configure
	cmake --build $(BUILD) -j $(JOBS)

run: build
	@bash scripts/run "$(BUILD)"

# Run as root, the tests may make (and then remove) a test user and a sudo
# rule for the privilege tests; as anyone else those tests skip.
test: build
	BRENLOW_PRIVILEGE_TESTS=$$([ "$$(id -u)" = 0 ] && echo 1 || echo 0) \
	  ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

# The Debian package, brenlow_<version>_<arch>.deb in the build folder, which
# is set to install under /usr for it.
package: configure
	cmake -S . -B $(BUILD) -DCMAKE_INSTALL_PREFIX=/usr >/dev/null
	cmake --build $(BUILD) -j $(JOBS) --target package

# As root: builds, installs, checks and removes the package (scripts/package-check).
package-check: configure
	@bash scripts/package-check "$(BUILD)"

bench: build
	@bash bench/run "$(BUILD)"

format:
	@git ls-files '*.cpp' '*.h' | xargs clang-format -i

clean:
	rm -rf $(BUILD)
