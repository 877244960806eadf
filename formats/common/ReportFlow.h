#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/GridMeaning.h"
#include "common/ReportSink.h"
#include "writer/TTableGrid.h"

/// Turns the output operations of a run, in whatever order they come, into the fixed order of a
/// sink.
///
/// Shape:   an open row, table or page is closed by what can't stand in it; a cell outside a row or
///          a table begins one. What is written while no page is open goes to the top of the next
///          page; where none comes it is left out and the notice says so.
/// Owner:   the sink is the caller's. One object per run.
class TReportFlow
{
public:
   using TNotice = std::function<void(const std::string& text)>;

   /// Rows of a table written cell by cell are handed on in runs of this many.
   static constexpr std::size_t kRowsPerRun = 2000;

   TReportFlow(TReportSink& sink, TNotice notice);
   ~TReportFlow();

   using TIsCollected = std::function<bool(const TReportIndex::TEntry&)>;

   /// Missing: without it, every report counts as collected.
   void SetIsCollected(TIsCollected isCollected) { fIsCollected = std::move(isCollected); }

   void BeginRun(const std::string& outputDirectory, const TRunFacts& facts);
   void EndRun();

   void BeginIndexGroup(const std::string& heading);
   void EndIndexGroup();
   void WriteIndexEntry(const std::string& linkName, const std::string& displayName, bool hasData);

   /// The path is the output directory, one separator character and the link name.
   void OpenReportFile(const std::string& path);
   void CloseReportFile();
   void EndReportBody();
   void WriteReportTitle(const std::string& title, const std::string& linkText,
                         const std::string& linkTarget);
   void WriteTableTitle(const TTableTitle& title);
   void WriteTableBreak();
   void WriteNote(const std::string& text);

   void WriteGrid(const TTableGrid& grid, const TGridMeaning& meaning = {});
   /// Between the two, grids follow each other as one table.
   void BeginJoinedGrids();
   void EndJoinedGrids();

   void BeginColumnTable(const std::string& width, const std::string& caption, bool sortable);
   void BeginRowTable(const std::string& width, const std::string& labelWidth,
                      const std::string& caption);
   void BeginTableRow();
   void AddCell(const TCell& cell);
   /// What the columns of the table hold, which is written cell by cell.
   void SetLog(const TLogColumns& columns);
   /// The wish of the column whose cell came last. Units: percent.
   void SetColumnWidth(int percent);
   void EndTableRow();
   void EndTable();

private:
   class TLoosePieces;

   TPageSink& GetPage();
   void HandOnTable();
   void HandOnRows();
   bool TakeHeaderRow();
   bool HandOnMessages();
   void EndGrids();

   TReportSink& fSink;
   TNotice fNotice;
   TIsCollected fIsCollected;
   TReportIndex fIndex;
   std::string fOutputDirectory;
   std::unique_ptr<TLoosePieces> fLoose;

   bool fIsPageOpen = false;
   bool fIsRawDataPage = false;

   bool fJoinsGrids = false;
   bool fIsGridOpen = false;

   // The table that is being written cell by cell.
   bool fIsTableOpen = false;
   bool fIsTableHandedOn = false;
   bool fIsRowOpen = false;
   TTableShape fShape;
   TCollectedRows fRows;
};

/// Tells whoever runs the collection.
void LogNotice(const std::string& text);
