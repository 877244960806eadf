#include "common/ReportFlow.h"

#include <algorithm>

#include "common/GridTable.h"
#include "definitions/TReportParameters.h"

/// What was written while no page was open.
class TReportFlow::TLoosePieces final : public TPageSink
{
public:
   // The page that follows has a title of its own.
   void WriteReportTitle(const std::string& title, const std::string&, const std::string&) override
   {
      WriteTableTitle({title, false, false});
   }

   void WriteTableTitle(const TTableTitle& title) override
   {
      fPieces.push_back([title](TPageSink& page) { page.WriteTableTitle(title); });
      fNames.push_back(title.fText);
   }

   void WriteNote(const std::string& text) override
   {
      fPieces.push_back([text](TPageSink& page) { page.WriteNote(text); });
   }

   void BeginTable(const TTableShape& shape) override
   {
      fShape = shape;
      fRows = std::make_shared<TCollectedRows>();
   }

   void WriteRows(const TTableRows& rows) override { fRows->Append(rows); }

   void EndTable() override
   {
      fPieces.push_back([shape = fShape, rows = fRows](TPageSink& page) {
         page.BeginTable(shape);
         page.WriteRows(*rows);
         page.EndTable();
      });
   }

   void MoveTo(TPageSink& page)
   {
      for (const auto& piece : fPieces)
         piece(page);
      fPieces.clear();
      fNames.clear();
   }

   bool IsEmpty() const { return fPieces.empty(); }

   /// "2 titles and tables, the first title \"Memory\"" and the like.
   std::string Describe() const
   {
      std::string text = std::to_string(fPieces.size()) + " titles or tables";
      if (!fNames.empty())
         text += ", the first title is \"" + fNames.front() + "\"";
      return text;
   }

private:
   std::vector<std::function<void(TPageSink&)>> fPieces;
   std::vector<std::string> fNames;
   TTableShape fShape;
   std::shared_ptr<TCollectedRows> fRows;
};

TReportFlow::TReportFlow(TReportSink& sink, TNotice notice)
   : fSink(sink), fNotice(std::move(notice)), fLoose(std::make_unique<TLoosePieces>())
{}

TReportFlow::~TReportFlow() = default;

void TReportFlow::BeginRun(const std::string& outputDirectory, const TRunFacts& facts)
{
   fOutputDirectory = outputDirectory;
   fSink.BeginRun(outputDirectory, facts);
}

void TReportFlow::EndRun()
{
   CloseReportFile();
   if (!fLoose->IsEmpty())
      fNotice("Left out, because no page was open or opened later: " + fLoose->Describe());
   fIndex.Resolve();
   if (fIsCollected)
      fIndex.MarkCollected(fIsCollected);
   fSink.EndRun(fIndex);
}

void TReportFlow::BeginIndexGroup(const std::string& heading)
{
   fIndex.BeginGroup(heading);
}

void TReportFlow::EndIndexGroup()
{
   fIndex.EndGroup();
}

void TReportFlow::WriteIndexEntry(const std::string& linkName, const std::string& displayName,
                                  bool hasData)
{
   fIndex.AddEntry(linkName, displayName, hasData);
}

void TReportFlow::OpenReportFile(const std::string& path)
{
   CloseReportFile();
   const bool isBelow = path.compare(0, fOutputDirectory.size(), fOutputDirectory) == 0;
   const std::string linkName =
      isBelow ? path.substr(std::min(path.size(), fOutputDirectory.size() + 1)) : path;

   fIndex.AddPage(linkName);
   fSink.BeginPage(linkName);
   fIsPageOpen = true;
   fIsRawDataPage = IsRawDataPage(linkName);
   fLoose->MoveTo(fSink);
}

void TReportFlow::CloseReportFile()
{
   EndTable();
   if (fIsPageOpen)
      fSink.EndPage();
   fIsPageOpen = false;
   fIsRawDataPage = false;
}

void TReportFlow::EndReportBody()
{
   EndTable();
}

void TReportFlow::WriteReportTitle(const std::string& title, const std::string& linkText,
                                   const std::string& linkTarget)
{
   EndTable();
   GetPage().WriteReportTitle(title, linkText, linkTarget);
}

void TReportFlow::WriteTableTitle(const TTableTitle& title)
{
   EndTable();
   GetPage().WriteTableTitle(title);
}

void TReportFlow::WriteTableBreak()
{
   EndTable();
}

void TReportFlow::WriteNote(const std::string& text)
{
   EndTable();
   GetPage().WriteNote(text);
}

void TReportFlow::WriteGrid(const TTableGrid& grid, const TGridMeaning& meaning)
{
   if (!fIsGridOpen) {
      EndTable();
      TTableShape shape = GetGridShape(grid);
      shape.fDriveAttributes = meaning.fDriveAttributes;
      shape.fLog = meaning.fLog;
      GetPage().BeginTable(shape);
      fIsGridOpen = true;
   }
   GetPage().WriteRows(TGridRows(grid, fIsRawDataPage));
   if (!fJoinsGrids)
      EndGrids();
}

void TReportFlow::BeginJoinedGrids()
{
   EndTable();
   fJoinsGrids = true;
}

void TReportFlow::EndJoinedGrids()
{
   EndGrids();
   fJoinsGrids = false;
}

void TReportFlow::BeginColumnTable(const std::string& width, const std::string& caption,
                                   bool sortable)
{
   EndTable();
   fIsTableOpen = true;
   fShape = TTableShape();
   fShape.fKind = ETableKind::kColumns;
   fShape.fWidth = TReportParameters::ConvertPercent(width);
   fShape.fCaption = caption;
   fShape.fSortable = sortable;
}

void TReportFlow::BeginRowTable(const std::string& width, const std::string& labelWidth,
                                const std::string& caption)
{
   EndTable();
   fIsTableOpen = true;
   fShape = TTableShape();
   fShape.fKind = ETableKind::kRows;
   fShape.fWidth = TReportParameters::ConvertPercent(width);
   fShape.fColumnWidths = {TReportParameters::ConvertPercent(labelWidth)};
   fShape.fCaption = caption;
}

void TReportFlow::BeginTableRow()
{
   if (!fIsTableOpen)
      BeginRowTable("", "", "");
   EndTableRow();
   fIsRowOpen = true;
   fRows.BeginRow();
}

void TReportFlow::AddCell(const TCell& cell)
{
   if (!fIsRowOpen)
      BeginTableRow();
   fRows.AddCell(cell);
}

void TReportFlow::SetLog(const TLogColumns& columns)
{
   if (fIsTableOpen && !fIsTableHandedOn)
      fShape.fLog = columns;
}

void TReportFlow::SetColumnWidth(int percent)
{
   const bool isFirstRow = !fIsTableHandedOn && fRows.GetRowCount() == 1;
   if (!fIsRowOpen || !isFirstRow || fShape.fKind != ETableKind::kColumns)
      return;
   fShape.fColumnWidths.resize(fRows.GetCellCount(0));
   fShape.fColumnWidths.back() = percent;
}

void TReportFlow::EndTableRow()
{
   if (!fIsRowOpen)
      return;
   fIsRowOpen = false;
   const std::size_t row = fRows.GetRowCount() - 1;
   if (fRows.GetCellCount(row) == 0 || TakeHeaderRow())
      fRows.DropRow();
   else if (fRows.GetRowCount() == kRowsPerRun)
      HandOnRows();
}

void TReportFlow::EndTable()
{
   EndGrids();
   if (!fIsTableOpen)
      return;
   EndTableRow();
   HandOnTable();
   fIsTableOpen = false;
   fIsTableHandedOn = false;
}

TPageSink& TReportFlow::GetPage()
{
   if (fIsPageOpen)
      return fSink;
   return *fLoose;
}

/// The first row of a column table is its header row when it holds labels alone: the flag of
/// BeginTableRow doesn't tell, as some reports begin their header row as a data row.
bool TReportFlow::TakeHeaderRow()
{
   const bool isFirst = !fIsTableHandedOn && fRows.GetRowCount() == 1 && fShape.fLabels.empty();
   if (!isFirst || fShape.fKind != ETableKind::kColumns)
      return false;
   std::vector<std::string> labels;
   for (std::size_t c = 0; c < fRows.GetCellCount(0); ++c) {
      const TCell cell = fRows.GetCell(0, c);
      if (!cell.fIsLabel)
         return false;
      labels.emplace_back(cell.fText);
   }
   fShape.fLabels = std::move(labels);
   return true;
}

void TReportFlow::HandOnRows()
{
   if (!fIsTableHandedOn)
      GetPage().BeginTable(fShape);
   fIsTableHandedOn = true;
   GetPage().WriteRows(fRows);
   fRows.Clear();
}

void TReportFlow::HandOnTable()
{
   const bool isNothing = fRows.IsEmpty() && !fIsTableHandedOn && fShape.fLabels.empty();
   if (isNothing || HandOnMessages())
      return;
   if (!fIsTableHandedOn || !fRows.IsEmpty())
      HandOnRows();
   GetPage().EndTable();
}

/// A row table of labels alone is how a report says something without values.
bool TReportFlow::HandOnMessages()
{
   if (fIsTableHandedOn || fShape.fKind != ETableKind::kRows)
      return false;
   const std::size_t rowCount = fRows.GetRowCount();
   for (std::size_t r = 0; r < rowCount; ++r)
      for (std::size_t c = 0; c < fRows.GetCellCount(r); ++c)
         if (!fRows.GetCell(r, c).fIsLabel)
            return false;
   for (std::size_t r = 0; r < rowCount; ++r)
      for (std::size_t c = 0; c < fRows.GetCellCount(r); ++c)
         GetPage().WriteNote(std::string(fRows.GetCell(r, c).fText));
   fRows.Clear();
   return true;
}

void TReportFlow::EndGrids()
{
   if (fIsGridOpen)
      GetPage().EndTable();
   fIsGridOpen = false;
}
