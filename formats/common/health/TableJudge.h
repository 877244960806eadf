#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "common/GridMeaning.h"
#include "common/health/HealthLedger.h"
#include "common/health/LabelledTable.h"
#include "common/health/SensorLimits.h"

/// Judges the tables of a run by the rules. What it knows of a page ends with the page.
///
/// Owner: the ledger is the caller's and outlives it.
class TTableJudge
{
public:
   TTableJudge(THealthLedger& ledger, TLabelLookup getLabel, TSensorLimitsByName limits)
      : fLedger(ledger), fGetLabel(std::move(getLabel)), fLimits(std::move(limits))
   {}

   void BeginPage(std::size_t page, const std::string& linkName);

   /// The title of the table is the last one that is no sub-title. Missing: empty.
   void BeginTable(const std::string& reportTitle, const std::string& tableTitle,
                   const TTableShape& shape);

   /// The states of cells, by row of the table and column. Units: from 1.
   using TMarks = std::map<std::pair<std::uint64_t, std::size_t>, EState>;

   /// The marks of a run of rows. table counts from 1 on its page; firstRow is the number of rows
   /// of the table ahead of the run.
   TMarks Judge(const TTableRows& rows, unsigned table, std::uint64_t firstRow);

private:
   /// One value that a rule looks at.
   struct TValue
   {
      const THealthRule& fRule;
      const TLabelledTable& fTable;
      TLabelledTable::TPosition fPosition;
      TCell fCell;
      TPagePlace fPlace;
   };

   void JudgeByRule(const THealthRule& rule, const TLabelledTable& table, unsigned number,
                    std::uint64_t firstRow, TMarks& marks);
   void JudgeValue(const TValue& value, TMarks& marks);
   bool IsConcerned(const TValue& value) const;

   void JudgeWords(const TValue& value, TMarks& marks);
   void JudgeUsedSpace(const TValue& value, TMarks& marks);
   void JudgePercent(const TValue& value, TMarks& marks);
   void JudgeReading(const TValue& value, TMarks& marks);
   void JudgeAttribute(const TValue& value, TMarks& marks);
   void JudgeRawCount(const TValue& value, TMarks& marks);
   void JudgeErrorShare(const TValue& value, TMarks& marks);
   void JudgePresence(const TValue& value, TMarks& marks);

   /// A verdict; the sentence goes on behind the thing.
   void Tell(const TValue& value, EState state, const std::function<std::string()>& makeEnd,
             TMarks& marks);
   void TellUnknown(const TValue& value, TMarks& marks);

   const std::string& GetLabel(const THealthRule& rule, std::string_view property) const;
   /// Missing: the empty text.
   std::string_view FindText(const TValue& value, std::string_view property) const;
   std::string MakeThing(const TValue& value) const;
   std::string MakeSource(const TValue& value) const;

   THealthLedger& fLedger;
   const TLabelLookup fGetLabel;
   TSensorLimitsByName fLimits;
   mutable std::map<std::pair<std::string, std::string>, std::string> fLabels;

   std::size_t fPage = 0;
   std::string fLinkName;
   std::string fReportTitle;
   std::string fTableTitle;
   std::string fName;
   TTableShape fShape;
   std::vector<const THealthRule*> fRules;
};
