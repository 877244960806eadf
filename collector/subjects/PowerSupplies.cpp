#include <cstdint>
#include <string>
#include <vector>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/DeviceStates.h"
#include "subjects/Subjects.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kFolder = "/sys/class/power_supply/";

/// Missing: empty when the supply tells nothing of its state.
std::vector<std::uint64_t> ReadStates(const TMachine& machine, const std::string& folder)
{
   const std::string health = machine.ReadLine(folder + "/health");
   if (!health.empty() && health != "Unknown")
      return {health == "Good" ? kStateOk : kStateDegraded};
   const std::string online = machine.ReadLine(folder + "/online");
   if (online.empty())
      return {};
   return {online == "0" ? kStateStopped : kStateOk};
}

}  // namespace

/// Batteries and supplies that the kernel knows. The supplies of a server are the service
/// processor's.
void CollectPowerSupplies(const TMachine& machine, TCollected& collected)
{
   for (const std::string& name : machine.List(kFolder)) {
      const std::string folder = kFolder + name;
      const std::string model = machine.ReadLine(folder + "/model_name");
      collected.Add("ZANSG_LogicalDevice")
         .Set("DeviceID", "power " + name)
         .Set("DeviceClass",
              machine.ReadLine(folder + "/type") == "Battery" ? "Battery" : "Power supply")
         .Set("ElementName", model.empty() ? name : model)
         .Set("Manufacturer", machine.ReadLine(folder + "/manufacturer"))
         .Set("SerialNumber", machine.ReadLine(folder + "/serial_number"))
         .Set("OtherIdentifyingInfo", machine.ReadLine(folder + "/technology"))
         .Set("Location", name)
         .Set("OperationalStatus", ReadStates(machine, folder));
   }
}

}  // namespace NZANQSX20
