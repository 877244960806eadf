#include "common/CollectionFacts.h"

namespace {

struct TReason
{
   const char* fClass;
   /// Empty for whole instances.
   const char* fProperty;
   const char* fReason;
};

constexpr TReason kReasons[] = {
   {"ZANSG_SystemSlot", "CurrentUsage", "A device is in this slot."},
   {"ZANSG_ComputerSystem", "ProductName",
    "The name ended in a dash, behind which no machine type was known."},
   {"ZANSG_HeavyHittersLogRecord", "Message",
    "The removed drive may be part of an array; other logs tell more."},
   {"ZANSG_HeavyHittersLogRecord", "",
    "Another log tells of a removed drive, which may be part of an array."},
   {"ZANSG_DesktopMonitor", "",
    "It is the video of the remote supervisor adapter, which nobody looks at."},
   {"ZANSG_SPDData", "Manufacturer", "The controller's record of the module has it."},
   {"ZANSG_SPDData", "PartNumber", "The controller's record of the module has it."},
   {"ZANSG_SPDData", "SerialNumber", "The controller's record of the module has it."},
   {"ZANSG_cvDiskGroup", "LogicalDrive",
    "This controller keeps a stripe order for each logical drive, named here."},
};

}  // namespace

std::string TCorrection::GetReason() const
{
   for (const TReason& known : kReasons)
      if (fClass == known.fClass && fProperty == known.fProperty)
         return known.fReason;
   return {};
}
