#pragma once

#include <list>
#include <string>

#include "definitions/TReportParameters.h"

/// One column or row of a table in the making, to be told the rest in the same statement.
class TColumnDraft
{
public:
   TColumnDraft(TReportParameters::TReportProperty& property, bool hasWidth)
      : fProperty(property), fHasWidth(hasWidth)
   {}

   /// The label, in place of the declared one.
   TColumnDraft& As(const std::string& label);
   /// The property is one of the target, reached through the association.
   TColumnDraft& Via(const std::string& assocClass, const std::string& target);
   /// A second target, where the first gives no property.
   TColumnDraft& Or(const std::string& secondaryTarget);
   TColumnDraft& Monospaced();
   TColumnDraft& JoinedBy(TReportParameters::TReportProperty::ArrayValueSeparator separator);

private:
   TReportParameters::TReportProperty& fProperty;
   bool fHasWidth;
};

/// One table of a report in the making. What is not told has its default; nothing passes on from
/// one table to the next.
class TTableDraft
{
public:
   explicit TTableDraft(const std::string& cimClass) { fClass.SetClass(cimClass); }

   TTableDraft(const std::string& cimClass, const std::string& title) : TTableDraft(cimClass)
   {
      fClass.SetTitle(title);
   }

   /// Labels in the first column, an instance per column.
   void UseRowStyle(const std::string& tableWidth, const std::string& labelColumnWidth);

   void SetWidth(const std::string& width) { fClass.SetTableWidth(width); }

   /// The label column's width on a column table, which shows none.
   void SetHeaderWidth(const std::string& width) { fClass.SetRowReportHeaderWidth(width); }

   /// The most instances in one grid.
   void Limit(int instances) { fClass.SetMaxInstancesPerTable(instances); }

   /// The reader may sort the rows.
   void MakeSortable() { fClass.SetTableSortable(); }

   void IdentifyBy(const std::string& property) { fClass.SetUniqueIdProperty(property); }

   /// Appends a sort key, ascending. Some tables name a key twice, or one that their class lacks;
   /// that is meant, and harmless to the order.
   void SortBy(const std::string& property)
   {
      fClass.GetInstanceSorter().AddProperty(property, true, false);
   }

   /// The same, comparing the numbers embedded in the text.
   void SortByNumbersIn(const std::string& property)
   {
      fClass.GetInstanceSorter().AddProperty(property, true, true);
   }

   /// Missing: without a width, the column has "0%", or the empty text when it goes through an
   /// association.
   TColumnDraft Column(const std::string& property);
   TColumnDraft Column(const std::string& property, const std::string& width);

   /// A table of the instances of cimClass that the association joins to each instance of this one.
   /// Owner: this draft's, as long as it lives.
   TTableDraft& SubTable(const std::string& cimClass, const std::string& assocClass);

   TReportParameters::TReportClass Finish() const;

private:
   TColumnDraft AddColumn(const std::string& property, const std::string& width, bool hasWidth);

   TReportParameters::TReportClass fClass;
   // Lists, so that the references handed out stay good.
   std::list<TTableDraft> fSubTables;
};

/// A report definition in the making: its tables are told one after the other, each on its own.
class TReportDraft
{
public:
   TReportDraft(const std::string& linkName, const std::string& reportName);

   void HideTitle() { fParameters.SetShowReportTitle(false); }

   void MakeLinkSortable() { fParameters.SetLinkSortable(); }

   /// The next table of the page, without a title. Owner: this draft's, as long as it lives.
   TTableDraft& Table(const std::string& cimClass) { return fTables.emplace_back(cimClass); }

   TTableDraft& Table(const std::string& cimClass, const std::string& title)
   {
      return fTables.emplace_back(cimClass, title);
   }

   TReportParameters Finish() const;

private:
   TReportParameters fParameters;
   std::list<TTableDraft> fTables;
};
