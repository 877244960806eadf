#include <vector>

#include "run/Corrections.h"
#include "run/TReport.h"
#include "writer/StoreWalk.h"

namespace {

/// CurrentUsage of a slot that holds a card.
constexpr unsigned short kInUse = 4;

void MarkInUse(const boost::shared_ptr<ICIMInstance>& slot)
{
   const boost::shared_ptr<ICIMProperty> usage = slot->GetProperty("CurrentUsage", {});
   if (static_cast<unsigned short>(usage->GetValue({})) != kInUse)
      usage->SetValue(TCIMValue(kInUse), {});
}

/// The slot numbers that the devices tell of themselves.
std::vector<int> GetDeviceSlotNumbers(const TInstances& devices)
{
   std::vector<int> numbers;
   for (const boost::shared_ptr<ICIMInstance>& device : devices)
      IgnoreFailure([&] {
         // One byte wide, while a slot's Number has two: slots above 255 never match. It is to
         // stay so.
         numbers.push_back(static_cast<unsigned char>(ReadValue(device, "UINumber")));
      });
   return numbers;
}

}  // namespace

void TReport::fixPCISlots()
{
   IgnoreFailure([&] {
      for (const boost::shared_ptr<ICIMInstance>& slot :
           FindInstances(fNamespace, "ZANSG_SystemSlot")) {
         try {
            // The slot's class in the place of the association is meant; the store decides what it
            // matches.
            if (!EnumerateAssociators(slot, "ZANSG_SystemSlot", "ZANSG_PCIDevice").empty())
               MarkInUse(slot);
         } catch (const TQSXException& failure) {
            RethrowUnlessNotFound(failure);
         }
      }
   });
}

void TReport::fixPCISlots2()
{
   IgnoreFailure([&] {
      const std::vector<int> numbers =
         GetDeviceSlotNumbers(FindInstances(fNamespace, "ZANSG_PCIDevice"));
      for (const boost::shared_ptr<ICIMInstance>& slot :
           FindInstances(fNamespace, "ZANSG_SystemSlot"))
         IgnoreFailure([&] {
            const int slotNumber = static_cast<unsigned short>(ReadValue(slot, "Number"));
            for (const int number : numbers)
               if (number == slotNumber)
                  MarkInUse(slot);
         });
   });
}
