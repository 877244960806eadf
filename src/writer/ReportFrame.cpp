#include "writer/ReportFrame.h"

#include <cstring>

using TReportProperty = TReportParameters::TReportProperty;

void OpenReportPage(TWriter& writer, const std::string& outputDirectory,
                    const std::string& linkName)
{
   writer.OpenReportFile(outputDirectory + TOSSpecific::kFileSeparator + linkName);
   writer.BeginReportBody();
}

void CloseReportPage(TWriter& writer)
{
   writer.EndReportBody();
   writer.CloseReportFile();
}

TReportRow::operator TReportProperty() const
{
   return {fProperty, fWidth, fAssocClass, fAssocTarget, fLabel};
}

void WriteRow(TWriter& writer, const TClassHandle& labelClass, const TInstanceHandle& instance,
              const TReportProperty& property)
{
   WriteRow(writer, labelClass, property, instance, property);
}

void WriteRow(TWriter& writer, const TClassHandle& labelClass, const TReportProperty& labelProperty,
              const TInstanceHandle& instance, const TReportProperty& property)
{
   writer.BeginTableRow(true);
   writer.WriteHeaderCell(labelClass, labelProperty);
   writer.WriteValueCell(instance, property);
   writer.EndTableRow();
}

void WriteAllRows(TWriter& writer, const TClassHandle& labelClass, const TInstanceHandle& instance,
                  TReportRows rows)
{
   for (const TReportRow& row : rows)
      WriteRow(writer, labelClass, instance, row);
}

void WriteFilledRows(TWriter& writer, const TClassHandle& labelClass,
                     const TInstanceHandle& instance, TReportRows rows)
{
   for (const TReportRow& row : rows) {
      const bool isVersion = std::strcmp(row.fProperty, "Version") == 0;
      if (isVersion || !writer.IsPropertyNull(instance, row.fProperty))
         WriteRow(writer, labelClass, instance, row);
   }
}

void WriteMessageTable(TWriter& writer, const std::string& message, const std::string& propertyName)
{
   writer.BeginRowTable("100%", "20%", "");
   writer.BeginTableRow(true);
   writer.WriteHeaderTextCell(message, TReportProperty(propertyName, "100%", "", "", ""));
   writer.EndTableRow();
   writer.EndTable();
}
