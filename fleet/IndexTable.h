#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "FleetFrame.h"
#include "html/RowFiles.h"

struct TIndexColumn
{
   const char* fLabel;
   /// Units: percent of the table.
   unsigned fWidth;
   bool fSorts = true;
};

/// One part of a long list as a table of its page; its rows go to the row files as well, where the
/// search finds them.
///
/// Shape: a part is the only table of its file and counts its rows from 1.
class TIndexTable
{
public:
   /// first, count: the rows of the list that this part holds, counted from 0.
   TIndexTable(THtmlSink& out, TRowFiles& rowFiles, EFleetPage page, std::size_t first,
               std::size_t count, const std::vector<TIndexColumn>& columns);

   void BeginRow();
   void AddText(std::string_view text, TMarkup cellClass = ""_html);
   void AddState(EState state);
   /// A cell whose markup is the caller's; text is what the search finds.
   void AddCell(std::string_view text, const std::function<void()>& write);
   /// What the row is called by.
   void AddHeading(std::string_view text, const std::function<void()>& write);
   void EndRow();

   /// name: of the list, in the words of the search.
   void End(const std::string& name);

private:
   void WriteColumns();
   void KeepText(std::string_view text, bool isHeading);

   THtmlSink& fOut;
   TRowFiles& fRowFiles;
   const std::size_t fFile;
   const std::vector<TIndexColumn>& fColumns;
   const std::size_t fFirst;
   const std::size_t fCount;
   std::uint64_t fRow = 0;
};
