#pragma once

#include <cstdint>

namespace NZANQSX20 {

/// The operational states of ZANSG_LogicalDevice and CIM_NumericSensor that a subject may tell.
enum EDeviceState : std::uint64_t
{
   kStateUnknown = 0,
   kStateOk = 2,
   kStateDegraded = 3,
   kStatePredictiveFailure = 5,
   kStateError = 6,
   kStateStopped = 10,
   kStateInService = 11
};

}  // namespace NZANQSX20
