#include "TFirmwareLevels.h"

#include <algorithm>
#include <string_view>
#include <tuple>

namespace {

constexpr std::uint64_t kLeastToStandApart = 3;

/// Of two texts, of which neither can pass for a part of the other.
std::string MakeKey(std::string_view first, std::string_view second)
{
   std::string key = std::to_string(first.size());
   key += ':';
   key += first;
   key += second;
   return key;
}

}  // namespace

TFirmwareLevels::TNumber TFirmwareLevels::Find(const std::string& model, const std::string& name,
                                               const std::string& version)
{
   const std::string firmwareKey = MakeKey(model, name);
   const std::string levelKey = MakeKey(firmwareKey, version);
   const auto known = fLevelsByKey.find(levelKey);
   if (known != fLevelsByKey.end())
      return known->second;
   if (fLevels.size() >= kMostLevels) {
      ++fFurther;
      return kNone;
   }
   const auto [firmware, isNew] = fFirmwareByKey.try_emplace(firmwareKey, fFirmware.size());
   if (isNew) {
      fFirmware.emplace_back();
      fFirmware.back().fModel = model;
      fFirmware.back().fName = name;
   }
   const auto number = static_cast<TNumber>(fLevels.size());
   fLevelsByKey.emplace(levelKey, number);
   fFirmware[firmware->second].fLevels.push_back(number);
   fLevels.push_back({version, firmware->second, 0, false, {}});
   return number;
}

void TFirmwareLevels::Count(std::size_t machine, const std::vector<TNumber>& levels)
{
   for (const TNumber number : levels) {
      TLevel& level = fLevels[number];
      ++level.fMachines;
      if (level.fExamples.size() < kMostExamples)
         level.fExamples.push_back(machine);
      // A machine may have several levels of one firmware.
      TFirmware& firmware = fFirmware[level.fFirmware];
      firmware.fMachines += firmware.fLastMachine != machine;
      firmware.fLastMachine = machine;
   }
}

void TFirmwareLevels::Judge()
{
   fLevelsByKey.clear();
   fFirmwareByKey.clear();
   for (TFirmware& firmware : fFirmware)
      JudgeFirmware(firmware);
   std::sort(fFirmware.begin(), fFirmware.end(), [](const TFirmware& a, const TFirmware& b) {
      return std::tie(b.fMachines, a.fModel, a.fName) < std::tie(a.fMachines, b.fModel, b.fName);
   });
   for (std::size_t i = 0; i < fFirmware.size(); ++i)
      for (const TNumber level : fFirmware[i].fLevels)
         fLevels[level].fFirmware = i;
}

void TFirmwareLevels::JudgeFirmware(TFirmware& firmware)
{
   std::vector<TNumber>& levels = firmware.fLevels;
   std::sort(levels.begin(), levels.end(), [this](TNumber a, TNumber b) {
      return std::tie(fLevels[b].fMachines, fLevels[a].fVersion) <
             std::tie(fLevels[a].fMachines, fLevels[b].fVersion);
   });
   if (firmware.fMachines < kLeastToStandApart || !IsCommon(fLevels[levels.front()]))
      return;
   for (const TNumber level : levels)
      fLevels[level].fIsOutlier = !IsCommon(fLevels[level]);
}

bool TFirmwareLevels::IsCommon(const TLevel& level) const
{
   return 2 * level.fMachines > fFirmware[level.fFirmware].fMachines;
}

bool TFirmwareLevels::HasOutliers(const TFirmware& firmware) const
{
   return fLevels[firmware.fLevels.back()].fIsOutlier;
}

std::uint64_t TFirmwareLevels::CountOutliers(const std::vector<TNumber>& levels) const
{
   return static_cast<std::uint64_t>(std::count_if(
      levels.begin(), levels.end(), [this](TNumber level) { return fLevels[level].fIsOutlier; }));
}
