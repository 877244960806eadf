#include "html/BodySpool.h"

std::size_t TBodySpool::Reserve()
{
   EndSpan();
   std::vector<TSpan>& body = fPage.fFiles.back().fBody;
   body.push_back({});
   BeginSpan();
   return body.size() - 1;
}

void TBodySpool::BeginFill()
{
   EndSpan();
   BeginSpan();
}

void TBodySpool::EndFill(std::size_t file, std::size_t place)
{
   fPage.fFiles[file].fBody[place] = {fSpanBegin, fSpool.GetSize() - fSpanBegin};
   BeginSpan();
}

void TBodySpool::NextFile()
{
   EndSpan();
   fPage.fFiles.emplace_back();
   fPage.fFiles.back().fFirstTable = fPage.fTableCount + 1;
   BeginSpan();
   fFileBegin = fSpanBegin;
}

void TBodySpool::EndSpan()
{
   const std::uint64_t length = fSpool.GetSize() - fSpanBegin;
   if (length > 0)
      fPage.fFiles.back().fBody.push_back({fSpanBegin, length});
   fSpanBegin = fSpool.GetSize();
}
