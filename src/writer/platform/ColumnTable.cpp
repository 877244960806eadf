#include "writer/platform/ColumnTable.h"

#include "writer/TWriter.h"

void WriteColumnHeader(TWriter& writer, const boost::shared_ptr<ICIMClass>& cimClass,
                       const TColumns& columns)
{
   writer.BeginTableRow(false);
   for (const auto& column : columns)
      writer.WriteHeaderCell(cimClass, column);
   writer.EndTableRow();
   writer.EndTableHeader();
}

void WriteColumnRow(TWriter& writer, const boost::shared_ptr<ICIMInstance>& instance,
                    const TColumns& columns)
{
   writer.BeginTableRow(true);
   for (const auto& column : columns)
      writer.WriteValueCell(instance, column);
   writer.EndTableRow();
}

void WriteColumnRows(TWriter& writer, const TInstances& instances, const TColumns& columns)
{
   for (const auto& instance : instances)
      WriteColumnRow(writer, instance, columns);
}
