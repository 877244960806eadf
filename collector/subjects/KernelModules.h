#pragma once

#include <string>

namespace NZANQSX20 {

class TCollected;
class TEntry;
class TMachine;

/// Ties a device to the kernel module of its driver. device is an instance of a subclass of
/// CIM_LogicalDevice, folder its folder below /sys, with or without links.
/// Missing: nothing to tie for a device without driver, or with one that is built into the kernel.
void AssociateModule(const TMachine& machine, TCollected& collected, const TEntry& device,
                     const std::string& folder);

}  // namespace NZANQSX20
