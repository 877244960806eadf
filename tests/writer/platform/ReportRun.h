#pragma once

#include <string>
#include <vector>

#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

/// What one report wrote, and the status of the failure that left it, 0 where it came to its end.
struct TReportRun
{
   /// The lines of these operations, or all of them, each behind a line end.
   std::string GetText(const std::vector<std::string>& operations = {}) const
   {
      std::string text;
      for (const auto& line : operations.empty() ? fWriter.fLines : fWriter.GetLines(operations))
         text += "\n" + line;
      return text;
   }

   TRecordingWriter fWriter;
   int fStatus = 0;
};

/// Runs a member of TWriter, one that takes the catalogue or nothing, over the collection that a
/// MOF text makes.
template <typename TReportMember>
TReportRun RunReport(const std::string& mof, TReportMember report)
{
   TReportRun run;
   run.fWriter.Use(MakeNamespace(mof));
   try {
      if constexpr (std::is_invocable_v<TReportMember, TWriter&>)
         (run.fWriter.*report)();
      else
         (run.fWriter.*report)(TReportParametersBuilder(MakeNamespace(mof), "default", false));
   } catch (const TQSXException& failure) {
      run.fStatus = failure.fStatusCode.fStatusCode;
   }
   return run;
}
