#include <string>

#include "common/health/HealthRules.h"
#include "common/health/Quantities.h"
#include "html/HtmlHealth.h"
#include "html/HtmlOwnPage.h"
#include "html/HtmlState.h"

namespace {

constexpr const char* kTitle = "Rules of health";
constexpr const char* kSentence =
   "The verdicts of the front page come from these rules and from nothing else. Words count alike "
   "in either case; a word that no rule knows is unknown, and an empty value is not judged.";

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

/// Logs are judged by what they tell of severity, and by what kernels say.
void WriteKernelRule(THtmlSink& out)
{
   std::string parts;
   for (const TKernelMessage& message : GetKernelMessages())
      if (message.fExcept.empty())
         parts += (parts.empty() ? "" : ", ") + std::string(message.fPart);
   out
      << "<tr><th scope=\"row\">"_html << TText{GetSubsystemName(ESubsystem::kLogs)}
      << "</th><td>the records of each log</td><td>Attention where a record of the 24 hours before "
         "the collection is an error by its severity or, where the log tells none, a message of "
         "the kernel with one of "_html
      << TText{parts} << ". Merged logs and the collector's own are not judged.</td></tr>\n"_html;
}

}  // namespace

void WriteRulesPage(THtmlSink& out, const THtmlSite& site)
{
   WriteOwnPageBegin(out, site, kTitle, kRulesFile, kSentence);
   out << "<section class=\"block\" id=\"t1\">\n"_html;
   WriteFixedTableBegin(out, "Rules", {{"Subsystem", 15}, {"Value", 25}, {"Verdict", 60}});
   for (const THealthRule& rule : GetHealthRules())
      if (rule.fSubsystem != ESubsystem::kNone && rule.fJudgement != EJudgement::kName)
         WriteRule(out, rule);
   WriteKernelRule(out);
   WriteFixedTableEnd(out);
   out << "</section>\n"_html;
   WriteOwnPageEnd(out, site, kTitle);
}
