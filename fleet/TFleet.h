#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "TFirmwareLevels.h"
#include "common/health/Health.h"

/// A machine as the manifest of its report tells of it. Texts may be anybody's, cut where they are
/// long. Missing: empty texts.
struct TFleetMachine
{
   /// The folder of the report, below the fleet's. Parts with "/" between them.
   std::string fPlace;
   /// The file in it to open first.
   std::string fEntry;
   std::string fName;
   std::string fModel;
   std::string fSerialNumber;
   std::string fSystem;
   std::string fCollected;
   EState fVerdict = EState::kUnknown;
   std::array<EState, kSubsystems> fSubsystems = {};
   std::uint64_t fFailed = 0;
   std::uint64_t fAttention = 0;
   /// The worst finding.
   std::string fWorst;
   /// Each once, in ascending order.
   std::vector<TFirmwareLevels::TNumber> fLevels;
};

/// A place where a report was to be, and why there is none. Both may be anybody's.
struct TFleetGap
{
   std::string fPlace;
   std::string fReason;
};

/// The machines whose reports stand below a folder.
struct TFleet
{
   /// The name of the folder.
   std::string fName;
   std::vector<TFleetMachine> fMachines;
   std::vector<TFleetGap> fGaps;
   TFirmwareLevels fFirmware;

   /// Puts the worst first and compares the firmware levels. Once, when all machines are there.
   void Judge();

   std::uint64_t Count(EState verdict) const;
   std::uint64_t Count(ESubsystem subsystem, EState state) const;
};
