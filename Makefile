# The two set-up commands: `make run` and `make test`. Both install what is
# missing, configure and build incrementally with Ninja.
PRESET ?= debug
BUILD := build/$(PRESET)
SAMPLE := data/samples/Demo.vnsc

.PHONY: deps build run test bench asan-test fuzz package clean format

deps:
	@scripts/install-deps

$(BUILD)/build.ninja:
	cmake --preset $(PRESET)

build: deps $(BUILD)/build.ninja
	cmake --build $(BUILD)

# The editor from an optimised build; the tests stay on the debug build.
run:
	$(MAKE) build PRESET=run
	build/run/bin/tarvo $(SAMPLE)

test: build
	QT_QPA_PLATFORM=offscreen ctest --test-dir $(BUILD) --output-on-failure -j2 $(CTEST_ARGS)

# The same suite under AddressSanitizer, UndefinedBehaviorSanitizer and
# LeakSanitizer; fontconfig's caches and Graphviz's layout blocks are not ours
# (see docs/reliability.md). The sound player's tests stay out of this run:
# Qt Multimedia's sample loader thread may still hold its objects when the
# program ends, which LeakSanitizer reports depending on timing.
asan-test:
	LSAN_OPTIONS=suppressions=$(CURDIR)/.ci/lsan.supp:print_suppressions=0 UBSAN_OPTIONS=print_stacktrace=1 \
		$(MAKE) test PRESET=asan CTEST_ARGS="-E QtSoundPlayerTest"

# libFuzzer targets, built with clang, each run for FUZZ_SECONDS (see fuzz/run).
FUZZ_SECONDS ?= 60
fuzz: deps
	@command -v clang++ >/dev/null 2>&1 || { [ "$$(id -u)" -eq 0 ] && S= || S=sudo; \
		$$S apt-get update -qq && $$S apt-get install -y -qq --no-install-recommends clang; }
	[ -f build/fuzz/build.ninja ] || cmake --preset fuzz
	cmake --build build/fuzz --target fuzzers
	fuzz/run $(FUZZ_SECONDS)

bench: deps
	cmake --preset bench
	cmake --build build/bench
	build/bench/bin/tarvo-bench
	build/bench/bin/tarvo-gui-bench

# A Debian package from a release build, in build/package/; CPack asks
# dpkg-shlibdeps (dpkg-dev) for its dependencies and finds the executables with
# file.
package:
	@scripts/install-deps dpkg-dev file
	$(MAKE) build PRESET=package
	cmake --build build/package --target package

clean:
	rm -rf build

format:
	clang-format -i $$(git ls-files '*.cpp' '*.h')
