#include "writer/storage/LSIChannel.h"

#include <algorithm>

#include "writer/StoreWalk.h"

namespace {

unsigned int ReadBus(const TInstanceHandle& drive)
{
   return static_cast<unsigned int>(drive->GetProperty("Bus", {})->GetValue({}));
}

bool HasProperty(const TInstanceHandle& instance, const std::string& name)
{
   const TProperties properties = EnumerateProperties(instance);
   return std::any_of(properties.begin(), properties.end(), [&name](const auto& property) {
      return property->GetDecl({})->GetName({}) == name;
   });
}

}  // namespace

TLSIChannel::TLSIChannel(const TInstanceHandle& firstDrive) : fBus(ReadBus(firstDrive)) {}

void TLSIChannel::WriteHeading(TWriter& writer) const
{
   writer.WriteTableTitle("Channel #: " + std::to_string(fBus), true, false);
}

void TLSIChannel::Follow(TWriter& writer, const TInstanceHandle& drive, const std::string& marker)
{
   if (!HasProperty(drive, marker))
      return;
   const unsigned int bus = ReadBus(drive);
   if (bus == fBus)
      return;
   fBus = bus;
   // Inside the table that the drive has begun: meant.
   WriteHeading(writer);
}
