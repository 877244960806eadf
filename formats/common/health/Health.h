#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "common/DriveAttributes.h"
#include "common/StateWords.h"

// What a run says of the health of a machine. Nothing here knows a format.

/// In the order in which subsystems of one state are told.
enum class ESubsystem : unsigned char
{
   kProcessors,
   kMemory,
   kDisks,
   kDriveHealth,
   kSensors,
   kServiceProcessor,
   kNetwork,
   kLogs,
   kFirmware,
   kCorrections,
   kNotCollected,
   kNone  // a rule that marks cells and gives no finding
};

constexpr std::size_t kSubsystems = static_cast<std::size_t>(ESubsystem::kNone);

const char* GetSubsystemName(ESubsystem subsystem);

/// A place on the pages of a run. Units: tables, rows and columns count from 1, a row's label is
/// its first column; 0 for the whole of what is above.
struct TPagePlace
{
   static constexpr std::size_t kNoPage = static_cast<std::size_t>(-1);

   /// Number of the page, as in the index. Missing: kNoPage.
   std::size_t fPage = kNoPage;
   unsigned fTable = 0;
   std::uint64_t fRow = 0;
   unsigned fColumn = 0;
};

/// A place that is on no page of a report.
enum class EOwnPlace : unsigned char
{
   kNone,
   kIndex,         // the list of reports
   kNotCollected,  // the list of what could not be had
   kCorrections
};

struct TFinding
{
   EState fState = EState::kNone;
   /// One sentence: the thing, where it is, what that means.
   std::string fText;
   /// The value that it rests on: "Physical Drives, row 5: State = Defunct".
   std::string fSource;
   TPagePlace fPlace;
   EOwnPlace fOwnPlace = EOwnPlace::kNone;
};

struct TSubsystemHealth
{
   /// Further findings are only counted.
   static constexpr std::size_t kMostFindings = 100;

   /// Unknown while there is nothing to judge by.
   EState fState = EState::kUnknown;
   /// The most urgent first. One that is OK stands alone and says what was looked at.
   std::vector<TFinding> fFindings;
   std::uint64_t fFailed = 0;
   std::uint64_t fAttention = 0;
   std::uint64_t fUnknown = 0;

   std::uint64_t GetCount() const { return fFailed + fAttention + fUnknown; }
};

/// What is used of a whole.
struct TUse
{
   std::string fName;
   /// Units: percent.
   double fPercent = 0;
   /// From where on it needs attention. Units: percent.
   double fLimit = 0;
   /// The whole, as the collection tells it. Missing: empty.
   std::string fTotal;
   EState fState = EState::kNone;
   TPagePlace fPlace;
};

/// Limits of a sensor, in the unit of its readings. Missing: nothing where there is none.
struct TSensorLimits
{
   std::optional<double> fLowerCritical;
   std::optional<double> fLowerWarning;
   std::optional<double> fUpperWarning;
   std::optional<double> fUpperCritical;

   bool IsEmpty() const
   {
      return !fLowerCritical && !fLowerWarning && !fUpperWarning && !fUpperCritical;
   }

   bool operator!=(const TSensorLimits& other) const
   {
      return fLowerCritical != other.fLowerCritical || fLowerWarning != other.fLowerWarning ||
             fUpperWarning != other.fUpperWarning || fUpperCritical != other.fUpperCritical;
   }
};

struct TSensorReading
{
   std::string fName;
   std::string fText;
   /// Short: "°C".
   std::string fUnit;
   double fReading = 0;
   TSensorLimits fLimits;
   EState fState = EState::kNone;
   TPagePlace fPlace;
};

struct TDrive
{
   std::string fName;
   TClosestAttributes fAttributes;
   TPagePlace fPlace;
};

/// What is worth a picture. Each list is bounded: no machine has more, unless somebody made it up.
struct THealthPictures
{
   static constexpr std::size_t kMostVolumes = 1000;
   static constexpr std::size_t kMostSensors = 1000;
   static constexpr std::size_t kMostDrives = 1000;

   /// Memory first, then swap, then the volumes.
   std::vector<TUse> fMemory;
   std::vector<TUse> fVolumes;
   std::vector<TSensorReading> fSensors;
   std::uint64_t fSensorsWithoutLimits = 0;
   std::vector<TDrive> fDrives;
};

struct TFirmwareLevel
{
   std::string fName;
   std::string fVersion;
};

struct THealth
{
   static constexpr std::size_t kMostFirmware = 200;

   std::array<TSubsystemHealth, kSubsystems> fSubsystems;
   /// By number of the page: the most urgent state that a finding on it tells.
   std::vector<EState> fPageStates;
   THealthPictures fPictures;
   /// In the order of the reports.
   std::vector<TFirmwareLevel> fFirmware;

   TSubsystemHealth& Get(ESubsystem subsystem)
   {
      return fSubsystems[static_cast<std::size_t>(subsystem)];
   }

   const TSubsystemHealth& Get(ESubsystem subsystem) const
   {
      return fSubsystems[static_cast<std::size_t>(subsystem)];
   }

   std::size_t CountSubsystems(EState state) const;

   /// Failed or attention where a subsystem is, OK where one is and the others are unknown.
   EState GetVerdict() const;

   /// The subsystems in the order in which they are told: the worst first.
   std::vector<ESubsystem> GetOrder() const;
};
