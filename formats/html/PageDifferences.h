#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "common/ReportSink.h"
#include "html/HtmlSystems.h"

/// A value that is not that of most systems, and who has it.
struct TOutlierValue
{
   std::string fText;
   std::vector<std::size_t> fSystems;
};

/// One thing in which most systems agree and some stand apart. Of two systems, the base is most.
struct TOutlier
{
   /// The instance, as its first value names it, and the title it stands under.
   std::string fItem;
   std::string fSection;
   /// Missing: empty where the instance itself is missing or unique.
   std::string fProperty;
   std::string fMajority;
   /// How many systems have it.
   std::size_t fMajorityCount = 0;
   std::vector<TOutlierValue> fValues;
   /// Where on the page.
   std::size_t fFile = 0;
   unsigned fTable = 0;

   /// The one system that stands apart. Missing: THtmlSystems::kNone where several do.
   std::size_t GetSystem() const;
};

/// What differs on a page. Units: instances.
struct TPageDifferences
{
   /// More outliers of a page than these are counted only.
   static constexpr std::size_t kMostOutliers = 10;

   std::uint64_t fDiffer = 0;
   std::uint64_t fMissing = 0;
   std::uint64_t fUnique = 0;
   /// Not counted with them: what the base has and nobody lacks or has otherwise.
   std::uint64_t fSame = 0;
   /// How many of them set one system apart, by system.
   std::vector<std::uint64_t> fApart;
   std::vector<TOutlier> fOutliers;

   std::uint64_t GetCount() const { return fDiffer + fMissing + fUnique; }

   /// The system that all of them set apart. Missing: THtmlSystems::kNone.
   std::size_t FindApart() const;
};

/// Counts what differs on a page from the calls that write it: a heading for each instance that
/// differs, is missing or is unique, and the tables below it.
///
/// Owner: everything is the caller's. One object per page.
class TDifferenceCounter
{
public:
   TDifferenceCounter(const THtmlSystems& systems, TPageDifferences& page);

   void OnTitle(const TTableTitle& title);
   void OnTable(const TTableShape& shape);
   void OnRows(const TTableRows& rows);
   /// The number of the table on its page.
   void OnTableEnd(std::size_t file, unsigned table);

   void Finish() { FinishInstance(); }

private:
   void TakeName(const TTableRows& rows);
   void CompareColumns(const TTableRows& rows);
   void CompareColumn(const TTableRows& rows, std::size_t column,
                      const std::vector<std::size_t>& rowOfSystem);
   void TakeOutlier(TOutlier& found);
   void SetApartByPresence();
   void FinishInstance();

   const THtmlSystems& fSystems;
   TPageDifferences& fPage;
   std::string fSection;
   TTableShape fShape;
   TComparedHeading::EKind fKind = TComparedHeading::kOther;
   std::vector<std::size_t> fHeadingSystems;
   bool fHasName = false;

   /// The instance at hand.
   TOutlier fOutlier;
   /// Whether fOutlier is filled, and whether all columns so far set the same system apart.
   bool fHasOutlier = false;
   bool fIsOneApart = true;
};
