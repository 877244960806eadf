#include <sstream>

#include "writer/TPropertyTable.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"

namespace {

/// The install date of a product at midnight has no time.
void CutMidnight(const std::string& propertyName, std::string& value)
{
   LogTrace("Property name = ", propertyName);
   const std::size_t midnight = value.find("00:00:00");
   if (midnight != std::string::npos)
      value.resize(midnight);
   LogTrace("Property value = ", value);
}

/// Takes all digits of a reading as one number of hundredths; a sign and a point are dropped. That
/// is meant.
std::string MakeSensorReading(const std::string& value)
{
   float number = 0;
   for (const char c : value)
      if (c >= '0' && c <= '9')
         number = number * 10 + static_cast<float>(c - '0');
   std::ostringstream text;
   text << static_cast<double>(number / 100);
   return text.str();
}

class TWriterTable : public TPropertyTable<TWriter>
{
public:
   TWriterTable(TWriter& writer, const TReportClass& reportClass, const TInstances& instances,
                bool expandAssociations, bool marked, const TContext& context)
      : TPropertyTable(writer, reportClass, instances, expandAssociations, marked, context,
                       TValueText::kQualifierOptional),
        fIsProcess(reportClass.GetClass() == "ZANSG_Process"),
        fIsSensor(reportClass.GetClass() == "CIM_NumericSensor")
   {}

private:
   void FillCell(TTableCell& cell, TTableColumn& column,
                 const boost::shared_ptr<ICIMInstance>& instance, bool isFirst,
                 bool& rowIsNA) override
   {
      fProperties.clear();
      column.AddProperties(instance, fProperties);
      const bool anyValue = AnyHasValue(fProperties);
      // A value by way of the secondary target has no second text: anyValue isn't asked again.
      if (fProperties.empty())
         column.AddSecondaryProperties(instance, fProperties);

      cell.fMonospaced = column.fMonospaced;
      const std::string separator = fWriter.GetArrayValueSeparatorText(column.fSeparator);
      cell.fText = column.fValueText.Make(fProperties, separator, false);
      // Without a value a kept grid keeps the second text of the instance ahead. That is meant.
      if (anyValue)
         SetSecondText(cell, column.fValueText.Make(fProperties, separator, true), isFirst,
                       rowIsNA);
      AdjustText(column.fProperty, cell.fText);
   }

   void AdjustText(const std::string& propertyName, std::string& text)
   {
      if (fIsProcess)
         text = fWriter.ConvertStrToNumType(std::move(text), propertyName);
      if (propertyName == "ProductInstallDate")
         CutMidnight(propertyName, text);
      if (fIsSensor && propertyName == "CurrentReading")
         text = MakeSensorReading(text);
   }

   const bool fIsProcess;
   const bool fIsSensor;
   /// The properties of the cell in work; kept so that a cell needs no new vector.
   TProperties fProperties;
};

}  // namespace

void TWriter::WriteTable(TReportClass reportClass, TInstances instances, bool expandAssociations,
                         bool marked, TContext context)
{
   LogTrace("Entering TWriter::WriteTable");
   reportClass.Validate();
   if (reportClass.HasTitle())
      WriteTableTitle(reportClass.GetTitle(), reportClass.SubTitleEnabled(), false);
   TWriterTable(*this, reportClass, instances, expandAssociations, marked, context).Write();
   LogTrace("Exiting TWriter::WriteTable");
}

std::string TWriter::GetTableHeaderLabel(ICIMClass& cimClass, TReportProperty property,
                                         TContext context)
{
   if (cimClass.GetName({}) == "ZANSG_Process") {
      const std::string name = property.GetProperty();
      if (name == "KernelModeTime")
         return "Kernel Mode Time (millisecond)";
      if (name == "UserModeTime")
         return "User Mode Time (millisecond)";
      if (name == "WorkingSetSize")
         return "Memory Usage (KB)";
   }
   return MakeHeaderLabel(fNamespace, cimClass, property, context);
}
