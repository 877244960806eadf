#include "text/TextReport.h"

#include <utility>

#include "text/TextIndex.h"
#include "text/TextLines.h"

namespace {

constexpr const char* kIndexFile = "index.txt";

}  // namespace

TTextReport::TTextReport(TDocumentOptions options, std::string oneFileName)
   : TDocumentReport(std::move(options), std::move(oneFileName), ".txt")
{}

void TTextReport::BeginRun(const std::string& outputDirectory, const TRunFacts& facts)
{
   TDocumentReport::BeginRun(outputDirectory, facts);
   fPages.clear();
   // The index goes ahead, and is known last.
   if (IsOneFile())
      fFile.emplace(TOutputFile::MakeTemporary(outputDirectory));
}

void TTextReport::BeginPage(const std::string& linkName)
{
   fPages.push_back({AssignFile(linkName)});
   if (!IsOneFile())
      fFile.emplace(GetPath(fPages.back().fFile));
   fPages.back().fStart = fFile->GetSize();
   fHasTitle = false;
}

void TTextReport::EndPage()
{
   fPages.back().fLength = fFile->GetSize() - fPages.back().fStart;
   if (IsOneFile())
      return;
   fFile->Close();
   fFile.reset();
}

void TTextReport::EndRun(const TReportIndex& index)
{
   TTextIndex front{fOptions, fFacts, fHealth ? &*fHealth : nullptr, index, {}};
   if (!IsOneFile())
      for (const TPage& page : fPages)
         front.fFiles.push_back(page.fFile);
   TOutputFile file(GetPath(kIndexFile));
   WriteTextIndex(file, front);
   if (IsOneFile())
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
