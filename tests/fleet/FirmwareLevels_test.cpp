#include <gtest/gtest.h>

#include "TFirmwareLevels.h"

namespace {

class FirmwareLevels : public testing::Test
{
protected:
   TFirmwareLevels::TNumber Find(const std::string& version, const std::string& model = "R1")
   {
      return fLevels.Find(model, "BIOS", version);
   }

   TFirmwareLevels fLevels;
};

}  // namespace

TEST_F(FirmwareLevels, StandApartFromTheMajorityOfTheirModelOnly)
{
   const auto common = Find("2");
   const auto rare = Find("1");
   const auto elsewhere = Find("1", "R2");
   EXPECT_EQ(common, Find("2"));
   for (const std::size_t machine : {0, 1, 2})
      fLevels.Count(machine, {common});
   fLevels.Count(3, {rare});
   for (const std::size_t machine : {4, 5, 6})
      fLevels.Count(machine, {elsewhere});
   fLevels.Judge();
   EXPECT_FALSE(fLevels.Get(common).fIsOutlier);
   EXPECT_TRUE(fLevels.Get(rare).fIsOutlier);
   EXPECT_FALSE(fLevels.Get(elsewhere).fIsOutlier);
   EXPECT_EQ(std::vector<std::size_t>{3}, fLevels.Get(rare).fExamples);
   EXPECT_EQ("R1", fLevels.GetAll().front().fModel) << "more machines";
   EXPECT_EQ("R2", fLevels.GetAll()[fLevels.Get(elsewhere).fFirmware].fModel);
}

TEST_F(FirmwareLevels, WithoutAMajorityNobodyStandsApart)
{
   const auto one = Find("1");
   const auto two = Find("2");
   for (const std::size_t machine : {0, 1, 2, 3})
      fLevels.Count(machine, {machine % 2 == 0 ? one : two});
   fLevels.Judge();
   EXPECT_FALSE(fLevels.HasOutliers(fLevels.GetAll().front()));
}

TEST_F(FirmwareLevels, SeveralLevelsOfOneMachineCountItOnce)
{
   const auto one = Find("1");
   const auto two = Find("2");
   for (const std::size_t machine : {0, 1, 2})
      fLevels.Count(machine, {one, two});
   fLevels.Judge();
   EXPECT_EQ(3U, fLevels.GetAll().front().fMachines);
   EXPECT_FALSE(fLevels.HasOutliers(fLevels.GetAll().front())) << "both are common";
}
