#include "html/HtmlReport.h"

#include <algorithm>

#include "html/HtmlCorrections.h"
#include "html/HtmlDocument.h"
#include "html/HtmlFrontPage.h"
#include "html/HtmlHealth.h"
#include "html/HtmlReportPage.h"
#include "html/HtmlTimeline.h"
#include "html/RowIndex.h"

THtmlReport::THtmlReport(THtmlOptions options) : fOptions(std::move(options)) {}

void THtmlReport::BeginRun(const std::string& outputDirectory, const TRunFacts& facts)
{
   fOutputDirectory = outputDirectory;
   fFacts = facts;
   fSystems = THtmlSystems(facts);
   fNames = TPageNames();
   for (const char* name : {"index", "timeline", "corrections", "rules"})
      fNames.Reserve(name);
   fPages.clear();
   fOutcome = nullptr;
   fCompared.reset();
   fBody.reset();
   fSpool.emplace(TOutputFile::MakeTemporary(outputDirectory));
   fEvents.reset();
   if (fSystems.IsEmpty())
      fEvents.emplace(outputDirectory);
   fRowFiles.emplace(outputDirectory);
}

void THtmlReport::BeginPage(const std::string& linkName)
{
   THtmlPage page;
   page.fNumber = fPages.size();
   page.fLinkName = linkName;
   page.fFileStem = fNames.Assign(linkName);
   fPages.push_back(std::move(page));
   fTableTitle.clear();
   fBody = std::make_unique<THtmlBody>(*fSpool, fPages.back(), *fRowFiles, fSystems);
   if (!fSystems.IsEmpty())
      fCompared = std::make_unique<TComparedPage>(*fBody, fPages.back(), fSystems);
}

void THtmlReport::EndPage()
{
   if (fCompared)
      fCompared->Finish();
   fCompared.reset();
   fBody->Finish();
   fBody.reset();
}

void THtmlReport::EndRun(const TReportIndex& index)
{
   THtmlSite site{fFacts, fOptions, index, fPages, fSystems};
   const std::vector<TReportIndex::TPlace> places = index.GetPlaces();
   if (fEvents)
      fEvents->Finish();
   const bool hasTimeline = fEvents && !fEvents->IsEmpty();
   if (hasTimeline) {
      site.fOwnPages.push_back({kTimelineFile, kTimelineTitle, fEvents->GetCount()});
      site.fEvents = &*fEvents;
   }
   if (fOutcome != nullptr)
      ShowOutcome(site);
   for (std::size_t page = 0; page < fPages.size(); ++page)
      WriteReportPage(fOutputDirectory, site, page, places[page], *fSpool);
   fRowFiles->Close();
   WriteSearchIndex(site, places);

   if (hasTimeline)
      WriteOwnPage(kTimelineFile,
                   [&](THtmlSink& out) { WriteTimeline(out, site, places, *fEvents, *fRowFiles); });
   if (site.fHealth != nullptr)
      WriteOwnPage(kRulesFile, [&site](THtmlSink& out) { WriteRulesPage(out, site); });
   if (fOutcome != nullptr && fOutcome->fCorrections)
      WriteOwnPage(kCorrectionsFile,
                   [&](THtmlSink& out) { WriteCorrections(out, site, *fOutcome->fCorrections); });
   WriteOwnPage(kFrontPageFile, [&site](THtmlSink& out) { WriteFrontPage(out, site); });
   WriteBundledFiles(fOutputDirectory);
   fEvents.reset();
   fSpool.reset();
}

void THtmlReport::WriteSearchIndex(const THtmlSite& site,
                                   const std::vector<TReportIndex::TPlace>& places) const
{
   std::vector<TSearchedPage> pages;
   for (std::size_t page = 0; page < fPages.size(); ++page)
      pages.push_back({fPages[page].fFileStem, GetPageTitle(site.fPages[page], places[page])});
   WriteRowIndex(*fRowFiles, pages);
}

/// Pages tell in the side bar what a finding on them says.
void THtmlReport::ShowOutcome(THtmlSite& site)
{
   site.fGaps = &fOutcome->fGaps;
   if (fOutcome->fCorrections)
      site.fOwnPages.push_back(
         {kCorrectionsFile, kCorrectionsTitle, fOutcome->fCorrections->size()});
   if (!fOutcome->fHealth)
      return;
   site.fHealth = &*fOutcome->fHealth;
   const std::vector<EState>& states = site.fHealth->fPageStates;
   for (std::size_t page = 0; page < states.size(); ++page)
      fPages[page].fState = states[page];
}

void THtmlReport::WriteOwnPage(const std::string& name,
                               const std::function<void(THtmlSink& out)>& write) const
{
   TOutputFile file(fOutputDirectory + "/" + name);
   THtmlSink out(file);
   write(out);
   file.Close();
}

void THtmlReport::BeginLog(const TLogColumns& columns)
{
   fEvents->BeginTable(fPages.size() - 1, fTableTitle, columns);
   // The file that is open may end ahead of the table.
   fFirstRowFile = std::max(1u, fRowFiles->GetFileNumber());
}

TPageSink& THtmlReport::GetPage()
{
   if (fCompared)
      return *fCompared;
   return *fBody;
}

void THtmlReport::WriteReportTitle(const std::string& title, const std::string& linkText,
                                   const std::string& linkTarget)
{
   GetPage().WriteReportTitle(title, linkText, linkTarget);
}

void THtmlReport::WriteTableTitle(const TTableTitle& title)
{
   if (!title.fIsSubTitle)
      fTableTitle = title.fText;
   GetPage().WriteTableTitle(title);
}

void THtmlReport::WriteNote(const std::string& text)
{
   GetPage().WriteNote(text);
}

void THtmlReport::BeginTable(const TTableShape& shape)
{
   fIsLogOpen = fEvents && shape.fLog;
   if (fIsLogOpen)
      BeginLog(*shape.fLog);
   GetPage().BeginTable(shape);
}

void THtmlReport::WriteRows(const TTableRows& rows)
{
   if (fIsLogOpen)
      fEvents->AddRows(rows);
   GetPage().WriteRows(rows);
}

void THtmlReport::EndTable()
{
   GetPage().EndTable();
   if (fIsLogOpen)
      fEvents->EndTable({fPages.back().fTableCount, fPages.back().fFiles.size() - 1, fFirstRowFile,
                         fRowFiles->GetFileNumber()});
   fIsLogOpen = false;
}
