#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "common/Table.h"

/// A run of rows as instances with labelled values, whichever way the table lies.
/// Owner: shape and rows are the caller's and outlive this view.
class TLabelledTable
{
public:
   TLabelledTable(const TTableShape& shape, const TTableRows& rows);

   /// A value. Units: from 0; where the table lies on its side, label is a row.
   struct TPosition
   {
      std::size_t fInstance = 0;
      std::size_t fLabel = 0;
   };

   std::size_t GetInstanceCount() const { return fInstances; }

   /// Where a label stands; more than once in a table that lists several things of an instance.
   /// Missing: empty.
   std::vector<std::size_t> FindLabels(std::string_view label) const;

   std::size_t GetLabelCount() const;
   std::string_view GetLabel(std::size_t label) const;

   /// Missing: a cell without text, also where the row is too short.
   TCell GetValue(TPosition position) const;

   /// The cell as the run of rows counts it, from 0.
   std::size_t GetRow(TPosition position) const
   {
      return fIsUpright ? position.fInstance : position.fLabel;
   }

   std::size_t GetColumn(TPosition position) const
   {
      return fIsUpright ? position.fLabel : position.fInstance + 1;
   }

   /// Whether a row is an instance.
   bool IsUpright() const { return fIsUpright; }

private:
   const TTableShape& fShape;
   const TTableRows& fRows;
   const bool fIsUpright;
   std::size_t fInstances = 0;
};
