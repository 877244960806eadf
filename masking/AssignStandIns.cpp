#include <stdexcept>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "NameText.h"
#include "TMask.h"

// TMask gives each original its stand-in. No stand-in is an original, and none
// stands for two.

namespace NZANQSX20 {

namespace {

constexpr unsigned kMostAttempts = 2000;
/// So few are as short as a name of a letter or two; from there on they are twice as long.
constexpr unsigned kMostOfOneShape = 1000;
/// All addresses are worked out anew for each.
constexpr unsigned kMostIPv4Attempts = 50;

}  // namespace

std::string TMask::MakeStandIn(EMaskKind kind, const std::string& canonical, unsigned attempt) const
{
   switch (kind) {
      case EMaskKind::kMAC:
         return fStandIns.MakeMAC(canonical, attempt);
      case EMaskKind::kWWN:
         return fStandIns.MakeWWN(canonical, attempt);
      case EMaskKind::kUUID:
         return fStandIns.MakeUUID(canonical, attempt);
      case EMaskKind::kSID:
         return fStandIns.MakeSID(canonical, attempt);
      case EMaskKind::kIPv6:
         return fStandIns.MakeIPv6(canonical, attempt);
      default:
         return fStandIns.MakeIPv4(canonical, attempt);
   }
}

void TMask::AssignIdentifiers()
{
   for (const std::string& version : fVersions)
      fIdentifiers.erase({EMaskKind::kIPv4, version});
   // What names no machine has itself as its stand-in, and is none of the
   // originals.
   for (auto each = fIdentifiers.begin(); each != fIdentifiers.end();) {
      const bool isPlain =
         MakeStandIn(each->first.first, each->first.second, 0) == each->first.second &&
         MakeStandIn(each->first.first, each->first.second, 1) == each->first.second;
      each = isPlain ? fIdentifiers.erase(each) : std::next(each);
   }
   AssignIPv4();
   for (auto& [name, standIn] : fIdentifiers) {
      for (unsigned attempt = 0; standIn.empty(); ++attempt) {
         const std::string made = MakeStandIn(name.first, name.second, attempt);
         const bool isFree = fIdentifiers.count({name.first, made}) == 0;
         if (isFree && fTaken.insert(made).second)
            standIn = made;
      }
   }
   for (const auto& [name, standIn] : fIdentifiers)
      fHexIdentifiers.emplace(name.second, &standIn);
}

/// One attempt for all: subnets hold together only so.
void TMask::AssignIPv4()
{
   const auto begin = fIdentifiers.lower_bound({EMaskKind::kIPv4, ""});
   const auto end = fIdentifiers.lower_bound({EMaskKind::kIPv6, ""});
   for (unsigned attempt = 0;; ++attempt) {
      bool isFree = true;
      for (auto each = begin; each != end; ++each) {
         each->second = fStandIns.MakeIPv4(each->first.second, attempt);
         isFree = isFree && fIdentifiers.count({EMaskKind::kIPv4, each->second}) == 0;
      }
      if (isFree || attempt == kMostIPv4Attempts)
         break;
   }
   // A small range that is nearly full: those few leave their subnet.
   for (auto each = begin; each != end; ++each)
      for (unsigned attempt = kMostIPv4Attempts;
           fIdentifiers.count({EMaskKind::kIPv4, each->second}) > 0; ++attempt)
         each->second = fStandIns.MakeIPv4(each->first.second, attempt);
}

void TMask::AssignLiterals()
{
   for (const auto& each : fLiterals) {
      fSearch.Add(each.first, each.second.fWhere, static_cast<std::uint32_t>(fByNumber.size()));
      fByNumber.push_back(&each);
   }
   for (auto& [original, literal] : fLiterals) {
      const std::string lower = Lower(original);
      const bool hasCases = IsOfNames(literal.fKind) || literal.fKind == EMaskKind::kTerm;
      std::string base = hasCases ? lower : original;
      for (unsigned attempt = 0; attempt < kMostAttempts && literal.fStandIn.empty(); ++attempt) {
         if (attempt == kMostOfOneShape)
            base += base;
         std::string made = literal.fKind == EMaskKind::kDomain
                               ? fStandIns.MakeDomain(base, attempt)
                               : fStandIns.MakeText(base, attempt);
         if (hasCases)
            made = CapitalizeLike(std::move(made), original);
         if (IsFree(made)) {
            fTaken.insert(made);
            literal.fStandIn = made;
         }
      }
      if (literal.fStandIn.empty())
         throw std::runtime_error(fmt::format("no stand-in is left for a {} of {} bytes",
                                              GetMaskKindName(literal.fKind), original.size()));
   }
}

/// "org.example" in the name of an iSCSI node, where the domain is example.org.
void TMask::AddReversedDomains()
{
   std::vector<std::pair<std::string, std::string>> reversed;
   for (const auto& [original, literal] : fLiterals)
      if (literal.fKind == EMaskKind::kDomain && original.find('.') != std::string::npos)
         reversed.emplace_back(ReverseLabels(original), ReverseLabels(literal.fStandIn));
   for (const auto& [original, standIn] : reversed) {
      const auto [known, isNew] =
         fLiterals.emplace(original, TLiteral{EMaskKind::kDomain, EWhere::kWholeWords, standIn});
      if (!isNew)
         continue;
      fSearch.Add(known->first, EWhere::kWholeWords, static_cast<std::uint32_t>(fByNumber.size()));
      fByNumber.push_back(&*known);
   }
}

/// Whether the text is no original, holds none, and stands for nothing yet.
bool TMask::IsFree(const std::string& text) const
{
   if (fTaken.count(text) > 0)
      return false;
   for (std::size_t at = 0; at < text.size(); ++at)
      if (fSearch.Match(text, at, true).fSize > 0)
         return false;
   return true;
}

}  // namespace NZANQSX20
