#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CIMStore.h"

/// In which zones the records of a log were written: a report shows a date-time without its zone.
///
/// Shape:   records are told by the time that a report shows. Where one clock was set back and two
///          records of different offsets have the same time, their zone is not known.
/// Missing: no zone for a time that is no date-time in the store.
class TRecordZones
{
public:
   /// Reads nothing until the first question.
   TRecordZones(boost::shared_ptr<ICIMNamespace> cimNamespace, std::string className,
                std::string timeProperty)
      : fNamespace(std::move(cimNamespace)),
        fClass(std::move(className)),
        fProperty(std::move(timeProperty))
   {}

   /// Units: minutes east of UTC.
   std::optional<short> Find(std::string_view timeText);

private:
   /// The digits of a time as one number, and its offset.
   using TEntry = std::pair<std::uint64_t, short>;

   void Read();
   void ReadInstance(ICIMInstance& instance);
   void Settle();

   boost::shared_ptr<ICIMNamespace> fNamespace;
   const std::string fClass;
   const std::string fProperty;
   bool fIsRead = false;
   /// Where all records have the same.
   std::optional<short> fCommon;
   /// Else by time.
   std::vector<TEntry> fOffsets;
};
