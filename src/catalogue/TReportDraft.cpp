#include "catalogue/TReportDraft.h"

#include <utility>
#include <vector>

using TReportClass = TReportParameters::TReportClass;
using TReportProperty = TReportParameters::TReportProperty;

TColumnDraft& TColumnDraft::As(const std::string& label)
{
   fProperty.SetLabelOverride(label);
   return *this;
}

TColumnDraft& TColumnDraft::Via(const std::string& assocClass, const std::string& target)
{
   fProperty.SetAssociationClass(assocClass);
   fProperty.SetAssociationTarget(target);
   if (!fHasWidth)
      fProperty.SetColumnWidth("");
   return *this;
}

TColumnDraft& TColumnDraft::Or(const std::string& secondaryTarget)
{
   fProperty.SetSecondaryAssociationTarget(secondaryTarget);
   return *this;
}

TColumnDraft& TColumnDraft::Monospaced()
{
   fProperty.SetMonospaced();
   return *this;
}

TColumnDraft& TColumnDraft::JoinedBy(TReportProperty::ArrayValueSeparator separator)
{
   fProperty.SetArrayValueSeparator(separator);
   return *this;
}

void TTableDraft::UseRowStyle(const std::string& tableWidth, const std::string& labelColumnWidth)
{
   fClass.SetReportStyle(TReportClass::kRowStyle);
   fClass.SetTableWidth(tableWidth);
   fClass.SetRowReportHeaderWidth(labelColumnWidth);
}

TColumnDraft TTableDraft::Column(const std::string& property)
{
   return AddColumn(property, "0%", false);
}

TColumnDraft TTableDraft::Column(const std::string& property, const std::string& width)
{
   return AddColumn(property, width, true);
}

TColumnDraft TTableDraft::AddColumn(const std::string& property, const std::string& width,
                                    bool hasWidth)
{
   std::vector<TReportProperty>& properties = fClass.GetProperties();
   properties.emplace_back(property, width, "", "", "");
   return TColumnDraft(properties.back(), hasWidth);
}

TTableDraft& TTableDraft::SubTable(const std::string& cimClass, const std::string& assocClass)
{
   fClass.SetAssociatedClass();
   TTableDraft& table = fSubTables.emplace_back(cimClass);
   table.fClass.SetAssociatorsFilter(assocClass, cimClass, "", "");
   return table;
}

TReportClass TTableDraft::Finish() const
{
   TReportClass finished = fClass;
   std::vector<TReportClass> subTables;
   for (const TTableDraft& table : fSubTables)
      subTables.push_back(table.Finish());
   finished.SetAssociatedClasses(std::move(subTables));
   return finished;
}

TReportDraft::TReportDraft(const std::string& linkName, const std::string& reportName)
{
   fParameters.SetLinkName(linkName);
   fParameters.SetReportName(reportName);
}

TReportParameters TReportDraft::Finish() const
{
   TReportParameters finished = fParameters;
   std::vector<TReportClass> tables;
   for (const TTableDraft& table : fTables)
      tables.push_back(table.Finish());
   finished.SetClasses(std::move(tables));
   return finished;
}
