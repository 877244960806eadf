#include "html/HtmlHealth.h"

#include <algorithm>

#include "html/HtmlState.h"

namespace {

/// More findings of a subsystem than these are behind a switch.
constexpr std::size_t kShownFindings = 3;

void WriteSentence(THtmlSink& out, const THealth& health)
{
   const std::size_t failed = health.CountSubsystems(EState::kFailed);
   const std::size_t attention = health.CountSubsystems(EState::kAttention);
   if (failed > 0)
      out << TCount{failed}
          << (failed == 1 ? " subsystem has failed"_html : " subsystems have failed"_html);
   if (failed > 0 && attention > 0)
      out << ", "_html;
   if (attention > 0)
      out << TCount{attention}
          << (failed > 0       ? (attention == 1 ? " needs attention"_html : " need attention"_html)
              : attention == 1 ? " subsystem needs attention"_html
                               : " subsystems need attention"_html);
   if (failed > 0 || attention > 0)
      return;
   if (health.CountSubsystems(EState::kOk) > 0)
      out << "No value that was looked at tells a fault"_html;
   else
      out << "No value to judge by was collected"_html;
}

void WriteTallyEntry(THtmlSink& out, const THealth& health, EState state, TMarkup word)
{
   const std::size_t count = health.CountSubsystems(state);
   if (count == 0)
      return;
   out << "<span class=\"state "_html << GetStateColour(state) << "\">"_html;
   WriteStateShape(out, state);
   out << TCount{count} << " "_html << word << "</span>\n"_html;
}

class THealthTable
{
public:
   THealthTable(THtmlSink& out, const THtmlSite& site, const THealth& health)
      : fOut(out), fSite(site), fHealth(health)
   {}

   void Write()
   {
      fOut << "<table class=\"health\">\n<caption class=\"vh\">Health by subsystem, the worst "
              "first</caption>\n<thead><tr><th scope=\"col\" class=\"c-state\">State</th><th "
              "scope=\"col\">Subsystem</th><th scope=\"col\">Finding</th><th scope=\"col\">Source "
              "value</th></tr></thead>\n"_html;
      for (const ESubsystem subsystem : fHealth.GetOrder())
         WriteSubsystem(subsystem);
      fOut << "</table>\n"_html;
   }

private:
   void WriteSubsystem(ESubsystem subsystem)
   {
      const TSubsystemHealth& health = fHealth.Get(subsystem);
      const std::vector<TFinding>& findings = health.fFindings;
      const bool hasFurther = findings.size() > kShownFindings;
      const std::uint64_t lost =
         health.GetCount() - std::min<std::uint64_t>(health.GetCount(), findings.size());
      const std::size_t rows = findings.size() + (hasFurther ? 1 : 0) + (lost > 0 ? 1 : 0);
      fTellsStates = !findings.empty() && findings.front().fState != findings.back().fState;
      fOut << "<tbody class=\""_html
           << ChooseByState(health.fState, "has-failed"_html, "has-attention"_html, "is-quiet"_html)
           << "\">\n"_html;
      for (std::size_t i = 0; i < findings.size(); ++i) {
         if (i == kShownFindings)
            WriteSwitch(subsystem, health.GetCount() - kShownFindings);
         fOut << (i < kShownFindings ? "<tr>"_html : "<tr class=\"further\">"_html);
         if (i == 0)
            WriteState(subsystem, health.fState, rows);
         WriteFinding(findings[i]);
         fOut << "</tr>\n"_html;
      }
      if (lost > 0)
         WriteLost(lost);
      fOut << "</tbody>\n"_html;
   }

   /// The rows below it are seen while it is ticked, and on paper.
   void WriteSwitch(ESubsystem subsystem, std::uint64_t count)
   {
      fOut << "<tr class=\"more\"><td colspan=\"2\"><label><input type=\"checkbox\" "
              "class=\"vh\"><span class=\"if-shut\">and "_html
           << TCount{count} << " more</span><span class=\"if-open\">only the first "_html
           << TCount{kShownFindings} << "</span><span class=\"vh\"> findings: "_html
           << TText{GetSubsystemName(subsystem)} << "</span></label></td></tr>\n"_html;
   }

   void WriteLost(std::uint64_t count)
   {
      fOut << "<tr class=\"further\"><td class=\"c-finding\" colspan=\"2\">"_html << TCount{count}
           << " more are only counted; the reports mark them.</td></tr>\n"_html;
   }

   void WriteState(ESubsystem subsystem, EState state, std::size_t rows)
   {
      fOut << "<td class=\"c-state\""_html;
      WriteSpan(rows);
      fOut << "><span class=\"state "_html << GetStateColour(state) << "\">"_html;
      WriteStateShape(fOut, state);
      fOut << TText{GetStateWord(state)} << "</span></td><th scope=\"rowgroup\""_html;
      WriteSpan(rows);
      fOut << ">"_html << TText{GetSubsystemName(subsystem)} << "</th>"_html;
   }

   void WriteSpan(std::size_t rows)
   {
      if (rows > 1)
         fOut << " rowspan=\""_html << TNumber{rows} << "\""_html;
   }

   void WriteFinding(const TFinding& finding)
   {
      fOut << "<td class=\"c-finding\">"_html;
      if (fTellsStates)
         WriteStateGlyph(fOut, finding.fState);
      fOut << TText{finding.fText} << "</td><td class=\"c-source\">"_html;
      WriteSource(finding, finding.fSource);
      fOut << "</td>"_html;
   }

   void WriteSource(const TFinding& finding, const std::string& text)
   {
      const bool isLinked =
         finding.fPlace.fPage < fSite.fPages.size() || finding.fOwnPlace != EOwnPlace::kNone;
      if (!isLinked) {
         fOut << TText{text};
         return;
      }
      fOut << "<a href=\""_html;
      WritePlaceUrl(fOut, fSite, finding);
      fOut << "\">"_html << TText{text} << "</a>"_html;
   }

   THtmlSink& fOut;
   const THtmlSite& fSite;
   const THealth& fHealth;
   /// Of a subsystem whose findings are not alike.
   bool fTellsStates = false;
};

}  // namespace

void WriteHealth(THtmlSink& out, const THtmlSite& site, const THealth& health)
{
   out << "<section>\n<div class=\"verdict\">\n<h2 id=\"health\">"_html;
   WriteSentence(out, health);
   out << "</h2>\n<p class=\"tally\">\n"_html;
   WriteTallyEntry(out, health, EState::kFailed, "failed"_html);
   WriteTallyEntry(out, health, EState::kAttention, "attention"_html);
   WriteTallyEntry(out, health, EState::kUnknown, "unknown"_html);
   WriteTallyEntry(out, health, EState::kOk, "OK"_html);
   out << "</p>\n</div>\n"_html;
   THealthTable(out, site, health).Write();
   out << "<p class=\"rules-note\">Each verdict follows from a rule and a value that the link "
          "shows. "
          "<a href=\""_html
       << TFileUrl{kRulesFile}
       << "\">The rules</a>. Unknown means that there was no value to judge; it does not count as "
          "failed.</p>\n</section>\n"_html;
}
