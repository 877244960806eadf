#include "common/DocumentReport.h"

#include <utility>

TDocumentReport::TDocumentReport(TDocumentOptions options, std::string oneFileName,
                                 const char* ending)
   : fOptions(std::move(options)), fOneFileName(std::move(oneFileName)), fEnding(ending)
{}

void TDocumentReport::BeginRun(const std::string& outputDirectory, const TRunFacts& facts)
{
   fOutputDirectory = outputDirectory;
   fFacts = facts;
   fHealth.reset();
   fNames = TPageNames();
   for (const char* name : {"index", "manifest", "report"})
      fNames.Reserve(name);
   fFile.reset();
}

void TDocumentReport::TakeOutcome(const TRunOutcome& outcome)
{
   fHealth = outcome.fHealth;
}

std::string TDocumentReport::AssignFile(const std::string& linkName)
{
   return fNames.Assign(linkName) + fEnding;
}

std::string TDocumentReport::GetPath(const std::string& file) const
{
   return fOutputDirectory + '/' + (IsOneFile() ? fOneFileName : file);
}
