#pragma once

#include <vector>

#include "common/health/Health.h"

/// How a rule judges.
enum class EJudgement : unsigned char
{
   kWords,       // the words of the value
   kUsedSpace,   // the value is what is free of fOther: attention from fLimit percent used on
   kPercent,     // attention from fLimit percent on
   kReading,     // a sensor's reading, by the limits that its instance tells
   kAttributes,  // drive attributes by their thresholds: failed at or below
   kRawCount,    // attention above 0; only where fOther is one of fOnly
   kErrorShare,  // errors by packets (fOther): attention from one in fLimit on
   kPresent,     // unknown where the value is empty
   kName         // no verdict: the value names the thing that the following tables are about
};

/// One rule. What it looks at is a value as a page shows it: the property of a class, in a table of
/// a report. A value that no rule understands is unknown, an empty one is not judged.
struct THealthRule
{
   ESubsystem fSubsystem;
   EJudgement fJudgement;
   /// The link name of the report, and how the title of the table begins.
   const char* fPage;
   const char* fTitle;
   const char* fClass;
   /// "*": every value of the table.
   const char* fProperty;
   /// What is looked at, in the singular.
   const char* fNoun;
   /// The thing at the begin of a sentence. "{Name}" stands for the text of that property, "{name}"
   /// for what a kName rule read last; a part in brackets falls away when its property is empty.
   const char* fThing;
   TStateWords fWords = {};
   double fLimit = 0;
   /// The property of a comparison.
   const char* fOther = "";
   /// A property and the words for it, one of which it must have (or none, with fIsExcept).
   const char* fWhere = "";
   TStateWords fOnly = {};
   bool fIsExcept = false;
   /// How the sentence goes on: "predicts its failure"; "{value}" stands for the value. Missing:
   /// empty, and the word goes by itself.
   const char* fPredicate = "";
};

/// How a sentence goes on with a word of urgency: "has failed". Missing: empty where "is" and the
/// word will do.
std::string_view FindPhrase(std::string_view word);

const std::vector<THealthRule>& GetHealthRules();

/// What a kernel says of broken hardware or data: a part of its message.
struct TKernelMessage
{
   std::string_view fPart;
   /// Messages with this part, too, are harmless. Missing: empty.
   std::string_view fExcept;
};

const std::vector<TKernelMessage>& GetKernelMessages();
