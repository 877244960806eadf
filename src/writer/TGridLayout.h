#pragma once

#include <memory>

#include "definitions/TReportParameters.h"
#include "writer/StoreWalk.h"
#include "writer/TTableGrid.h"

/// Deals the instances of a table out over grids, an instance per row of a column table or per
/// column of a row table. What is in the cells lies with the class that derives from it.
///
/// Shape:   a grid is kept for the next instances as long as full ones follow, and its cells are
///          overwritten; the last, smaller one is made to measure.
/// Throws:  std::invalid_argument for a definition without properties and with instances.
class TGridLayout
{
public:
   using TReportClass = TReportParameters::TReportClass;

   /// Owner: the definition and the instances stay the caller's and are used by Write alone.
   TGridLayout(const TReportClass& reportClass, const TInstances& instances,
               bool expandAssociations, bool marked);
   virtual ~TGridLayout() = default;
   TGridLayout(const TGridLayout&) = delete;
   TGridLayout& operator=(const TGridLayout&) = delete;

   void Write();

protected:
   // The steps, in the order in which they come. Cells are addressed with GetCell.

   /// The label of each property, in row 0.
   virtual void FillLabels(TTableGrid& grid) = 0;
   virtual void FillRow(TTableGrid& grid, int row,
                        const boost::shared_ptr<ICIMInstance>& instance) = 0;
   virtual void WriteGrid(TTableGrid& grid) = 0;
   /// The sub-tables of the instance that stands in the grid just written.
   virtual void WriteAssociatedTables(const boost::shared_ptr<ICIMInstance>& instance) = 0;

   /// The cell of an instance, from 1, or of a label, 0, and the number of its property.
   static TTableCell& GetCell(TTableGrid& grid, int row, std::size_t property);

   /// Gives a cell whose text is set its second text, the untranslated value, where that says more.
   ///
   /// Shape: a text of the first column that no translation stands behind becomes "N/A", and the
   ///        further cells of its row get no second text; rowIsNA carries that from cell to cell.
   static void SetSecondText(TTableCell& cell, std::string raw, bool isFirstColumn, bool& rowIsNA);

   const TReportClass& fReportClass;
   const TInstances& fInstances;

private:
   bool IsRowTable() const { return fReportClass.GetReportStyle() == TReportClass::kRowStyle; }

   void MakeGrid();
   void MakeRowGrid(int instances);
   void MakeColumnGrid(int instances);
   void DeliverGrid();
   void PrepareNextGrid(int remaining);
   void ShrinkRowGrid(int columns);

   /// Each instance gets a grid of its own, with its sub-tables behind it.
   const bool fExpands;
   const bool fMarked;
   const int fMaximum;
   /// Instances of the grid about to be made.
   int fPerGrid;
   /// The row of the next instance; 1 when none has gone into the grid.
   int fRow = 1;
   std::unique_ptr<TTableGrid> fGrid;
};
