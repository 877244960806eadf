#include "common/Utf8.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>

namespace {

constexpr char32_t kLast = 0x10FFFF;

bool IsSurrogate(char32_t codePoint)
{
   return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

std::string Encode(char32_t codePoint)
{
   const auto tail = [codePoint](int shift) {
      return static_cast<char>(0x80 | (codePoint >> shift & 0x3F));
   };
   const auto lead = [codePoint](int bits, int shift) {
      return static_cast<char>(bits | static_cast<int>(codePoint >> shift));
   };
   if (codePoint < 0x80)
      return {lead(0, 0)};
   if (codePoint < 0x800)
      return {lead(0xC0, 6), tail(0)};
   if (codePoint < 0x10000)
      return {lead(0xE0, 12), tail(6), tail(0)};
   return {lead(0xF0, 18), tail(12), tail(6), tail(0)};
}

}  // namespace

TEST(Utf8, EveryCharacterIsReadAndNothingElse)
{
   std::set<std::string> begins;
   for (char32_t codePoint = 0; codePoint <= kLast; ++codePoint) {
      if (IsSurrogate(codePoint))
         continue;
      const std::string bytes = Encode(codePoint);
      const char* const end = bytes.data() + bytes.size();
      const TCharacter character = DecodeUtf8(bytes.data(), end);
      ASSERT_TRUE(character.fIsValid && character.fCodePoint == codePoint &&
                  character.fLength == bytes.size())
         << std::hex << static_cast<std::uint32_t>(codePoint);
      if (bytes.size() > 1) {
         begins.insert(bytes.substr(0, 2));
         EXPECT_FALSE(DecodeUtf8(bytes.data(), end - 1).fIsValid);
      }
   }
   for (int first = 0x80; first < 0x100; ++first) {
      for (int second = 0; second < 0x100; ++second) {
         const std::string begin = {static_cast<char>(first), static_cast<char>(second)};
         const std::string bytes = begin + "\x80\x80";
         EXPECT_EQ(begins.count(begin) != 0,
                   DecodeUtf8(bytes.data(), bytes.data() + bytes.size()).fIsValid)
            << std::hex << first << ' ' << second;
      }
   }
}

TEST(Utf8, ControlsAndDirectionsAreNotShownAsTheyAre)
{
   std::ostringstream ranges;
   ranges << std::hex;
   bool wasSafe = true;
   for (char32_t codePoint = 0; codePoint <= 0x20000; ++codePoint) {
      const bool isSafe = GetSafeForm(codePoint).empty();
      if (isSafe != wasSafe)
         ranges << static_cast<std::uint32_t>(codePoint) << (isSafe ? ") " : "-");
      wasSafe = isSafe;
   }
   EXPECT_EQ("0-9) b-20) 7f-a0) 202a-202f) 2066-206a) fdd0-fdf0) fffe-10000) 1fffe-20000) ",
             ranges.str());
   EXPECT_EQ("\xE2\x90\x80", GetSafeForm(0));
   EXPECT_EQ("\xE2\x90\x9F", GetSafeForm(0x1F));
   EXPECT_EQ("\xE2\x90\xA1", GetSafeForm(0x7F));
}
