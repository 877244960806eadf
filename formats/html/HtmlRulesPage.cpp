#include <string>

#include "common/health/HealthRules.h"
#include "common/health/Quantities.h"
#include "html/HtmlHealth.h"
#include "html/HtmlState.h"

namespace {

constexpr const char* kTitle = "Rules of health";

std::string JoinWords(const TStateWords& words, EState state)
{
   std::string text;
   for (const TStateWord& word : words)
      if (word.fState == state)
         text += (text.empty() ? "" : ", ") + std::string(word.fWord);
   return text;
}

std::string DescribeLimit(const THealthRule& rule)
{
   const std::string limit = MakeNumberText(rule.fLimit);
   switch (rule.fJudgement) {
      case EJudgement::kUsedSpace:
         return "Attention from " + limit + " % of " + rule.fOther + " used on.";
      case EJudgement::kPercent:
         return "Attention from " + limit + " % on.";
      case EJudgement::kReading:
         return "Failed beyond a critical limit of the sensor, attention beyond a warning limit. "
                "A reading without limits is not judged.";
      case EJudgement::kAttributes:
         return "Failed at or below the threshold, attention where the worst value was. An "
                "attribute without a threshold is not judged.";
      case EJudgement::kRawCount:
         return "Attention above 0.";
      case EJudgement::kErrorShare:
         return "Attention from one in " + limit + " of " + rule.fOther + " on.";
      case EJudgement::kPresent:
         return "Unknown where it is empty.";
      case EJudgement::kWords:
      case EJudgement::kName:
         break;
   }
   std::string text;
   for (const EState state : {EState::kFailed, EState::kAttention, EState::kOk}) {
      const std::string words = JoinWords(rule.fWords, state);
      if (!words.empty())
         text += std::string(text.empty() ? "" : " ") + std::string(GetStateWord(state)) + ": " +
                 words + ".";
   }
   return text;
}

std::string DescribeCondition(const THealthRule& rule)
{
   if (*rule.fWhere == '\0')
      return {};
   const std::string words = JoinWords(rule.fOnly, EState::kNone);
   return std::string(rule.fIsExcept ? " Not where " : " Only where ") + rule.fWhere +
          " is one of " + words + ".";
}

void WriteRule(THtmlSink& out, const THealthRule& rule)
{
   const bool isAny = rule.fProperty == std::string_view("*");
   out << "<tr><th scope=\"row\">"_html << TText{GetSubsystemName(rule.fSubsystem)}
       << "</th><td>"_html;
   if (isAny)
      out << "every value"_html;
   else
      out << "<span class=\"mono\">"_html << TText{rule.fClass} << ".<wbr>"_html
          << TText{rule.fProperty} << "</span>"_html;
   out << "</td><td>"_html << TText{DescribeLimit(rule) + DescribeCondition(rule)}
       << "</td></tr>\n"_html;
}

}  // namespace

void WriteRulesPage(THtmlSink& out, const THtmlSite& site)
{
   WriteFrameBegin(out, site, kTitle, kRulesFile);
   out
      << "<header class=\"page-head\">\n<p class=\"crumbs\"><a href=\""_html
      << TFileUrl{kFrontPageFile} << "\"><bdi>"_html << TText{site.fFacts.GetName()}
      << "</bdi></a></p>\n<div class=\"page-title\"><h1>"_html << TText{kTitle}
      << "</h1></div>\n<p class=\"page-meta\">The verdicts of the front page come from these rules "
         "and from nothing else. Words count alike in either case; a word that no rule knows is "
         "unknown, and an empty value is not judged.</p>\n</header>\n<div class=\"sheet\">\n"
         "<section class=\"block\" id=\"t1\">\n<div class=\"scroll\" role=\"group\" tabindex=\"0\" "
         "aria-label=\"Rules\">\n<table class=\"grid cols\">\n<caption "
         "class=\"vh\">Rules</caption>\n<colgroup><col class=\"w-15\"><col class=\"w-25\"><col "
         "class=\"w-60\"></colgroup>\n<thead>\n<tr><th scope=\"col\">Subsystem</th><th "
         "scope=\"col\">Value</th><th scope=\"col\">Verdict</th></tr>\n</thead>\n<tbody>\n"_html;
   for (const THealthRule& rule : GetHealthRules())
      if (rule.fSubsystem != ESubsystem::kNone && rule.fJudgement != EJudgement::kName)
         WriteRule(out, rule);
   out << "</tbody>\n</table>\n</div>\n</section>\n</div>\n"_html;
   WriteFrameEnd(out, site, kTitle);
}
