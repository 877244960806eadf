#pragma once

#include <functional>
#include <map>
#include <string>

#include "common/health/HealthRules.h"

/// Gathers what the rules found into the health of a machine. Owner: a value; one per run.
class THealthLedger
{
public:
   using TMakeFinding = std::function<TFinding()>;

   /// A value that a rule judged. A finding is only made where there is room for it.
   void Add(const THealthRule& rule, EState state, const TPagePlace& place,
            const std::string& source, const TMakeFinding& makeFinding);

   /// A value that is there, with nothing to judge it by.
   void AddUnjudged(const THealthRule& rule) { ++fUnjudged[rule.fSubsystem]; }

   /// A finding that comes from no rule.
   void AddFinding(ESubsystem subsystem, TFinding finding);

   /// What is told of a subsystem where nothing else is.
   void SetRest(ESubsystem subsystem, TFinding finding) { fRest[subsystem] = std::move(finding); }

   void AddFirmware(TFirmwareLevel level)
   {
      if (fHealth.fFirmware.size() < THealth::kMostFirmware)
         fHealth.fFirmware.push_back(std::move(level));
   }

   THealthPictures& GetPictures() { return fHealth.fPictures; }

   /// What was looked at becomes words. The ledger is used up.
   THealth Finish();

private:
   /// The values of a kind that are in order.
   struct TLookedAt
   {
      std::uint64_t fCount = 0;
      TPagePlace fPlace;
      std::string fSource;
   };

   void Count(ESubsystem subsystem, EState state, const TPagePlace& place);
   void FinishSubsystem(ESubsystem subsystem);
   TFinding MakeOkFinding(ESubsystem subsystem) const;
   std::string DescribeUnjudged(ESubsystem subsystem) const;

   THealth fHealth;
   std::map<const THealthRule*, TLookedAt> fLookedAt;
   std::map<ESubsystem, std::uint64_t> fUnjudged;
   std::map<ESubsystem, TFinding> fRest;
};
