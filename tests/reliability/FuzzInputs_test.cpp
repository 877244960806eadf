#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

#include <gtest/gtest.h>

#include "../fuzz/Targets.h"

/// All inputs that the fuzzers start from, and every one that ever failed.
TEST(FuzzInputs, BreakNoLaw)
{
   std::streambuf* const output = std::cout.rdbuf(nullptr);
   for (const TFuzzTarget& target : GetFuzzTargets()) {
      std::size_t tried = 0;
      const std::filesystem::path folder = std::filesystem::path(QSX_FUZZ_INPUTS) / target.fName;
      for (const auto& entry : std::filesystem::directory_iterator(folder)) {
         std::ifstream file(entry.path(), std::ios::binary);
         // A law that breaks ends the process: the last name told is that of the input.
         std::cerr << target.fName << ' ' << entry.path().filename() << '\n';
         target.fTry({std::istreambuf_iterator<char>(file), {}});
         ++tried;
      }
      EXPECT_LT(0U, tried) << target.fName;
   }
   std::cout.rdbuf(output);
}
