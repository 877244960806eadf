#include "text/EDID.h"

#include <algorithm>
#include <array>

#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr std::size_t kBlock = 128;
constexpr std::string_view kHeader("\0\xFF\xFF\xFF\xFF\xFF\xFF\0", 8);

// Places in the block.
constexpr std::size_t kFeatures = 24;
constexpr std::size_t kEstablished = 35;
constexpr std::size_t kStandard = 38;
constexpr std::size_t kDescriptors = 54;
constexpr std::size_t kDescriptorSize = 18;
constexpr std::size_t kDescriptorCount = 4;

// Kinds of a descriptor that is no timing.
constexpr unsigned kMonitorName = 0xFC;
constexpr unsigned kRangeLimits = 0xFD;

/// By bit, the highest of the first byte first.
constexpr std::array<TVideoTiming, 17> kEstablishedTimings = {{{720, 400, 70, false},
                                                               {720, 400, 88, false},
                                                               {640, 480, 60, false},
                                                               {640, 480, 67, false},
                                                               {640, 480, 72, false},
                                                               {640, 480, 75, false},
                                                               {800, 600, 56, false},
                                                               {800, 600, 60, false},
                                                               {800, 600, 72, false},
                                                               {800, 600, 75, false},
                                                               {832, 624, 75, false},
                                                               {1024, 768, 87, true},
                                                               {1024, 768, 60, false},
                                                               {1024, 768, 70, false},
                                                               {1024, 768, 75, false},
                                                               {1280, 1024, 75, false},
                                                               {1152, 870, 75, false}}};

class TBlock
{
public:
   explicit TBlock(std::string_view bytes) : fBytes(bytes) {}

   unsigned At(std::size_t place) const { return static_cast<unsigned char>(fBytes[place]); }

   std::string_view Text(std::size_t place, std::size_t size) const
   {
      return fBytes.substr(place, size);
   }

private:
   std::string_view fBytes;
};

void AddTiming(TEDID& monitor, const TVideoTiming& timing)
{
   std::vector<TVideoTiming>& timings = monitor.fTimings;
   if (std::find(timings.begin(), timings.end(), timing) == timings.end())
      timings.push_back(timing);
}

std::string ReadManufacturer(const TBlock& block)
{
   const unsigned packed = block.At(8) << 8 | block.At(9);
   std::string letters;
   for (const unsigned shift : {10u, 5u, 0u})
      letters += static_cast<char>('A' - 1 + (packed >> shift & 31));
   return letters;
}

void ReadStandardTiming(const TBlock& block, std::size_t at, TEDID& monitor)
{
   const unsigned first = block.At(at);
   const unsigned second = block.At(at + 1);
   if (first <= 1)
      return;
   const unsigned width = (first + 31) * 8;
   const std::array<unsigned, 4> heights = {width * 10 / 16, width * 3 / 4, width * 4 / 5,
                                            width * 9 / 16};
   AddTiming(monitor, {width, heights[second >> 6], (second & 63) + 60, false});
}

/// The rate is the pixel clock over all pixels of a frame, the invisible ones included.
void ReadDetailedTiming(const TBlock& block, std::size_t at, TEDID& monitor)
{
   const auto join = [&](std::size_t low, std::size_t high, unsigned shift) {
      return block.At(at + low) | (block.At(at + high) >> shift & 15) << 8;
   };
   const std::uint64_t clock = std::uint64_t{block.At(at) | block.At(at + 1) << 8} * 10'000;
   const unsigned width = join(2, 4, 4);
   const unsigned height = join(5, 7, 4);
   const std::uint64_t frame = std::uint64_t{width + join(3, 4, 0)} * (height + join(6, 7, 0));
   const bool isInterlaced = (block.At(at + 17) & 0x80) != 0;
   if (width == 0 || height == 0)
      return;
   AddTiming(monitor, {width, isInterlaced ? height * 2 : height,
                       static_cast<std::uint32_t>((clock + frame / 2) / frame), isInterlaced});
}

void ReadDescriptor(const TBlock& block, std::size_t at, TEDID& monitor)
{
   if (block.At(at) != 0 || block.At(at + 1) != 0)
      return ReadDetailedTiming(block, at, monitor);
   const unsigned kind = block.At(at + 3);
   if (kind == kMonitorName) {
      const std::string_view name = block.Text(at + 5, 13);
      monitor.fName = std::string(Trim(name.substr(0, name.find('\n'))));
   } else if (kind == kRangeLimits) {
      monitor.fMinRate = block.At(at + 5);
      monitor.fMaxRate = block.At(at + 6);
   }
}

bool HasGoodSum(std::string_view bytes)
{
   unsigned sum = 0;
   for (const char byte : bytes.substr(0, kBlock))
      sum += static_cast<unsigned char>(byte);
   return sum % 256 == 0;
}

}  // namespace

std::optional<TEDID> ReadEDID(std::string_view bytes)
{
   if (bytes.size() < kBlock || !StartsWith(bytes, kHeader) || !HasGoodSum(bytes))
      return std::nullopt;
   const TBlock block(bytes);
   TEDID monitor;
   monitor.fManufacturer = ReadManufacturer(block);
   monitor.fVersion = std::to_string(block.At(18)) + '.' + std::to_string(block.At(19));
   monitor.fYear = block.At(17) + 1990;
   // 255 says that the year is that of the model.
   monitor.fWeek = block.At(16) <= 54 ? block.At(16) : 0;
   monitor.fStandby = (block.At(kFeatures) & 0x80) != 0;
   monitor.fSuspend = (block.At(kFeatures) & 0x40) != 0;
   monitor.fActiveOff = (block.At(kFeatures) & 0x20) != 0;
   for (std::size_t i = 0; i < kDescriptorCount; ++i)
      ReadDescriptor(block, kDescriptors + i * kDescriptorSize, monitor);
   for (std::size_t i = 0; i < 8; ++i)
      ReadStandardTiming(block, kStandard + i * 2, monitor);
   for (std::size_t i = 0; i < kEstablishedTimings.size(); ++i)
      if ((block.At(kEstablished + i / 8) >> (7 - i % 8) & 1) != 0)
         AddTiming(monitor, kEstablishedTimings[i]);
   return monitor;
}

}  // namespace NZANQSX20
