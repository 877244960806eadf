#include "html/HtmlBody.h"

namespace {

constexpr TMarkup kWholeBegin = "<div class=\"everywhere\">\n"_html;
constexpr TMarkup kWholeEnd = "</div>\n"_html;

}  // namespace

THtmlBody::THtmlBody(TOutputFile& spool, THtmlPage& page, TRowFiles& rowFiles,
                     const THtmlSystems& systems)
   : fOut(spool), fPage(page), fBody(spool, page), fRowFiles(rowFiles), fSystems(systems)
{}

void THtmlBody::WriteReportTitle(const std::string& title, const std::string& linkText,
                                 const std::string& linkTarget)
{
   if (fHasPageTitle)
      return WriteTableTitle({title, false, false});
   fHasPageTitle = true;
   fPage.fTitle = title;
   fPage.fLinkText = linkText;
   fPage.fLinkTarget = linkTarget;
}

void THtmlBody::WriteTableTitle(const TTableTitle& title)
{
   if (title.fSameItems > 0 && !fIsWholeOpen)
      BeginWhole();
   // Nothing to head a table with.
   if (IsBlank(title.fText))
      return;
   CloseGroup();
   if (fWaiting)
      WriteTitleWithoutTable(!title.fIsSubTitle || fWaiting->fIsSubTitle);
   fWaiting = title;
   fTablesUnderTitle = 0;
   if (!title.fIsSubTitle) {
      fMainTitle = title.fText;
      fIsMainTitleListed = false;
      fMainLabels.clear();
      fSubTitle.reset();
   } else
      fSubTitle = title;
}

void THtmlBody::WriteNote(const std::string& text)
{
   if (fWaiting)
      WriteTitleWithoutTable(false);
   BeginNextFileWhenFull();
   fOut << "<p class=\"note\">"_html << TText{text} << "</p>\n"_html;
   fHasContent = true;
}

void THtmlBody::BeginTable(const TTableShape& shape)
{
   fShape = shape;
}

void THtmlBody::WriteRows(const TTableRows& rows)
{
   if (rows.GetRowCount() == 0)
      return;
   if (!fTable)
      OpenTable();
   fTable->WriteRows(rows);
}

void THtmlBody::EndTable()
{
   if (!fTable)
      return;
   fTable->End();
   fGroupHasSwitch |= fTable->HasSwitch();
   if (fIsMainTitleListed && !fSubTitle)
      fPage.fTables.back().fRows += fTable->GetInstanceCount();
   fTable.reset();
}

void THtmlBody::Finish()
{
   CloseGroup();
   if (fWaiting)
      WriteTitleWithoutTable(true);
   else if (!fHasContent && !fSystems.IsEmpty())
      fOut << "<p class=\"none\">Nothing differs.</p>\n"_html;
   else if (!fHasContent)
      fOut << "<p class=\"none\">No data.</p>\n"_html;
   fOut << (fIsWholeOpen ? kWholeEnd : ""_html);
   fBody.Finish();
}

/// With its first row: a table without rows leaves its title to say that there is no data.
void THtmlBody::OpenTable()
{
   BeginNextFileWhenFull();
   SettleTitles();
   OpenGroup();
   if (fWaiting && !fWaiting->fIsSubTitle)
      ListTitle("t" + std::to_string(fPage.fTableCount + 1));
   fTable = std::make_unique<THtmlTable>(fOut, fBody, fPage, fRowFiles, fShape, MakeHeading());
   fWaiting.reset();
   fHasContent = true;
}

void THtmlBody::BeginNextFileWhenFull()
{
   if (fBody.GetFileBytes() < THtmlTable::kBytesBeforeTable)
      return;
   CloseGroup();
   fOut << (fIsWholeOpen ? kWholeEnd : ""_html);
   fBody.NextFile();
   fOut << (fIsWholeOpen ? kWholeBegin : ""_html);
   fFileHasMainTitle = false;
}

/// From here to its end the page shows what is the same, while the reader wants it.
void THtmlBody::BeginWhole()
{
   CloseGroup();
   if (fWaiting)
      WriteTitleWithoutTable(true);
   if (!fHasContent)
      fOut << "<p class=\"none\">Nothing differs.</p>\n"_html;
   BeginNextFileWhenFull();
   fOut
      << kWholeBegin
      << "<div class=\"block-head alone\"><h2 id=\"same\">The same on all systems</h2></div>\n"_html;
   fIsWholeOpen = true;
   fMainTitle = "The same on all systems";
   ListTitle("same");
   fMainLabels.clear();
   fSubTitle.reset();
   fTablesUnderTitle = 0;
   fFileHasMainTitle = true;
   fHasContent = true;
}

void THtmlBody::WriteTitleWithoutTable(bool isEmpty)
{
   BeginNextFileWhenFull();
   const bool isThird = fWaiting->fIsSubTitle && fFileHasMainTitle;
   const bool isDifference = fWaiting->fIsSubTitle && fWaiting->fIsEmphasised;
   const TText title{fWaiting->fText};
   fOut << "<div class=\"block-head alone\">"_html;
   if (isThird)
      fOut << (isDifference ? "<h3 class=\"emphasised\">"_html : "<h3>"_html) << title
           << "</h3>"_html;
   else if (fWaiting->fIsSubTitle || isEmpty)
      fOut << "<h2>"_html << title << "</h2>"_html;
   else {
      ListTitle("s" + std::to_string(++fListedTitles));
      fOut << "<h2 id=\""_html << TText{fPage.fTables.back().fAnchor} << "\">"_html << title
           << "</h2>"_html;
   }
   fOut << "</div>\n"_html;
   if (isEmpty && isDifference)
      fOut << "<p class=\"none\">In properties that this report does not show.</p>\n"_html;
   else if (isEmpty)
      fOut << "<p class=\"none\">No data.</p>\n"_html;
   fFileHasMainTitle = true;
   fHasContent = true;
   fWaiting.reset();
}

void THtmlBody::ListTitle(const std::string& anchor)
{
   fPage.fTables.push_back({fMainTitle, anchor, fBody.GetFile(), 0});
   fIsMainTitleListed = true;
}

/// A table without a title of its own may follow the sub-tables of an instance: when its labels are
/// those of the main table, it is the next instance of that.
void THtmlBody::SettleTitles()
{
   if (fWaiting) {
      if (!fWaiting->fIsSubTitle)
         fMainLabels = fShape.fLabels;
      return;
   }
   // In a comparison the next instance is what is not marked.
   const bool isNextInstance =
      !fSystems.IsEmpty() && fSubTitle && fSubTitle->fIsEmphasised && !fShape.fMarked;
   if (isNextInstance) {
      fSubTitle.reset();
      CloseGroup();
   }
   if (fSubTitle && !fShape.fLabels.empty() && fShape.fLabels == fMainLabels) {
      fSubTitle.reset();
      CloseGroup();
   }
}

void THtmlBody::OpenGroup()
{
   if (fIsGroupOpen)
      return;
   fOut << kGroupBegin;
   fIsGroupOpen = true;
   fGroupHasSwitch = false;
}

void THtmlBody::CloseGroup()
{
   if (fIsGroupOpen)
      fOut << kGroupEnd;
   fIsGroupOpen = false;
}

THtmlHeading THtmlBody::MakeHeading()
{
   THtmlHeading heading;
   heading.fSystems = &fSystems;
   heading.fIsSubTable = fSubTitle.has_value();
   heading.fName = fSubTitle ? fSubTitle->fText : fMainTitle;
   if (heading.fName.empty())
      heading.fName = fPage.fTitle.empty() ? fShape.fCaption : fPage.fTitle;
   if (++fTablesUnderTitle > 1)
      heading.fName += ", " + std::to_string(fTablesUnderTitle);
   heading.fHasSwitchAbove = fGroupHasSwitch;
   if (!fWaiting)
      return heading;

   heading.fTitle = fWaiting->fText;
   heading.fLevel = fWaiting->fIsSubTitle && fFileHasMainTitle ? 3 : 2;
   // Purple says "differs": only the headings of a comparison have it.
   heading.fIsEmphasised = fWaiting->fIsEmphasised && fWaiting->fIsSubTitle;
   fFileHasMainTitle = true;
   return heading;
}
