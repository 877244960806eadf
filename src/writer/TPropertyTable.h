#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "writer/InstanceAccess.h"
#include "writer/TGridLayout.h"
#include "writer/ValueText.h"

/// What a column asks of the store and of its cells, taken from the definition once per table.
struct TTableColumn
{
   TTableColumn(const TReportParameters::TReportProperty& property, TValueText valueText)
      : fProperty(property.GetProperty()),
        fAssocClass(property.GetAssociationClass()),
        fAssocTarget(property.GetAssociationTarget()),
        fSecondaryTarget(property.GetSecondaryAssociationTarget()),
        fSeparator(property.GetArrayValueSeparator()),
        fMonospaced(property.IsMonospaced()),
        fValueText(std::move(valueText))
   {}

   /// Appends the properties that the column shows of the instance.
   void AddProperties(const boost::shared_ptr<ICIMInstance>& instance,
                      TProperties& properties) const
   {
      ::AddProperties(instance, fProperty, fAssocClass, fAssocTarget, properties);
   }

   /// The same by way of the secondary target, where there is one.
   void AddSecondaryProperties(const boost::shared_ptr<ICIMInstance>& instance,
                               TProperties& properties) const
   {
      if (!fSecondaryTarget.empty())
         ::AddProperties(instance, fProperty, "", fSecondaryTarget, properties);
   }

   std::string fProperty;
   std::string fAssocClass;
   std::string fAssocTarget;
   std::string fSecondaryTarget;
   TReportParameters::TReportProperty::ArrayValueSeparator fSeparator;
   bool fMonospaced;
   TValueText fValueText;
};

/// Whether one of the properties has a value that a cell can show.
inline bool AnyHasValue(const TProperties& properties)
{
   return std::any_of(properties.begin(), properties.end(),
                      [](const auto& property) { return property->HasValue(); });
}

/// A table of TWriter or TWriter_vmwesxi: its labels, columns and sub-tables come about alike. How
/// a cell comes to its text lies with the class that derives from it.
///
/// Owner: the writer and the context stay the caller's and are used by Write alone.
template <typename TWriterType>
class TPropertyTable : public TGridLayout
{
public:
   TPropertyTable(TWriterType& writer, const TReportClass& reportClass, const TInstances& instances,
                  bool expandAssociations, bool marked, const TContext& context,
                  TValueText::EDateTimeRule dateTimeRule)
      : TGridLayout(reportClass, instances, expandAssociations, marked),
        fWriter(writer),
        fContext(context),
        fExpandAssociations(expandAssociations),
        fMarked(marked)
   {
      const TValueText valueText = MakeValueText(writer, dateTimeRule);
      for (const auto& property : reportClass.GetProperties())
         fColumns.emplace_back(property, valueText);
   }

protected:
   /// rowIsNA is false for the first cell of a row and goes from cell to cell.
   virtual void FillCell(TTableCell& cell, TTableColumn& column,
                         const boost::shared_ptr<ICIMInstance>& instance, bool isFirst,
                         bool& rowIsNA) = 0;

   TWriterType& fWriter;

private:
   void FillLabels(TTableGrid& grid) final
   {
      const boost::shared_ptr<ICIMClass> cimClass = fInstances.front()->GetClass({});
      const auto& properties = fReportClass.GetProperties();
      for (std::size_t i = 0; i < properties.size(); ++i)
         GetCell(grid, 0, i).fText =
            fWriter.GetTableHeaderLabel(*cimClass, properties[i], fContext);
   }

   void FillRow(TTableGrid& grid, int row, const boost::shared_ptr<ICIMInstance>& instance) final
   {
      bool rowIsNA = false;
      for (std::size_t i = 0; i < fColumns.size(); ++i)
         FillCell(GetCell(grid, row, i), fColumns[i], instance, i == 0, rowIsNA);
   }

   void WriteGrid(TTableGrid& grid) final { fWriter.WriteGrid(&grid); }

   void WriteAssociatedTables(const boost::shared_ptr<ICIMInstance>& instance) final
   {
      for (const TReportClass& associated : fReportClass.GetAssociatedClasses()) {
         TInstances instances = ReadAssociatedInstances(instance, associated);
         if (!instances.empty())
            fWriter.WriteTable(associated, std::move(instances), fExpandAssociations, fMarked,
                               fContext);
      }
   }

   const TContext& fContext;
   const bool fExpandAssociations;
   const bool fMarked;
   std::vector<TTableColumn> fColumns;
};
