#include <gmock/gmock.h>

#include "support/TRecordingWriter.h"

TEST(RunDuration, TellsTimesInMilliseconds)
{
   TRecordingWriter writer;
   const auto convert = [&writer](const char* value) {
      return writer.ConvertStrToNumType(value, "UserModeTime");
   };
   EXPECT_EQ("3723004", convert("1 hour 2 minutes 3 seconds 4 milliseconds"));
   EXPECT_EQ("1500", convert("1500  milliseconds"));
   EXPECT_EQ("0", convert(""));
   EXPECT_EQ("0", convert("90")) << "a number without a unit";
   EXPECT_EQ("2147483000", convert("596 hours 31 minutes 23 seconds"));
   EXPECT_EQ("", convert("597 hours")) << "the total wraps below zero";
}

TEST(RunDuration, CarriesIntoTheNextPart)
{
   TRecordingWriter writer;
   RunDuration duration;
   writer.SetValue(duration, {"59", "minutes", "90", "seconds"});
   writer.ForwardCarry(duration);
   EXPECT_EQ("1", duration.fHours);
   EXPECT_EQ("0", duration.fMinutes);
   EXPECT_EQ("30", duration.fSeconds);
   EXPECT_EQ("0", duration.fMilliseconds);
   EXPECT_EQ(3630000, writer.Calculate(duration));
}

TEST(RunDuration, TellsSizesInKiloBytes)
{
   TRecordingWriter writer;
   const auto convert = [&writer](const char* value) {
      return writer.ConvertStrToNumType(value, "WorkingSetSize");
   };
   EXPECT_EQ("1234", convert("1,234 KB"));
   EXPECT_EQ("1,234", convert("1,,234 KB")) << "of two commas in a row the second stays";
   EXPECT_EQ("1234 MB", convert("1234 MB"));
   EXPECT_EQ("1234", convert("1234"));
   EXPECT_EQ("0", convert(""));
   EXPECT_EQ("5 minutes", writer.ConvertStrToNumType("5 minutes", "Name"));
}
