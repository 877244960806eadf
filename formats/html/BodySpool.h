#pragma once

#include <cstddef>
#include <cstdint>

#include "common/OutputFile.h"
#include "html/HtmlPage.h"

/// The body of a page on its way into the spool: runs of bytes in the order in which they will
/// stand in the files of the page, which need not be the order in which they are written.
///
/// Owner: spool and page are the caller's. One object per page, one at a time.
class TBodySpool
{
public:
   TBodySpool(TOutputFile& spool, THtmlPage& page) : fSpool(spool), fPage(page)
   {
      BeginSpan();
      fFileBegin = fSpanBegin;
   }

   /// Keeps this place for bytes that come later. Gives its number within the file.
   std::size_t Reserve();

   /// What is written between the two goes to the reserved place.
   void BeginFill();
   void EndFill(std::size_t file, std::size_t place);

   void NextFile();

   /// After the last byte of the page.
   void Finish() { EndSpan(); }

   std::size_t GetFile() const { return fPage.fFiles.size() - 1; }

   /// Bytes written since the file began.
   std::uint64_t GetFileBytes() const { return fSpool.GetSize() - fFileBegin; }

private:
   void BeginSpan() { fSpanBegin = fSpool.GetSize(); }

   void EndSpan();

   TOutputFile& fSpool;
   THtmlPage& fPage;
   std::uint64_t fSpanBegin = 0;
   std::uint64_t fFileBegin = 0;
};
