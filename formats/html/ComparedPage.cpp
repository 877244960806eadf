#include "html/ComparedPage.h"

void TComparedPage::Finish()
{
   fPaired.Finish();
   fWritten.Finish();
}

void TComparedPage::TWritten::WriteReportTitle(const std::string& title,
                                               const std::string& linkText,
                                               const std::string& linkTarget)
{
   fBody.WriteReportTitle(title, linkText, linkTarget);
}

void TComparedPage::TWritten::WriteTableTitle(const TTableTitle& title)
{
   fCounter.OnTitle(title);
   fBody.WriteTableTitle(title);
}

void TComparedPage::TWritten::WriteNote(const std::string& text)
{
   fBody.WriteNote(text);
}

void TComparedPage::TWritten::BeginTable(const TTableShape& shape)
{
   fCounter.OnTable(shape);
   fBody.BeginTable(shape);
}

void TComparedPage::TWritten::WriteRows(const TTableRows& rows)
{
   fCounter.OnRows(rows);
   fBody.WriteRows(rows);
}

void TComparedPage::TWritten::EndTable()
{
   fBody.EndTable();
   fCounter.OnTableEnd(fPage.fFiles.size() - 1, fPage.fTableCount);
}
