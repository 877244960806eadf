#include "common/OutputFile.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "support/TTemporaryFolder.h"

namespace {

template <typename Call>
std::string GetFailure(Call call)
{
   try {
      call();
   } catch (const TOutputError& error) {
      return error.what();
   }
   return "no failure";
}

TEST(OutputFile, BytesOfAnySizeArriveInOrder)
{
   TTemporaryFolder folder;
   TOutputFile file(folder.GetPath("bytes"));
   TOutputFile spool = TOutputFile::MakeTemporary(folder.GetPath());
   std::string expected;
   for (const std::size_t size : {1ul, 200'000ul, 100'000ul, 262'144ul, 300'000ul, 7ul}) {
      const std::string bytes(size, static_cast<char>('a' + size % 23));
      file.Write(bytes);
      spool.Write(bytes);
      expected += bytes;
   }
   EXPECT_EQ(file.GetSize(), expected.size());
   file.CopyFrom(spool, 100'000, 500'000);
   file.CopyFrom(spool, 3, 0);
   file.Close();
   EXPECT_EQ(folder.Read("bytes"), expected + expected.substr(100'000, 500'000));
}

TEST(OutputFile, FailuresNameTheFileAndTheReason)
{
   EXPECT_EQ(GetFailure([] { TOutputFile("/nowhere/x.html"); }),
             "cannot write /nowhere/x.html: No such file or directory");
   EXPECT_EQ(GetFailure([] {
                TOutputFile file("/dev/full");
                file.Write("text");
                file.Close();
             }),
             "cannot write /dev/full: No space left on device");
}

TEST(OutputFile, MayTakeThePlaceOfAClosedStandardInput)
{
   TTemporaryFolder folder;
   const int kept = dup(STDIN_FILENO);
   close(STDIN_FILENO);
   EXPECT_EQ(GetFailure([&folder] {
                TOutputFile file(folder.GetPath("file"));
                file.Write("text");
                file.Close();
                TOutputFile::MakeTemporary(folder.GetPath());
             }),
             "no failure");
   EXPECT_EQ(folder.Read("file"), "text");
   EXPECT_EQ(dup(kept), STDIN_FILENO);
   close(kept);
}

TEST(OutputFile, ALinkIsNotFollowed)
{
   TTemporaryFolder folder;
   const std::string link = folder.GetPath("link");
   std::ofstream(folder.GetPath("target")) << "kept";
   std::filesystem::create_symlink(folder.GetPath("target"), link);
   EXPECT_NE(GetFailure([&link] { TOutputFile file(link); }), "no failure");
   EXPECT_EQ(folder.Read("target"), "kept");
}

}  // namespace
