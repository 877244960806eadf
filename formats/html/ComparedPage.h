#pragma once

#include "html/HtmlBody.h"
#include "html/PageDifferences.h"
#include "html/PairedItems.h"

/// A page of a comparison: its pieces go through TPairedItems to the counter of differences and to
/// the body.
///
/// Owner: everything is the caller's. One object per page.
class TComparedPage final : public TPageSink
{
public:
   TComparedPage(THtmlBody& body, THtmlPage& page, const THtmlSystems& systems)
      : fWritten(body, page, systems), fPaired(fWritten, systems)
   {}

   void WriteReportTitle(const std::string& title, const std::string& linkText,
                         const std::string& linkTarget) override
   {
      fPaired.WriteReportTitle(title, linkText, linkTarget);
   }

   void WriteTableTitle(const TTableTitle& title) override { fPaired.WriteTableTitle(title); }

   void WriteNote(const std::string& text) override { fPaired.WriteNote(text); }

   void BeginTable(const TTableShape& shape) override { fPaired.BeginTable(shape); }

   void WriteRows(const TTableRows& rows) override { fPaired.WriteRows(rows); }

   void EndTable() override { fPaired.EndTable(); }

   /// After the last piece; the body's Finish comes behind.
   void Finish();

private:
   /// What stands on the page in the end.
   class TWritten final : public TPageSink
   {
   public:
      TWritten(THtmlBody& body, THtmlPage& page, const THtmlSystems& systems)
         : fBody(body), fPage(page), fCounter(systems, page.fDifferences)
      {}

      void WriteReportTitle(const std::string& title, const std::string& linkText,
                            const std::string& linkTarget) override;
      void WriteTableTitle(const TTableTitle& title) override;
      void WriteNote(const std::string& text) override;
      void BeginTable(const TTableShape& shape) override;
      void WriteRows(const TTableRows& rows) override;
      void EndTable() override;

      void Finish() { fCounter.Finish(); }

   private:
      THtmlBody& fBody;
      THtmlPage& fPage;
      TDifferenceCounter fCounter;
   };

   TWritten fWritten;
   TPairedItems fPaired;
};
