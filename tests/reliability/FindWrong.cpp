#include "reliability/FindWrong.h"

#include <algorithm>
#include <set>

namespace {

/// Where two texts part, and what stands there.
std::string ShowDifference(const std::string& expected, const std::string& found)
{
   constexpr std::size_t kShown = 120;
   const auto limit = std::min(expected.size(), found.size());
   std::size_t at = 0;
   while (at < limit && expected[at] == found[at])
      ++at;
   return "\n" + expected.substr(at, kShown) + "\nis\n" + found.substr(at, kShown);
}

/// Whether a report writes the first page, its raw data, ahead of the second; the pages link to
/// each other.
bool IsRawDataOf(const std::string& rawData, const std::string& page)
{
   static const std::set<std::pair<std::string, std::string>> kOtherNames = {
      {"megalsi_rawData", "lsi_mr"}, {"cvmanager_rawData_index", "corvanelogs"}};
   return (!page.empty() && rawData.rfind(page + "_rawData", 0) == 0) ||
          kOtherNames.count({rawData, page}) != 0;
}

/// Whether a failure in one page may change another one.
bool MayChange(const std::string& failing, const std::string& page)
{
   // One guard stands around the first two: where either fails, an older path writes the others.
   static const std::set<std::string> kGuarded = {"SPConfig", "Environmentals", "servproc_config",
                                                  "environmentals"};
   // Ahead of "resource" it is asked again whether there are teams: another answer writes "net"
   // once more.
   const bool isNetAgain = failing == "resource" && page == "net";
   return page == failing || IsRawDataOf(failing, page) || IsRawDataOf(page, failing) ||
          isNetAgain || (kGuarded.count(failing) != 0 && kGuarded.count(page) != 0);
}

/// What stands around the pages that a failure must not change.
TLines GetOutline(const TOutcome& outcome, const std::string& failing)
{
   TLines outline;
   for (const auto& [page, call] : outcome.fOutline)
      if (!MayChange(failing, page))
         outline.push_back(page + call);
   return outline;
}

/// A page that could not be made may leave an index entry without a link in its place.
/// Missing: the empty text when all is as it should be.
std::string FindChangedOutline(TLines found, const TLines& expected)
{
   const auto differ = [&] {
      return std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
   };
   const auto place = differ().first;
   if (place != found.end() && place->rfind("WriteIndexEntry \"\", ", 0) == 0)
      found.erase(place);
   const auto [other, own] = differ();
   if (other == found.end() && own == expected.end())
      return "";
   return "\n" + (own != expected.end() ? *own : "nothing") + "\nis\n" +
          (other != found.end() ? *other : "nothing");
}

/// The pages that failed must not change others. Missing: the empty text when all is as it should.
std::string FindChanged(const std::string& failing, const TOutcome& outcome,
                        const TOutcome& reference)
{
   const std::string fault = "the fault is in " + failing + ", but ";
   for (const auto& [name, page] : reference.fPages) {
      const auto found = outcome.fPages.find(name);
      if (MayChange(failing, name) || (found != outcome.fPages.end() && found->second == page))
         continue;
      return fault + "this page differs, too: " + name +
             (found != outcome.fPages.end() ? ShowDifference(page, found->second) : "");
   }
   const std::string changed =
      FindChangedOutline(GetOutline(outcome, failing), GetOutline(reference, failing));
   return changed.empty() ? "" : fault + "around the pages" + changed;
}

}  // namespace

std::string FindWrong(const TFault& fault, const TOutcome& outcome, const TOutcome& reference)
{
   if (!outcome.fForeign.empty())
      return "another exception: " + outcome.fForeign;
   if (outcome.fStatus != TOutcome::kNone && outcome.fStatus != fault.fStatus &&
       outcome.fStatus != TOutcome::kAssertion)
      return "another status: " + std::to_string(outcome.fStatus);
   if (!std::equal(outcome.fLines.begin(),
                   outcome.fLines.begin() + static_cast<std::ptrdiff_t>(outcome.fLinesBefore),
                   reference.fLines.begin()))
      return "the calls before the failure differ";
   if (outcome.fStatus != TOutcome::kNone || fault.fOnward)
      return "";
   // What comes ahead of the second page belongs to all: corrections, probes, the first labels.
   const auto failing = reference.fPageOfCall.lower_bound(fault.fCall);
   if (failing == reference.fPageOfCall.begin() || failing == reference.fPageOfCall.end())
      return "";
   return FindChanged(failing->second, outcome, reference);
}
