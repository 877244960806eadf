#include "FleetFront.h"

#include <algorithm>

#include "html/HtmlState.h"

namespace {

constexpr std::size_t kShownMachines = 3;
constexpr std::size_t kShownFirmware = 10;
constexpr std::size_t kShownVersions = 4;
/// Further ones are counted.
constexpr std::size_t kShownGaps = 1000;

void WriteTitleBlock(THtmlSink& out, const TFleet& fleet)
{
   out << "<header>\n<dl class=\"plate\">\n<div class=\"plate-name\"><dt>Fleet</dt><dd><h1>"_html
       << TText{fleet.fName} << "</h1></dd></div>\n<div><dt>Machines</dt><dd>"_html
       << TCount{fleet.fMachines.size()} << "</dd></div>\n<div><dt>Without a report</dt><dd>"_html;
   if (fleet.fGaps.empty())
      out << "none"_html;
   else
      out << "<a href=\"#gaps\">"_html << TCount{fleet.fGaps.size()} << "</a>"_html;
   out << "</dd></div>\n</dl>\n</header>\n"_html;
}

void WriteSentence(THtmlSink& out, const TFleet& fleet)
{
   const std::size_t machines = fleet.fMachines.size();
   const std::uint64_t failed = fleet.Count(EState::kFailed);
   const std::uint64_t attention = fleet.Count(EState::kAttention);
   if (failed > 0)
      out << TCount{failed} << " of "_html << TCount{machines}
          << (machines == 1 ? " machine"_html : " machines"_html)
          << (failed == 1 ? " has failed"_html : " have failed"_html);
   if (attention > 0 && failed > 0)
      out << ", "_html << TCount{attention}
          << (attention == 1 ? " needs attention"_html : " need attention"_html);
   if (attention > 0 && failed == 0)
      out << TCount{attention} << " of "_html << TCount{machines}
          << (machines == 1 ? " machine"_html : " machines"_html)
          << (attention == 1 ? " needs attention"_html : " need attention"_html);
   if (failed == 0 && attention == 0)
      out << (fleet.Count(EState::kOk) > 0
                 ? "No value that was looked at tells a fault of a machine"_html
                 : "No value to judge by was collected"_html);
}

void WriteTally(THtmlSink& out, const TFleet& fleet)
{
   out << "<p class=\"tally\">\n"_html;
   for (const EState state : {EState::kFailed, EState::kAttention, EState::kUnknown, EState::kOk}) {
      const std::uint64_t count = fleet.Count(state);
      if (count == 0)
         continue;
      out << "<span class=\"state "_html << GetStateColour(state) << "\">"_html;
      WriteStateShape(out, state);
      out << TCount{count} << " "_html << TText{GetStateWord(state)} << "</span>\n"_html;
   }
   out << "</p>\n"_html;
}

struct TTrouble
{
   ESubsystem fSubsystem;
   std::uint64_t fFailed;
   std::uint64_t fAttention;

   EState GetState() const { return fFailed > 0 ? EState::kFailed : EState::kAttention; }
};

/// The most failures first.
std::vector<TTrouble> FindTroubles(const TFleet& fleet)
{
   std::vector<TTrouble> troubles;
   for (std::size_t i = 0; i < kSubsystems; ++i) {
      const auto subsystem = static_cast<ESubsystem>(i);
      const TTrouble trouble = {subsystem, fleet.Count(subsystem, EState::kFailed),
                                fleet.Count(subsystem, EState::kAttention)};
      if (trouble.fFailed + trouble.fAttention > 0)
         troubles.push_back(trouble);
   }
   std::stable_sort(troubles.begin(), troubles.end(), [](const TTrouble& a, const TTrouble& b) {
      return std::make_pair(a.fFailed, a.fAttention) > std::make_pair(b.fFailed, b.fAttention);
   });
   return troubles;
}

/// The first machines in that state. The worst machine need not be the worst of a subsystem.
void WriteMachinesOf(THtmlSink& out, const TFleet& fleet, const TTrouble& trouble)
{
   std::size_t shown = 0;
   for (const TFleetMachine& machine : fleet.fMachines) {
      if (machine.fSubsystems[static_cast<std::size_t>(trouble.fSubsystem)] != trouble.GetState())
         continue;
      out << (shown > 0 ? ", "_html : ""_html);
      WriteMachineLink(out, machine);
      if (++shown == kShownMachines)
         break;
   }
   const std::uint64_t all = trouble.fFailed > 0 ? trouble.fFailed : trouble.fAttention;
   if (all > shown)
      out << " and "_html << TCount{all - shown} << " more"_html;
}

void WriteTrouble(THtmlSink& out, const TFleet& fleet, const TTrouble& trouble)
{
   const EState state = trouble.GetState();
   out << "<tbody class=\""_html << GetStateClass(state)
       << "\"><tr><td class=\"c-state\"><span class=\"state "_html << GetStateColour(state)
       << "\">"_html;
   WriteStateShape(out, state);
   out << TText{GetStateWord(state)} << "</span></td><th scope=\"rowgroup\">"_html
       << TText{GetSubsystemName(trouble.fSubsystem)} << "</th><td class=\"c-finding\">"_html;
   if (trouble.fFailed > 0)
      out << TCount{trouble.fFailed} << " failed"_html;
   if (trouble.fFailed > 0 && trouble.fAttention > 0)
      out << ", "_html;
   if (trouble.fAttention > 0)
      out << TCount{trouble.fAttention}
          << (trouble.fAttention == 1 ? " needs attention"_html : " need attention"_html);
   out << "</td><td class=\"c-source\">"_html;
   WriteMachinesOf(out, fleet, trouble);
   out << "</td></tr></tbody>\n"_html;
}

void WriteHealth(THtmlSink& out, const TFleet& fleet)
{
   out << "<section>\n<div class=\"verdict\">\n<h2 id=\"health\">"_html;
   WriteSentence(out, fleet);
   out << "</h2>\n"_html;
   WriteTally(out, fleet);
   out << "</div>\n"_html;
   const std::vector<TTrouble> troubles = FindTroubles(fleet);
   if (!troubles.empty()) {
      out << "<table class=\"health\">\n<caption class=\"vh\">Subsystems in trouble, the worst "
             "first</caption>\n<thead><tr><th scope=\"col\" class=\"c-state\">State</th><th "
             "scope=\"col\">Subsystem</th><th scope=\"col\">Machines</th><th "
             "scope=\"col\">Which</th></tr></thead>\n"_html;
      for (const TTrouble& trouble : troubles)
         WriteTrouble(out, fleet, trouble);
      out << "</table>\n"_html;
   }
   out << "</section>\n"_html;
}

using TFirmware = TFirmwareLevels::TFirmware;
using TLevel = TFirmwareLevels::TLevel;

/// The most common level, then those that stand apart, a row each.
void WriteOutliers(THtmlSink& out, const TFleet& fleet, const TFirmware& firmware)
{
   std::vector<const TLevel*> outliers;
   for (const TFirmwareLevels::TNumber number : firmware.fLevels)
      if (fleet.fFirmware.Get(number).fIsOutlier && outliers.size() < kShownVersions)
         outliers.push_back(&fleet.fFirmware.Get(number));
   const TLevel& common = fleet.fFirmware.Get(firmware.fLevels.front());
   const auto writeSpan = [&] {
      out << " rowspan=\""_html << TNumber{outliers.size()} << "\""_html;
   };
   out << "<tr><th scope=\"row\""_html;
   writeSpan();
   out << ">"_html << TText{firmware.fName} << "</th><td"_html;
   writeSpan();
   out << ">"_html << TText{firmware.fModel} << "</td><td class=\"majority\""_html;
   writeSpan();
   out << ">"_html << TText{common.fVersion} << "</td><td class=\"num majority\""_html;
   writeSpan();
   out << ">"_html << TCount{common.fMachines} << " of "_html << TCount{firmware.fMachines}
       << "</td>"_html;
   bool isFirst = true;
   for (const TLevel* level : outliers) {
      out << (isFirst ? ""_html : "</tr>\n<tr class=\"more\">"_html)
          << "<td class=\"outlier\">"_html << TText{level->fVersion} << "</td><td>"_html;
      WriteExamples(out, fleet, *level);
      out << "</td>"_html;
      isFirst = false;
   }
   out << "</tr>\n"_html;
}

void WriteFirmware(THtmlSink& out, const TFleet& fleet)
{
   std::vector<const TFirmware*> apart;
   std::uint64_t further = 0;
   for (const TFirmware& firmware : fleet.fFirmware.GetAll())
      if (!fleet.fFirmware.HasOutliers(firmware))
         continue;
      else if (apart.size() < kShownFirmware)
         apart.push_back(&firmware);
      else
         ++further;
   if (apart.empty())
      return;
   out << "<section>\n<div class=\"section-head\"><h2 id=\"apart\">Firmware that stands "
          "apart</h2><p>What most machines of a model have, and which have another "
          "level.</p></div>\n<div class=\"scroll\" role=\"group\" tabindex=\"0\" "
          "aria-labelledby=\"apart\">\n<table class=\"compare levels\">\n<thead><tr><th "
          "scope=\"col\">Firmware</th><th scope=\"col\">Model</th><th scope=\"col\">Majority</th>"
          "<th scope=\"col\" class=\"num\">Machines</th><th scope=\"col\">Outlier</th><th "
          "scope=\"col\">On</th></tr></thead>\n<tbody>\n"_html;
   for (const TFirmware* firmware : apart)
      WriteOutliers(out, fleet, *firmware);
   out << "</tbody>\n</table>\n</div>\n<p class=\"rules-note\"><a href=\""_html
       << TFileUrl{GetFileName(EFleetPage::kFirmware, 0)} << "\">All firmware levels</a>"_html;
   if (further > 0)
      out << ", with outliers of "_html << TCount{further} << " more"_html;
   out << ".</p>\n</section>\n"_html;
}

}  // namespace

void WriteFleetFront(THtmlSink& out, const TFleetSite& site)
{
   WriteTitleBlock(out, site.fFleet);
   out << "<div class=\"front\">\n"_html;
   WriteHealth(out, site.fFleet);
   WriteFirmware(out, site.fFleet);
   out << "</div>\n"_html;
}

void WriteFleetGaps(THtmlSink& out, const TFleet& fleet)
{
   if (fleet.fGaps.empty())
      return;
   const std::size_t shown = std::min(kShownGaps, fleet.fGaps.size());
   out << "<section>\n<div class=\"section-head\"><h2 id=\"gaps\">Without a report</h2><p>"_html
       << TCount{fleet.fGaps.size()} << (fleet.fGaps.size() == 1 ? " place"_html : " places"_html);
   if (shown < fleet.fGaps.size())
      out << ", of which "_html << TCount{shown} << " stand here"_html;
   out << ".</p></div>\n<table class=\"compare levels\">\n<caption class=\"vh\">Without a "
          "report</caption>\n<thead><tr><th scope=\"col\">Place</th><th "
          "scope=\"col\">Reason</th></tr></thead>\n<tbody>\n"_html;
   for (std::size_t i = 0; i < shown; ++i)
      out << "<tr><th scope=\"row\">"_html << TText{fleet.fGaps[i].fPlace} << "</th><td>"_html
          << TText{fleet.fGaps[i].fReason} << "</td></tr>\n"_html;
   out << "</tbody>\n</table>\n</section>\n"_html;
}
