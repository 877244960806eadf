#pragma once

#include <string>

#include "writer/ReportFrame.h"

/// The headings that part the drives of an LSI controller by their bus.
class TLSIChannel
{
public:
   /// Starts on the bus of the first drive. Throws: TQSXException where it has none.
   explicit TLSIChannel(const TInstanceHandle& firstDrive);

   void WriteHeading(TWriter& writer) const;

   /// Writes a heading where a drive that has the marker property is on another bus than the one
   /// before it. The bus of a drive without it is not read.
   void Follow(TWriter& writer, const TInstanceHandle& drive, const std::string& marker);

private:
   unsigned int fBus;
};
