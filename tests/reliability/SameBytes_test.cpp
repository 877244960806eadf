#include "cli/TToolRun.h"

namespace {

/// All files of a folder with their content, in one text.
const char* const kContents = "find . -type f | LC_ALL=C sort | xargs -d '\\n' sha256sum; ";

}  // namespace

class SameBytes : public TToolTest
{};

TEST_F(SameBytes, WhateverTheEnvironment)
{
   const std::string examples = QSX_EXAMPLES "/";
   const std::string first = "cp -r " + examples + "windows-server server && cp " + examples +
                             "compare/one-server-two-times/*.mof . && ";

   // Another folder, user, time zone, language, mask, day, and other addresses in memory.
   const struct
   {
      const char* fFolder;
      const char* fBefore;
   } places[] = {
      {"here", "umask 022; export TZ=UTC LC_ALL=C;"},
      {"over there",
       "umask 077; export TZ=Asia/Kathmandu LC_ALL=tr_TR.UTF-8 LANG=de_DE.UTF-8 "
       "HOME=/ USER=nobody MALLOC_PERTURB_=85 MALLOC_ARENA_MAX=1;"},
   };

   std::vector<std::string> contents;
   for (const auto& place : places) {
      const std::string run =
         std::string(place.fBefore) + "mkdir '" + place.fFolder + "' && cd '" + place.fFolder +
         "' && " + first +
         "'" QSX_TOOL "' report server -q -o pages && '" QSX_TOOL
         "' compare \"$PWD/before.mof\" ./after.mof -q -o differences --format html --format trace "
         "&& rm -r server *.mof && " +
         kContents;
      const TResult result = RunShell(run);
      ASSERT_EQ(0, result.fExitCode) << result.fError;
      contents.push_back(result.fOutput);
   }
   EXPECT_THAT(contents[0], testing::HasSubstr("pages/index.html"));
   EXPECT_EQ(contents[0], contents[1]);
}

TEST_F(SameBytes, AreLeftBySourceDateEpochAlone)
{
   Write("a.mof", "class A { [Key] string Name; };");

   const struct
   {
      const char* fEpoch;
      const char* fWritten;
   } cases[] = {
      {"0", "Written 1970-01-01 00:00 UTC by"},
      {"1234567890", "Written 2009-02-13 23:31 UTC by"},
      {"", "Written by"},
      {"soon", "Written by"},
      {"99999999999999999", "Written by"},
   };

   for (const auto& row : cases) {
      const std::string epoch = std::string("export SOURCE_DATE_EPOCH='") + row.fEpoch + "';";
      ASSERT_EQ(0, Run("report a.mof -q --force -o out", epoch).fExitCode) << row.fEpoch;
      EXPECT_THAT(Read("out/index.html"), testing::HasSubstr(row.fWritten)) << row.fEpoch;
   }
}

TEST_F(SameBytes, NameInputsByWhatTellsThemApart)
{
   const std::string system = "class ZANSG_ComputerSystem { [Key] string Name; };\n";
   for (const char* folder : {"one", "two"}) {
      std::filesystem::create_directory(fFolder + "/" + folder);
      Write(std::string(folder) + "/s.mof", system);
   }
   ASSERT_EQ(0, Run("compare one/s.mof two/s.mof -q -o out").fExitCode);
   EXPECT_THAT(Read("out/index.html"), testing::HasSubstr("one/s.mof, two/s.mof"));
   ASSERT_EQ(0, Run("report . -q -o ../dot", "cd one;").fExitCode);
   EXPECT_THAT(Read("dot/index.html"), testing::HasSubstr(">one<"));
}
