#include "text/TextReport.h"

#include <utility>

#include "text/TextIndex.h"
#include "text/TextLines.h"

namespace {

constexpr const char* kIndexFile = "index.txt";

}  // namespace

TTextReport::TTextReport(TDocumentOptions options, std::string oneFileName)
   : fOptions(std::move(options)), fOneFileName(std::move(oneFileName))
{}

void TTextReport::BeginRun(const std::string& outputDirectory, const TRunFacts& facts)
{
   fOutputDirectory = outputDirectory;
   fFacts = facts;
   fHealth.reset();
   fPages.clear();
   fNames = TPageNames();
   for (const char* name : {"index", "manifest", "report"})
      fNames.Reserve(name);
   fFile.reset();
   if (fOptions.fIsOneFile)
      fFile.emplace(TOutputFile::MakeTemporary(outputDirectory));
}

void TTextReport::BeginPage(const std::string& linkName)
{
   fPages.push_back({fNames.Assign(linkName) + ".txt"});
   if (!fOptions.fIsOneFile)
      fFile.emplace(fOutputDirectory + '/' + fPages.back().fFile);
   fPages.back().fStart = fFile->GetSize();
   fHasTitle = false;
}

void TTextReport::EndPage()
{
   fPages.back().fLength = fFile->GetSize() - fPages.back().fStart;
   if (fOptions.fIsOneFile)
      return;
   fFile->Close();
   fFile.reset();
}

void TTextReport::TakeOutcome(const TRunOutcome& outcome)
{
   fHealth = outcome.fHealth;
}

void TTextReport::EndRun(const TReportIndex& index)
{
   TTextIndex front{fOptions, fFacts, fHealth ? &*fHealth : nullptr, index, {}};
   if (!fOptions.fIsOneFile)
      for (const TPage& page : fPages)
         front.fFiles.push_back(page.fFile);
   TOutputFile file(fOutputDirectory + '/' + (fOptions.fIsOneFile ? fOneFileName : kIndexFile));
   WriteTextIndex(file, front);
   if (fOptions.fIsOneFile)
      CopyPages(file, index);
   file.Close();
   fFile.reset();
}

/// Those that the index leads to; the others have no data.
void TTextReport::CopyPages(TOutputFile& file, const TReportIndex& index)
{
   const std::vector<TReportIndex::TPlace> places = index.GetPlaces();
   for (std::size_t page = 0; page < fPages.size(); ++page) {
      const TReportIndex::TEntry* const entry =
         page < places.size() ? places[page].fEntry : nullptr;
      if (entry != nullptr && !entry->fHasData)
         continue;
      file.Write("\n");
      file.CopyFrom(*fFile, fPages[page].fStart, fPages[page].fLength);
   }
}

void TTextReport::WriteReportTitle(const std::string& title, const std::string&, const std::string&)
{
   WriteTextHeading(*fFile, title, fHasTitle ? '-' : '=');
   fHasTitle = true;
}

void TTextReport::WriteTableTitle(const TTableTitle& title)
{
   if (title.fIsSubTitle)
      WriteTextLines(*fFile, (title.fIsEmphasised ? "* " : "") + title.fText);
   else
      WriteTextHeading(*fFile, title.fText, '-');
}

void TTextReport::WriteNote(const std::string& text)
{
   WriteTextLines(*fFile, text);
   fFile->Write("\n");
}

void TTextReport::BeginTable(const TTableShape& shape)
{
   fTable.emplace(*fFile, shape);
}

void TTextReport::WriteRows(const TTableRows& rows)
{
   fTable->Write(rows);
}

void TTextReport::EndTable()
{
   fTable->End();
   fTable.reset();
}
