# The front door: make report, make test. Everything else stands in CONTRIBUTING.md.

COLLECTION ?= examples/debian-host
OUT ?= out/report

TOOL := build/release/bin/qsxreport

.PHONY: help report hypervisor build test sanitize setup format clean

help:
	@echo "make report                          pages of the example machine"
	@echo "make report COLLECTION=path OUT=dir  pages of your own collection"
	@echo "make hypervisor                      pages of the example hypervisor host"
	@echo "make build                           the tool: $(TOOL)"
	@echo "make test                            all tests"
	@echo "make sanitize                        all tests under AddressSanitizer and UBSan"

report: build
	@$(TOOL) report $(COLLECTION) -o $(OUT) --force
	@echo "Pages: file://$(abspath $(OUT))/index.html"

hypervisor: build
	@$(TOOL) hypervisor examples/esxi-host -o out/hypervisor --force
	@echo "Pages: file://$(abspath out/hypervisor)/index.html"

build: build/release/build.ninja
	@cmake --build --preset release --target qsxreport -- --quiet

test: build/release/build.ninja
	@cmake --build --preset release
	@ctest --preset release

sanitize: build/asan-ubsan/build.ninja
	@cmake --build --preset asan-ubsan
	@ctest --preset asan-ubsan

setup:
	@packaging/install-packages

build/%/build.ninja: CMakePresets.json packaging/debian-packages.txt | setup
	@cmake --preset $* --log-level=WARNING >/dev/null
	@touch $@

format:
	@git ls-files '*.h' '*.cpp' | xargs clang-format -i

clean:
	@rm -rf build out
