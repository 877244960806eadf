#pragma once

#include <utility>

#include "definitions/TReportParameters.h"
#include "writer/StoreWalk.h"

/// Writes the tables of a page, without special cases by class; whether there was any.
/// Missing: a table without instances is left out, title and all.
template <typename TWriterType>
bool WriteReportTables(TWriterType& writer, const TReportParameters& params)
{
   bool hasData = false;
   for (const TReportParameters::TReportClass& reportClass : params.GetClasses()) {
      TInstances instances = writer.GetInstances(reportClass);
      if (instances.empty())
         continue;
      hasData = true;
      writer.WriteTable(reportClass, std::move(instances), true, false, {});
   }
   return hasData;
}
