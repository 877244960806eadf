# The front door: make report, make test. Everything else stands in CONTRIBUTING.md.

EXAMPLE := examples/debian-host
BASE ?= examples/compare/one-server-two-times/before.mof
OTHER ?= examples/compare/one-server-two-times/after.mof

TOOL := build/release/bin/qsxreport
# What stands in a folder of this tree is ours to replace; a folder of yours needs FORCE=--force.
FORCE ?= $(if $(filter out/%,$(OUT)),--force)

.PHONY: release help report example hypervisor compare build test torture same-bytes fuzz sanitize setup format clean

help:
	@echo "make report                          pages of this machine"
	@echo "make report COLLECTION=path OUT=dir  pages of your own collection"
	@echo "make example                         pages of the example machine"
	@echo "make hypervisor                      pages of the example hypervisor host"
	@echo "make compare                         one server before and after a maintenance"
	@echo "make compare BASE=path OTHER=path    your own collections; OTHER may be several"
	@echo "make build                           the tool: $(TOOL)"
	@echo "make test                            all tests"
	@echo "make sanitize                        all tests under AddressSanitizer and UBSan"

# Without COLLECTION: of this machine, which is collected anew.
report: OUT ?= out/report
report: build
ifndef COLLECTION
	@mkdir -p out
	@$(TOOL) collect -o out/this-machine.mof --force
endif
	@$(TOOL) report "$(or $(COLLECTION),out/this-machine.mof)" -o "$(OUT)" $(FORCE)
	@echo "Pages: file://$(abspath $(OUT))/index.html"

example: build
	@$(TOOL) report $(EXAMPLE) -o out/example --force
	@echo "Pages: file://$(abspath out/example)/index.html"

hypervisor: build
	@$(TOOL) hypervisor examples/esxi-host -o out/hypervisor --force
	@echo "Pages: file://$(abspath out/hypervisor)/index.html"

compare: OUT ?= out/compare
compare: build
	@$(TOOL) compare $(BASE) $(OTHER) -o "$(OUT)" $(FORCE)
	@echo "Pages: file://$(abspath $(OUT))/index.html"

build: build/release/build.ninja
	@cmake --build --preset release --target qsxreport -- --quiet

test: build/release/build.ninja
	@cmake --build --preset release
	@ctest --preset release

# Each fuzzer for a minute; what breaks stays in fuzz/inputs, and the tests replay it.
FUZZ_SECONDS ?= 60
fuzz: build/fuzz/build.ninja
	@cmake --build --preset fuzz --target qsxreport_fuzz -- --quiet
	@fuzz/run build/fuzz/bin/qsxreport_fuzz $(FUZZ_SECONDS)

# All failures that the ordinary tests sample: hours. FAULTS=calls is one at every store call, a number so many of each
# run. TORTURE=asan-ubsan finds more and takes far longer.
TORTURE ?= release
FAULTS ?= all
torture: build/$(TORTURE)/build.ninja
	@cmake --build --preset $(TORTURE)
	@QSX_TORTURE=$(FAULTS) build/$(TORTURE)/bin/qsxreport_tests --gtest_filter='FaultyStore.*:FailingOutput.*'
	@tests/reliability/hostile_pages.py build/$(TORTURE)/bin/qsxreport examples 6

# The same bytes from clang, from g++ with and without optimisation, and from the sanitizers' build.
SAME_BYTES := release dev asan-ubsan fuzz
same-bytes: $(foreach preset,$(SAME_BYTES),build/$(preset)/build.ninja)
	@for preset in $(SAME_BYTES); do cmake --build --preset $$preset --target qsxreport -- --quiet; done
	@tests/reliability/same_bytes examples $(foreach preset,$(SAME_BYTES),build/$(preset)/bin/qsxreport)

sanitize: build/asan-ubsan/build.ninja
	@cmake --build --preset asan-ubsan
	@ctest --preset asan-ubsan

# What a release must pass beyond the tests: its packages, in an empty Debian, and the ABI of its libraries.
release: build/release/build.ninja
	@packaging/install-packages release-packages.txt
	@cmake --build --preset release -- --quiet
	@packaging/make-packages
	@packaging/try-packages
	@packaging/check-abi

setup:
	@packaging/install-packages

build/%/build.ninja: CMakePresets.json packaging/debian-packages.txt | setup
	@cmake --preset $* --log-level=WARNING >/dev/null
	@touch $@

format:
	@git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	@rm -rf build out
