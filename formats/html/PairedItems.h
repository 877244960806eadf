#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/ReportSink.h"
#include "html/HtmlSystems.h"

/// Brings together what a comparison tells apart by keys: instances that are missing from some
/// systems and unique to others, and look alike or are each system's only one.
///
/// Shape:   what is neither missing nor unique is handed on as it comes. Of the instances under one
///          title, those that look alike become one: missing or unique where some systems lack it,
///          a note where none does. Where each system has one instance of its own and half of its
///          values are those of most, they become one that differs. An instance of which parts are
///          missing and parts are unique becomes one that differs, too. All others follow as they
///          came.
/// Owner:   everything is the caller's. One object per page; keeps the instances of one title.
class TPairedItems final : public TPageSink
{
public:
   TPairedItems(TPageSink& page, const THtmlSystems& systems) : fPage(page), fSystems(systems) {}

   void WriteReportTitle(const std::string& title, const std::string& linkText,
                         const std::string& linkTarget) override;
   void WriteTableTitle(const TTableTitle& title) override;
   void WriteNote(const std::string& text) override;
   void BeginTable(const TTableShape& shape) override;
   void WriteRows(const TTableRows& rows) override;
   void EndTable() override;

   /// After the last piece of the page.
   void Finish() { Settle(); }

private:
   struct TItemTable
   {
      /// Missing: none where the table follows another one under the same title.
      std::optional<TTableTitle> fTitle;
      TTableShape fShape;
      TCollectedRows fRows;
   };

   /// One instance, with the tables of those associated with it.
   struct TItem
   {
      bool fIsMissing = false;
      bool fIsUnique = false;
      /// By system.
      std::vector<bool> fHas;
      std::vector<TItemTable> fTables;
      /// All texts of the tables, to tell which items look alike.
      std::string fContent;

      bool IsEverywhere() const;
      bool Take(const TItem& alike);
   };

   /// A property and what each system has for it.
   struct TPairedColumn
   {
      std::string fLabel;
      std::vector<TCell> fCells;

      bool IsAlike() const;
      bool IsMostlyAlike() const;
   };

   void BeginItem(const TComparedHeading& heading);
   void Settle();
   void MergeAlike();
   bool WriteCounterparts();
   static bool AreMostlyAlike(const std::vector<TPairedColumn>& columns);
   std::vector<TPairedColumn> FindDifferingColumns(const std::vector<const TItem*>& items) const;
   void WriteDifferences(const std::vector<TPairedColumn>& columns);
   void WriteItem(const TItem& item);
   void WriteParts(const TItem& item);
   void WriteTables(const TItem& item, bool isMarked);
   void WriteAlikeNote(const std::vector<const TItem*>& items);
   std::string JoinLabels(const TItem& item, bool thatHaveIt) const;

   TPageSink& fPage;
   const THtmlSystems& fSystems;
   std::vector<TItem> fItems;
   bool fIsItemOpen = false;
   std::optional<TTableTitle> fItemTitle;
};
