#include "html/HtmlPictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/TTemporaryFolder.h"

namespace {

using testing::HasSubstr;
using testing::Not;

std::string WritePicturesOf(const THealth& health)
{
   const TRunFacts facts;
   const THtmlOptions options;
   const TReportIndex index;
   std::vector<THtmlPage> pages(1);
   pages[0].fFileStem = "page";
   const THtmlSystems systems;
   const THtmlSite site{facts, options, index, pages, systems};
   TTemporaryFolder folder;
   TOutputFile file(folder.GetPath("page.html"));
   THtmlSink out(file);
   WritePictures(out, site, health);
   file.Close();
   return folder.Read("page.html");
}

TPagePlace MakePlace()
{
   TPagePlace place;
   place.fPage = 0;
   place.fTable = 1;
   return place;
}

}  // namespace

TEST(HtmlPictures, OfManySensorsAndVolumesTheUrgentOnesAreShown)
{
   THealth health;
   for (int i = 0; i < 14; ++i) {
      const bool isLast = i == 13;
      TSensorReading sensor;
      sensor.fName = "sensor " + std::to_string(i);
      sensor.fLimits.fUpperCritical = 90;
      sensor.fState = isLast ? EState::kFailed : EState::kOk;
      sensor.fPlace = MakePlace();
      health.fPictures.fSensors.push_back(sensor);
      health.fPictures.fVolumes.push_back(
         {"volume " + std::to_string(i), isLast ? 97.0 : 5, 90, "", EState::kOk, MakePlace()});
   }
   health.fPictures.fSensorsWithoutLimits = 1;
   const std::string pictures = WritePicturesOf(health);
   EXPECT_LT(pictures.find("sensor 13<"), pictures.find("sensor 0<"));
   EXPECT_THAT(pictures, Not(HasSubstr("sensor 12<")));
   EXPECT_THAT(pictures, HasSubstr("Not shown: 2 further readings. 1 reading without limits"));
   EXPECT_LT(pictures.find("volume 13<"), pictures.find("volume 0<"));
   EXPECT_THAT(pictures, Not(HasSubstr("volume 12<")));
   EXPECT_THAT(pictures, HasSubstr("The fullest of 14 volumes."));
}

TEST(HtmlPictures, WithoutDataThereIsNothingNotEvenABlank)
{
   EXPECT_EQ("<div class=\"figures\"></div>\n", WritePicturesOf(THealth()));
}
