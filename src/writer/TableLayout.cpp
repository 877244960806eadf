#include <algorithm>
#include <sstream>

#include "writer/InstanceAccess.h"
#include "writer/TGridLayout.h"
#include "writer/TWriter.h"
#include "writer/ValueText.h"
#include "writer/WriterLog.h"

namespace {

/// What a column asks of the store and of its cells, taken from the definition once per table.
struct TColumn
{
   TColumn(TWriter& writer, const TWriter::TReportProperty& property)
      : fProperty(property.GetProperty()),
        fAssocClass(property.GetAssociationClass()),
        fAssocTarget(property.GetAssociationTarget()),
        fSecondaryTarget(property.GetSecondaryAssociationTarget()),
        fSeparator(property.GetArrayValueSeparator()),
        fMonospaced(property.IsMonospaced()),
        fValueText([&writer](std::string text) { return writer.EncodeValueText(std::move(text)); })
   {}

   std::string fProperty;
   std::string fAssocClass;
   std::string fAssocTarget;
   std::string fSecondaryTarget;
   TWriter::TReportProperty::ArrayValueSeparator fSeparator;
   bool fMonospaced;
   TValueText fValueText;
};

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

class TWriterTable : public TGridLayout
{
public:
   TWriterTable(TWriter& writer, const TReportClass& reportClass, const TInstances& instances,
                bool expandAssociations, bool marked, const TContext& context)
      : TGridLayout(reportClass, instances, expandAssociations, marked),
        fWriter(writer),
        fContext(context),
        fExpandAssociations(expandAssociations),
        fMarked(marked),
        fIsProcess(reportClass.GetClass() == "ZANSG_Process"),
        fIsSensor(reportClass.GetClass() == "CIM_NumericSensor")
   {
      for (const auto& property : reportClass.GetProperties())
         fColumns.emplace_back(writer, property);
   }

private:
   void FillLabels(TTableGrid& grid) override
   {
      const boost::shared_ptr<ICIMClass> cimClass = fInstances.front()->GetClass({});
      const auto& properties = fReportClass.GetProperties();
      for (std::size_t i = 0; i < properties.size(); ++i)
         GetCell(grid, 0, i).fText =
            fWriter.GetTableHeaderLabel(*cimClass, properties[i], fContext);
   }

   void FillRow(TTableGrid& grid, int row, const boost::shared_ptr<ICIMInstance>& instance) override
   {
      bool rowIsNA = false;
      for (std::size_t i = 0; i < fColumns.size(); ++i)
         FillCell(GetCell(grid, row, i), fColumns[i], instance, i == 0, rowIsNA);
   }

   void FillCell(TTableCell& cell, TColumn& column, const boost::shared_ptr<ICIMInstance>& instance,
                 bool isFirst, bool& rowIsNA)
   {
      fProperties.clear();
      AddProperties(instance, column.fProperty, column.fAssocClass, column.fAssocTarget,
                    fProperties);
      const bool anyValue = std::any_of(fProperties.begin(), fProperties.end(),
                                        [](const auto& property) { return property->HasValue(); });
      // A value by way of the secondary target has no second text: anyValue isn't asked again.
      if (fProperties.empty() && !column.fSecondaryTarget.empty())
         AddProperties(instance, column.fProperty, "", column.fSecondaryTarget, fProperties);

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

   void WriteGrid(TTableGrid& grid) override { fWriter.WriteGrid(&grid); }

   void WriteAssociatedTables(const boost::shared_ptr<ICIMInstance>& instance) override
   {
      for (const TReportClass& associated : fReportClass.GetAssociatedClasses()) {
         TInstances instances = ReadAssociatedInstances(instance, associated);
         if (!instances.empty())
            fWriter.WriteTable(associated, std::move(instances), fExpandAssociations, fMarked,
                               fContext);
      }
   }

   TWriter& fWriter;
   const TContext& fContext;
   const bool fExpandAssociations;
   const bool fMarked;
   const bool fIsProcess;
   const bool fIsSensor;
   std::vector<TColumn> fColumns;
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
