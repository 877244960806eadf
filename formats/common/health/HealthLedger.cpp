#include "common/health/HealthLedger.h"

#include <algorithm>

#include <fmt/format.h>

#include "common/health/Quantities.h"

namespace {

constexpr const char* kNothingToJudge = "No value to judge by was collected.";

/// Values of one kind that passed, by the first of the rules that say so.
struct TClause
{
   const THealthRule* fRule = nullptr;
   std::uint64_t fCount = 0;
};

/// How values pass a rule: the end of a sentence whose begin is a number of them.
std::string DescribePass(const THealthRule& rule, bool isOne)
{
   const char* const be = isOne ? "is" : "are";
   switch (rule.fJudgement) {
      case EJudgement::kUsedSpace:
      case EJudgement::kPercent:
         return fmt::format("{} below {}\u00A0%", be, MakeNumberText(rule.fLimit));
      case EJudgement::kReading:
         return fmt::format("{} within {} limits", be, isOne ? "its" : "their");
      case EJudgement::kAttributes:
         return fmt::format("{} above {} threshold{}", be, isOne ? "its" : "their",
                            isOne ? "" : "s");
      case EJudgement::kRawCount:
         return fmt::format("{} at 0", be);
      case EJudgement::kErrorShare:
         return fmt::format("{} below one in {} packets", be, MakeNumberText(rule.fLimit));
      case EJudgement::kPresent:
         return isOne ? "has a version" : "have a version";
      case EJudgement::kWords:
      case EJudgement::kName:
         break;
   }
   return isOne ? "tells no fault" : "tell no fault";
}

/// "1 disk, 4 volumes and 12 drives".
std::string JoinParts(const std::vector<std::string>& parts)
{
   std::string text;
   for (std::size_t i = 0; i < parts.size(); ++i)
      text += (i == 0 ? "" : i + 1 == parts.size() ? " and " : ", ") + parts[i];
   return text;
}

bool PassAlike(const THealthRule& a, const THealthRule& b)
{
   return DescribePass(a, false) == DescribePass(b, false);
}

/// "2 disks and 4 volumes tell no fault; 1 volume is below 90 %."
std::string DescribeClauses(const std::vector<TClause>& clauses)
{
   std::string text;
   std::vector<std::string> parts;
   for (std::size_t i = 0; i < clauses.size(); ++i) {
      const THealthRule& rule = *clauses[i].fRule;
      // There is one of them in a machine.
      const bool isNamed = rule.fJudgement == EJudgement::kPercent;
      parts.push_back(isNamed ? std::string("the ") + rule.fNoun
                              : MakeCountText(clauses[i].fCount, rule.fNoun));
      if (i + 1 < clauses.size() && PassAlike(rule, *clauses[i + 1].fRule))
         continue;
      const bool isOne = parts.size() == 1 && clauses[i].fCount == 1;
      text += (text.empty() ? "" : "; ") + JoinParts(parts) + " " + DescribePass(rule, isOne);
      parts.clear();
   }
   if (!text.empty() && text[0] == 't')
      text[0] = 'T';
   return text + ".";
}

}  // namespace

void THealthLedger::Add(const THealthRule& rule, EState state, const TPagePlace& place,
                        const std::string& source, const TMakeFinding& makeFinding)
{
   if (rule.fSubsystem == ESubsystem::kNone || state == EState::kNone)
      return;
   if (state == EState::kOk) {
      TLookedAt& lookedAt = fLookedAt[&rule];
      if (lookedAt.fCount++ == 0) {
         lookedAt.fPlace = place;
         lookedAt.fSource = source;
      }
      return;
   }
   const std::vector<TFinding>& findings = fHealth.Get(rule.fSubsystem).fFindings;
   const bool hasRoom =
      findings.size() < TSubsystemHealth::kMostFindings || findings.back().fState < state;
   if (hasRoom)
      return AddFinding(rule.fSubsystem, makeFinding());
   Count(rule.fSubsystem, state, place);
}

void THealthLedger::AddFinding(ESubsystem subsystem, TFinding finding)
{
   Count(subsystem, finding.fState, finding.fPlace);
   std::vector<TFinding>& findings = fHealth.Get(subsystem).fFindings;
   const auto isMoreUrgent = [](const TFinding& a, const TFinding& b) {
      return a.fState > b.fState;
   };
   findings.insert(std::upper_bound(findings.begin(), findings.end(), finding, isMoreUrgent),
                   std::move(finding));
   if (findings.size() > TSubsystemHealth::kMostFindings)
      findings.pop_back();
}

void THealthLedger::Count(ESubsystem subsystem, EState state, const TPagePlace& place)
{
   TSubsystemHealth& health = fHealth.Get(subsystem);
   health.fFailed += state == EState::kFailed;
   health.fAttention += state == EState::kAttention;
   health.fUnknown += state == EState::kUnknown;
   if (place.fPage == TPagePlace::kNoPage)
      return;
   std::vector<EState>& states = fHealth.fPageStates;
   states.resize(std::max(states.size(), place.fPage + 1), EState::kNone);
   states[place.fPage] = std::max(states[place.fPage], state);
}

THealth THealthLedger::Finish()
{
   for (std::size_t i = 0; i < kSubsystems; ++i)
      FinishSubsystem(static_cast<ESubsystem>(i));
   return std::move(fHealth);
}

void THealthLedger::FinishSubsystem(ESubsystem subsystem)
{
   TSubsystemHealth& health = fHealth.Get(subsystem);
   if (!health.fFindings.empty()) {
      health.fState = health.fFindings.front().fState;
      return;
   }
   const auto rest = fRest.find(subsystem);
   TFinding finding = rest != fRest.end() ? rest->second : MakeOkFinding(subsystem);
   if (finding.fState == EState::kNone) {
      finding.fState = EState::kUnknown;
      finding.fText = DescribeUnjudged(subsystem);
      finding.fSource = "see the reports";
      finding.fOwnPlace = EOwnPlace::kIndex;
   }
   health.fState = finding.fState;
   health.fFindings.push_back(std::move(finding));
}

/// Missing: a finding of no state where no value passed a rule.
TFinding THealthLedger::MakeOkFinding(ESubsystem subsystem) const
{
   TFinding finding;
   std::vector<TClause> clauses;
   for (const THealthRule& rule : GetHealthRules()) {
      const auto found = fLookedAt.find(&rule);
      if (rule.fSubsystem != subsystem || found == fLookedAt.end())
         continue;
      if (clauses.empty()) {
         finding.fState = EState::kOk;
         finding.fPlace = found->second.fPlace;
         finding.fSource = found->second.fSource;
      }
      const auto same = std::find_if(clauses.begin(), clauses.end(), [&](const TClause& clause) {
         return clause.fRule->fNoun == std::string_view(rule.fNoun) &&
                PassAlike(*clause.fRule, rule);
      });
      if (same == clauses.end())
         clauses.push_back({&rule, found->second.fCount});
      else
         same->fCount += found->second.fCount;
   }
   if (!clauses.empty())
      finding.fText = DescribeClauses(clauses);
   return finding;
}

std::string THealthLedger::DescribeUnjudged(ESubsystem subsystem) const
{
   const auto unjudged = fUnjudged.find(subsystem);
   if (unjudged == fUnjudged.end())
      return kNothingToJudge;
   return MakeCountText(unjudged->second, "reading") + (unjudged->second == 1
                                                           ? ", without limits to judge it by."
                                                           : ", none with limits to judge them by.");
}
