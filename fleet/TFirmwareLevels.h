#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <unordered_map>
#include <vector>

/// The firmware levels of many machines, compared among those of one model.
///
/// Shape: a level is one version of one firmware of one model. It is common where over half of the
///        machines with that firmware have it, and an outlier where another one is common; fewer
///        than three machines have no outlier.
/// Units: machines are numbered from 0 by the caller.
class TFirmwareLevels
{
public:
   using TNumber = std::uint32_t;

   static constexpr TNumber kNone = std::numeric_limits<TNumber>::max();
   /// What comes behind these is counted and not compared.
   static constexpr std::size_t kMostLevels = 50'000;
   /// Of an outlier so many machines are known by number.
   static constexpr std::size_t kMostExamples = 4;

   struct TLevel
   {
      std::string fVersion;
      /// Its place in GetAll, after Judge.
      std::size_t fFirmware = 0;
      std::uint64_t fMachines = 0;
      bool fIsOutlier = false;
      std::vector<std::size_t> fExamples;
   };

   struct TFirmware
   {
      std::string fModel;
      std::string fName;
      std::uint64_t fMachines = 0;
      /// The most common first.
      std::vector<TNumber> fLevels;

      std::size_t fLastMachine = std::numeric_limits<std::size_t>::max();
   };

   /// The number of a level. Missing: kNone where there are too many.
   TNumber Find(const std::string& model, const std::string& name, const std::string& version);

   /// Tells the levels of a machine, each once. Machines come in the order of their numbers.
   void Count(std::size_t machine, const std::vector<TNumber>& levels);

   /// After all machines.
   void Judge();

   const TLevel& Get(TNumber level) const { return fLevels[level]; }

   /// After Judge: those of most machines first.
   const std::vector<TFirmware>& GetAll() const { return fFirmware; }

   std::size_t GetLevelCount() const { return fLevels.size(); }

   bool IsCommon(const TLevel& level) const;

   bool HasOutliers(const TFirmware& firmware) const;

   std::uint64_t CountOutliers(const std::vector<TNumber>& levels) const;

   /// Levels beyond kMostLevels.
   std::uint64_t GetFurther() const { return fFurther; }

private:
   void JudgeFirmware(TFirmware& firmware);

   std::vector<TLevel> fLevels;
   std::vector<TFirmware> fFirmware;
   std::unordered_map<std::string, std::size_t> fFirmwareByKey;
   std::unordered_map<std::string, TNumber> fLevelsByKey;
   std::uint64_t fFurther = 0;
};
