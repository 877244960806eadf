#include "common/EventTime.h"

#include <gtest/gtest.h>

TEST(EventTime, ReadsWhatToolsWrite)
{
   const std::int64_t seconds = ReadEventTime("2009-06-17 22:41:03")->fSeconds;
   EXPECT_EQ("2009-06-17 22:41:03", MakeEventTimeText(seconds, true));

   const struct
   {
      const char* fText;
      std::optional<short> fUtcOffset;
   } cases[] = {
      {"2009-06-17T22:41:03Z", short{0}},
      {"2009-06-17 22:41:03.250 +0130", short{90}},
      {"2009/06/17 22:41:03", {}},
      {"17.06.2009 22:41:03", {}},
      {"Wed Jun 17 22:41:03 2009", {}},
      {"Wed, 17 Jun 2009 22:41:03 -0300", short{-180}},
      {"June 17, 2009 22:41:03 GMT", short{0}},
      {"2009-06-17 22:41:03  ", {}},
   };

   for (const auto& c : cases) {
      const auto read = ReadEventTime(c.fText);
      ASSERT_TRUE(read) << c.fText;
      EXPECT_EQ(seconds, read->fSeconds) << c.fText;
      EXPECT_EQ(c.fUtcOffset, read->fUtcOffset) << c.fText;
   }
}

TEST(EventTime, GuessesNothing)
{
   for (const char* text : {"", "Jun 17 22:41:03", "06/07/2009 22:41:03", "2009-02-30 00:00:00",
                            "2009-06-** **:**:**", "0000-00-00 00:00:00", "3 days 04:05:06",
                            "1970-01-01 00:03:10", "2009-06-17 22:41:03 soon"})
      EXPECT_FALSE(ReadEventTime(text)) << text;
}

TEST(EventTime, NamesOffsets)
{
   EXPECT_EQ("UTC", MakeUtcOffsetText(0));
   EXPECT_EQ("UTC+05:45", MakeUtcOffsetText(345));
   EXPECT_EQ("UTC-03:00", MakeUtcOffsetText(-180));
}
