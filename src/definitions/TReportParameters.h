#pragma once

#include <limits>
#include <string>
#include <vector>

#include "CIMStore.h"
#include "QSXExport.h"

/// A report described by data: its page and its tables. A plain value that knows nothing of the
/// store.
class QSX_API TReportParameters
{
public:
   class TInstanceSorter;
   class TReportProperty;
   class TReportClass;

   void SetShowReportTitle(bool show) { fShowReportTitle = show; }

   bool ShowReportTitle() const { return fShowReportTitle; }

   std::vector<TReportClass>& GetClasses() { return fClasses; }

   const std::vector<TReportClass>& GetClasses() const { return fClasses; }

   void SetClasses(std::vector<TReportClass> classes);

   /// The name of the report's page and its key in the index.
   std::string GetLinkName() const { return fLinkName; }

   void SetLinkName(std::string linkName) { fLinkName = std::move(linkName); }

   /// The display name.
   std::string GetReportName() const { return fReportName; }

   void SetReportName(std::string reportName) { fReportName = std::move(reportName); }

   void SetLinkSortable() { fLinkSortable = true; }

   bool GetLinkSortable() const { return fLinkSortable; }

   /// The number before the first "%": "25%" gives 25. Missing: 0 where no number leads the text.
   static int ConvertPercent(std::string text);

private:
   bool fShowReportTitle = true;
   std::string fLinkName;
   std::string fReportName;
   std::vector<TReportClass> fClasses;
   bool fLinkSortable = false;
};

/// The ordering of a table's instances: a list of keys, the most significant first.
///
/// It reads the store at each comparison; to sort many instances use SortInstances, which reads
/// each key once and is safe with texts that compare in a circle.
class QSX_API TReportParameters::TInstanceSorter
{
public:
   struct TPropertyInfo
   {
      std::string fProperty;
      bool fAscending = true;
      /// Text is compared by the numbers embedded in it.
      bool fEmbeddedNumeric = false;
   };

   /// Appends a key. Keys are never merged: a property may stand twice.
   void AddProperty(std::string property, bool ascending, bool embeddedNumeric);

   bool IsEmpty() const { return fKeys.empty(); }

   void Reset() { fKeys.clear(); }

   const std::vector<TPropertyInfo>& GetKeys() const { return fKeys; }

   /// Whether a goes before b. Throws: what Compare throws.
   bool operator()(boost::shared_ptr<ICIMInstance> a, boost::shared_ptr<ICIMInstance> b);

   /// -1, 0 or 1. Throws: TQSXException when a property can't be read.
   int Compare(TPropertyInfo& key, boost::shared_ptr<ICIMInstance> a,
               boost::shared_ptr<ICIMInstance> b);

   /// Whether the text holds nothing but decimal digits; an empty text counts.
   static bool IsNumber(const std::string& text);

   /// Appends each run of digits in the text as a number.
   static void TokenizeEmbeddedNumeric(std::string& text, std::vector<int>& numbers);

   /// Converts in place and gives a copy.
   static std::string uppercaseString(std::string& text);

   /// Sorts the instances by the keys, each key of an instance read at most once.
   ///
   /// Shape:  as std::sort leaves them; up to 16 equal instances keep their order.
   /// Throws: what a read throws; the instances are then in the order in which they came.
   void SortInstances(std::vector<boost::shared_ptr<ICIMInstance>>& instances) const;

private:
   std::vector<TPropertyInfo> fKeys;
};

/// One column or row of a table.
class QSX_API TReportParameters::TReportProperty
{
public:
   /// What joins the elements of an array; a concrete writer gives the text of each.
   enum ArrayValueSeparator : int
   {
      kSeparatorDefault = 0,
      kSeparatorBlank = 1,
      kSeparatorSemicolon = 2,
      kSeparatorSlash = 3
   };

   TReportProperty() = default;
   TReportProperty(std::string property, std::string columnWidth, std::string associationClass,
                   std::string associationTarget, std::string labelOverride);

   void SetProperty(std::string property) { fProperty = std::move(property); }

   void SetColumnWidth(std::string width) { fColumnWidth = std::move(width); }

   void SetAssociationTarget(std::string target) { fAssociationTarget = std::move(target); }

   void SetAssociationClass(std::string assocClass) { fAssociationClass = std::move(assocClass); }

   void SetSecondaryAssociationTarget(std::string target)
   {
      fSecondaryAssociationTarget = std::move(target);
   }

   void SetLabelOverride(std::string label) { fLabelOverride = std::move(label); }

   void SetArrayValueSeparator(ArrayValueSeparator separator) { fArrayValueSeparator = separator; }

   void SetMonospaced() { fMonospaced = true; }

   bool IsMonospaced() const { return fMonospaced; }

   bool HasAssociationTarget() const { return !fAssociationTarget.empty(); }

   bool HasAssociationClass() const { return !fAssociationClass.empty(); }

   bool HasSecondaryAssociationTarget() const { return !fSecondaryAssociationTarget.empty(); }

   bool HasLabelOverride() const { return !fLabelOverride.empty(); }

   std::string GetProperty() const { return fProperty; }

   std::string GetColumnWidth() const { return fColumnWidth; }

   std::string GetAssociationTarget() const { return fAssociationTarget; }

   std::string GetAssociationClass() const { return fAssociationClass; }

   std::string GetSecondaryAssociationTarget() const { return fSecondaryAssociationTarget; }

   std::string GetLabelOverride() const { return fLabelOverride; }

   ArrayValueSeparator GetArrayValueSeparator() const { return fArrayValueSeparator; }

private:
   std::string fProperty;
   std::string fColumnWidth;
   std::string fAssociationTarget;
   std::string fAssociationClass;
   std::string fSecondaryAssociationTarget;
   std::string fLabelOverride;
   ArrayValueSeparator fArrayValueSeparator = kSeparatorDefault;
   bool fMonospaced = false;
};

/// One table: a CIM class with its columns or rows.
class QSX_API TReportParameters::TReportClass
{
public:
   enum ReportStyle : int
   {
      kColumnStyle = 0,  // one header row, an instance per row
      kRowStyle = 1      // labels in the first column, an instance per column
   };

   static constexpr int kNoMaximum = std::numeric_limits<int>::max();

   std::string GetClass() const { return fClass; }

   void SetClass(std::string cimClass) { fClass = std::move(cimClass); }

   std::string GetTitle() const { return fTitle; }

   void SetTitle(std::string title);

   bool HasTitle() const { return fHasTitle; }

   /// Takes the title from the page and leaves its text.
   void ClearTitle() { fHasTitle = false; }

   void EnableSubTitle() { fSubTitle = true; }

   bool SubTitleEnabled() const { return fSubTitle; }

   std::string GetTableWidth() const { return fTableWidth; }

   void SetTableWidth(std::string width) { fTableWidth = std::move(width); }

   void SetUniqueIdProperty(std::string property) { fUniqueIdProperty = std::move(property); }

   std::string GetUniqueIdProperty() const { return fUniqueIdProperty; }

   /// How the instances of an associated table are reached from an instance of its parent.
   void SetAssociatorsFilter(const std::string& assocClass, const std::string& resultClass,
                             const std::string& role, const std::string& resultRole);

   std::string GetAssocClass() const { return fAssocClass; }

   std::string GetResultClass() const { return fResultClass; }

   std::string GetRole() const { return fRole; }

   std::string GetResultRole() const { return fResultRole; }

   bool HasAssociatedClass() const { return fHasAssociatedClass; }

   void SetAssociatedClass() { fHasAssociatedClass = true; }

   void SetReportStyle(ReportStyle style) { fReportStyle = style; }

   ReportStyle GetReportStyle() const { return fReportStyle; }

   std::string GetRowReportHeaderWidth() const { return fRowReportHeaderWidth; }

   void SetRowReportHeaderWidth(std::string width) { fRowReportHeaderWidth = std::move(width); }

   void ExcludeProps() { fExcludeProps = true; }

   bool HasExcludeProps() const { return fExcludeProps; }

   TInstanceSorter& GetInstanceSorter() { return fInstanceSorter; }

   const TInstanceSorter& GetInstanceSorter() const { return fInstanceSorter; }

   std::vector<TReportProperty>& GetProperties() { return fProperties; }

   const std::vector<TReportProperty>& GetProperties() const { return fProperties; }

   void SetProperties(std::vector<TReportProperty> properties)
   {
      fProperties = std::move(properties);
   }

   bool IsTableSortable() const { return fTableSortable; }

   void SetTableSortable() { fTableSortable = true; }

   std::vector<TReportClass>& GetAssociatedClasses() { return fAssociatedClasses; }

   const std::vector<TReportClass>& GetAssociatedClasses() const { return fAssociatedClasses; }

   void SetAssociatedClasses(std::vector<TReportClass> classes);

   int GetMaxInstancesPerTable() const { return fMaxInstancesPerTable; }

   void SetMaxInstancesPerTable(int count) { fMaxInstancesPerTable = count; }

   /// Back to the defaults, in part: class, title text, row header width, properties and associated
   /// classes stay.
   void Reset();

   /// Prints on standard output where widths do not add up. Changes nothing.
   void Validate() const;

private:
   std::string fClass;
   std::string fTitle;
   bool fHasTitle = false;
   bool fSubTitle = false;
   std::string fTableWidth = "100%";
   ReportStyle fReportStyle = kColumnStyle;
   std::string fRowReportHeaderWidth;
   std::vector<TReportProperty> fProperties;
   std::string fUniqueIdProperty;
   bool fHasAssociatedClass = false;
   std::string fAssocClass;
   std::string fResultClass;
   std::string fRole;
   std::string fResultRole;
   bool fExcludeProps = false;
   TInstanceSorter fInstanceSorter;
   bool fTableSortable = false;
   std::vector<TReportClass> fAssociatedClasses;
   int fMaxInstancesPerTable = kNoMaximum;
};
