#include "common/health/CollectionFindings.h"

#include <fmt/format.h>

#include "common/health/Quantities.h"

namespace {

/// A gap may have left a report with some of its data; that one counts as collected.
std::uint64_t CountUncollected(const TReportIndex& index, bool hasGaps)
{
   std::uint64_t count = 0;
   for (const TReportIndex::TGroup& group : index.GetGroups())
      for (const TReportIndex::TEntry& entry : group.fEntries)
         count += !entry.fIsCollected && (!entry.fHasData || !hasGaps);
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
      finding.fText = fmt::format("{}: {} ({}).", gap.fSubject, gap.fReason, gap.fSource);
      finding.fSource = gap.fDetail.empty() ? "Not collected" : "Not collected: " + gap.fDetail;
      finding.fOwnPlace = EOwnPlace::kNotCollected;
      ledger.AddFinding(ESubsystem::kNotCollected, std::move(finding));
   }
   const std::uint64_t reports = CountUncollected(index, !gaps.empty());
   TFinding finding;
   finding.fOwnPlace = EOwnPlace::kIndex;
   finding.fSource = "see the reports";
   if (reports == 0) {
      finding.fState = EState::kOk;
      finding.fText = "The collection has what every report is about.";
      return ledger.SetRest(ESubsystem::kNotCollected, std::move(finding));
   }
   finding.fState = EState::kUnknown;
   finding.fText = fmt::format("{} {} not collected.", MakeCountText(reports, "report"),
                               reports == 1 ? "was" : "were");
   ledger.AddFinding(ESubsystem::kNotCollected, std::move(finding));
}
