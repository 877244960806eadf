#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace NZANQSX20 {

class TCollected;

/// The sensors of one chip, or of the service processor, as one device: its state is that of the
/// worst of them, its text names those that are out of their limits. Fans are devices themselves
/// and don't count here.
class TSensorGroup
{
public:
   /// state: EDeviceState.
   void Add(const std::string& sensor, std::uint64_t state);

   /// Missing: a group without sensors adds nothing.
   void AddDevice(TCollected& collected, const char* deviceClass, const std::string& name) const;

private:
   std::size_t fCount = 0;
   /// The higher, the worse, of the states that sensors have.
   std::uint64_t fState = 0;
   std::string fOutOfLimits;
};

}  // namespace NZANQSX20
