#include "hypervisor/TWriter_vmwesxi.h"

#include <utility>

#include "writer/ReportTables.h"
#include "writer/TPropertyTable.h"

namespace {

class THypervisorTable : public TPropertyTable<TWriter_vmwesxi>
{
public:
   THypervisorTable(TWriter_vmwesxi& writer, const TReportClass& reportClass,
                    const TInstances& instances, bool expandAssociations, bool marked,
                    const TContext& context)
      : TPropertyTable(writer, reportClass, instances, expandAssociations, marked, context,
                       TValueText::kQualifierRequired)
   {}

private:
   void FillCell(TTableCell& cell, TTableColumn& column,
                 const boost::shared_ptr<ICIMInstance>& instance, bool isFirst,
                 bool& rowIsNA) override
   {
      TProperties properties;
      column.AddProperties(instance, properties);
      const bool anyValue = AnyHasValue(properties);

      cell.fMonospaced = column.fMonospaced;
      const std::string separator = fWriter.GetArrayValueSeparatorText(column.fSeparator);
      cell.fText = column.fValueText.Make(properties, separator, false);
      // The text stays what it is: of the secondary target only a failed walk shows, in the log.
      if (properties.empty())
         column.AddSecondaryProperties(instance, properties);
      if (anyValue)
         SetSecondText(cell, column.fValueText.Make(properties, separator, true), isFirst, rowIsNA);
   }
};

}  // namespace

void TWriter_vmwesxi::WriteGenericReport(TReportParameters params)
{
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + params.GetLinkName());
   BeginReportBody();
   if (params.ShowReportTitle())
      WriteReportTitle(params.GetReportName(), "", "");

   const bool hasData = WriteReportTables(*this, params);
   EndReportBody();
   CloseReportFile();
   WriteIndexEntry(params.GetLinkName(), params.GetReportName(), hasData);
}

void TWriter_vmwesxi::WriteTable(TReportClass reportClass, TInstances instances,
                                 bool expandAssociations, bool marked, TContext context)
{
   reportClass.Validate();
   if (reportClass.HasTitle())
      WriteTableTitle(reportClass.GetTitle(), reportClass.SubTitleEnabled(), false);
   THypervisorTable(*this, reportClass, instances, expandAssociations, marked, context).Write();
}

std::string TWriter_vmwesxi::GetTableHeaderLabel(ICIMClass& cimClass, TReportProperty property,
                                                 TContext context)
{
   return MakeHeaderLabel(fNamespace, cimClass, property, context);
}

TWriter_vmwesxi::TInstances TWriter_vmwesxi::GetInstances(TReportClass reportClass)
{
   return ReadInstances(fNamespace, reportClass);
}

std::string TWriter_vmwesxi::GetValuesFromProperties(TProperties properties,
                                                     const std::string& separator, bool raw)
{
   return MakeValueText(*this, TValueText::kQualifierRequired).Make(properties, separator, raw);
}

std::string TWriter_vmwesxi::GetValueFromProperty(boost::shared_ptr<ICIMProperty> property,
                                                  std::string separator, bool raw)
{
   return MakeValueText(*this, TValueText::kQualifierRequired).Make(property, separator, raw);
}
