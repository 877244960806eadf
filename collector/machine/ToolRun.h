#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "machine/TReading.h"

namespace NZANQSX20 {

/// Units: bytes.
constexpr std::size_t kToolOutputCap = std::size_t{16} << 20;

constexpr std::chrono::milliseconds kToolDeadline(10'000);

/// Runs a program without a shell: an empty environment but for LC_ALL and PATH, nothing on its
/// standard input, a process group of its own, which is killed at the deadline, at the cap of the
/// output and after the program has ended.
///
/// Shape: the standard output; the first line of the standard error is the detail.
TReading RunProgram(const std::string& path, const std::string& name,
                    const std::vector<std::string>& arguments,
                    std::chrono::milliseconds deadline = kToolDeadline);

}  // namespace NZANQSX20
