#pragma once

#include <cstdint>
#include <string>

#include "QSXExport.h"

namespace NZANQSX20 {

/// A CIM date-time: a point in time with its offset from UTC, or an interval.
///
/// Shape:   digits that the collection left open ("**") are kept as such and told as they stand.
/// Units:   offset in minutes east of UTC; an interval counts days, hours, minutes, seconds and
///          microseconds.
class QSX_API TCIMDateTime
{
public:
   /// 0000-00-00 00:00:00, a point in time that no calendar has.
   TCIMDateTime() = default;
   TCIMDateTime(unsigned short year, unsigned short month, unsigned int day, unsigned short hours,
                unsigned short minutes, unsigned short seconds, unsigned int microseconds,
                short utcOffset);

   /// Reads the 25-character form "yyyymmddHHMMSS.mmmmmm+UUU" or "ddddddddHHMMSS.mmmmmm:000".
   /// Asterisks may stand for the last fields, the last digits of the microseconds and the offset.
   /// Missing: false when the text is no such form or names a date or time that does not exist; the
   ///          result then is left alone. The date of a default value ("0000-00-00") is read.
   static bool Parse(const std::string& text, TCIMDateTime& result);

   /// What a report shows: "2009-01-02 03:04:05", or "3 days 04:05:06" for an interval.
   std::string ToUIString() const;

   /// The 25-character form.
   std::string ToString() const;

   bool IsInterval() const { return fIsInterval; }

   /// By time: points in time by their UTC instant, intervals by length, points before intervals.
   bool operator<(const TCIMDateTime& other) const;
   bool operator==(const TCIMDateTime& other) const;

private:
   std::int64_t GetMicroseconds() const;
   /// All 20 digits, the asterisks at their end included.
   std::string GetDigits() const;

   /// Day of the month; the days of an interval.
   unsigned int fDay = 0;
   unsigned int fMicroseconds = 0;
   unsigned short fYear = 0;
   unsigned short fMonth = 0;
   unsigned short fHours = 0;
   unsigned short fMinutes = 0;
   unsigned short fSeconds = 0;
   short fUtcOffset = 0;
   bool fIsInterval = false;
   bool fIsOffsetKnown = true;
   /// How many of the 20 leading digits are known; the rest were asterisks.
   unsigned char fKnownDigits = 20;
};

}  // namespace NZANQSX20
