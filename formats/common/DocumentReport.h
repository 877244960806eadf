#pragma once

#include <optional>
#include <string>

#include "common/DocumentOptions.h"
#include "common/OutputFile.h"
#include "common/PageNames.h"
#include "common/ReportSink.h"

/// What the formats share that write a document for each page, or all of a run as one file: what
/// they are told of the run, and the names of the files.
class TDocumentReport : public TReportSink
{
public:
   void BeginRun(const std::string& outputDirectory, const TRunFacts& facts) override;
   void TakeOutcome(const TRunOutcome& outcome) override;

protected:
   /// ending: of the documents' names, ".txt".
   TDocumentReport(TDocumentOptions options, std::string oneFileName, const char* ending);

   /// The name of the file of a page.
   std::string AssignFile(const std::string& linkName);

   bool IsOneFile() const { return fOptions.fIsOneFile; }

   /// The path of a file in the output folder; of the one file where there is only one.
   std::string GetPath(const std::string& file) const;

   const TDocumentOptions fOptions;
   TRunFacts fFacts;
   std::optional<THealth> fHealth;
   /// The file that is written to. Missing: none between documents.
   std::optional<TOutputFile> fFile;

private:
   const std::string fOneFileName;
   const char* const fEnding;
   std::string fOutputDirectory;
   TPageNames fNames;
};
