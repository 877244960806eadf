#include "common/health/CollectionFindings.h"

#include <fmt/format.h>

#include "common/health/Quantities.h"

namespace {

std::uint64_t CountUncollected(const TReportIndex& index)
{
   std::uint64_t count = 0;
   for (const TReportIndex::TGroup& group : index.GetGroups())
      for (const TReportIndex::TEntry& entry : group.fEntries)
         count += !entry.fIsCollected;
   return count;
}

}  // namespace

void TellCorrections(THealthLedger& ledger, const std::vector<TCorrection>& corrections)
{
   TFinding finding;
   finding.fState = EState::kOk;
   finding.fOwnPlace = EOwnPlace::kCorrections;
   finding.fSource = fmt::format("Corrections, {}", MakeCountText(corrections.size(), "row"));
   if (corrections.empty())
      finding.fText = "No value was repaired before reporting.";
   else
      finding.fText =
         fmt::format("{} {} repaired before reporting.", MakeCountText(corrections.size(), "value"),
                     corrections.size() == 1 ? "was" : "were");
   ledger.SetRest(ESubsystem::kCorrections, std::move(finding));
}

void TellGaps(THealthLedger& ledger, const TReportIndex& index, const std::vector<TGap>& gaps)
{
   for (const TGap& gap : gaps) {
      TFinding finding;
      finding.fState = EState::kUnknown;
      finding.fText = fmt::format("{}: {} was {}.", gap.fSubject, gap.fSource, gap.fReason);
      finding.fSource = gap.fDetail.empty() ? "Not collected" : "Not collected: " + gap.fDetail;
      finding.fOwnPlace = EOwnPlace::kNotCollected;
      ledger.AddFinding(ESubsystem::kNotCollected, std::move(finding));
   }
   const std::uint64_t reports = CountUncollected(index);
   TFinding finding;
   finding.fOwnPlace = EOwnPlace::kIndex;
   finding.fSource = "see the reports";
   if (reports == 0) {
      finding.fState = EState::kOk;
      finding.fText = "Every report has a class in this collection.";
      return ledger.SetRest(ESubsystem::kNotCollected, std::move(finding));
   }
   finding.fState = EState::kUnknown;
   finding.fText = fmt::format("{} {} no class in this collection.",
                               MakeCountText(reports, "report"), reports == 1 ? "has" : "have");
   ledger.AddFinding(ESubsystem::kNotCollected, std::move(finding));
}
