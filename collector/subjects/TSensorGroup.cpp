#include "subjects/TSensorGroup.h"

#include <algorithm>
#include <vector>

#include "TCollected.h"
#include "subjects/DeviceStates.h"

namespace NZANQSX20 {

void TSensorGroup::Add(const std::string& sensor, std::uint64_t state)
{
   ++fCount;
   fState = std::max(fState, state);
   if (state != kStateOk)
      fOutOfLimits += (fOutOfLimits.empty() ? "out of limits: " : ", ") + sensor;
}

void TSensorGroup::AddDevice(TCollected& collected, const char* deviceClass,
                             const std::string& name) const
{
   if (fCount == 0)
      return;
   const std::string count = std::to_string(fCount) + (fCount == 1 ? " sensor" : " sensors");
   collected.Add("ZANSG_LogicalDevice")
      .Set("DeviceID", "sensors " + name)
      .Set("DeviceClass", deviceClass)
      .Set("ElementName", fOutOfLimits.empty() ? name : name + ", " + fOutOfLimits)
      .Set("OtherIdentifyingInfo", count)
      .Set("OperationalStatus", std::vector<std::uint64_t>{fState});
}

}  // namespace NZANQSX20
