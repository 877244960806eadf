#include <gmock/gmock.h>

#include "comparison/TDeltaRepository.h"
#include "services/LogSinks.h"
#include "services/TCoreLogger.h"
#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"
#include "writer/WriterLog.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

class TStateWriter : public TRecordingWriter
{
public:
   using TWriter::fDeltaClasses;
   using TWriter::fNamespaceLabels;
};

std::string MakeSystem(const std::string& serial, const std::string& more)
{
   return R"(
      class ZANSG_ComputerSystem { [Key] string Name; string SerialNumber; };
      class ZANSG_TimeZone { [Key] string Name; datetime LocalDateTime; };
      class ZANSG_IPService { [Key] string Name; string HostName; };
      instance of ZANSG_ComputerSystem { Name = "srv"; SerialNumber = ")" +
          serial + "\"; };" + more;
}

std::string MakeTime(const std::string& day)
{
   return "instance of ZANSG_TimeZone { Name = \"z\"; LocalDateTime = \"200901" + day +
          "030405.000000+060\"; };";
}

std::string MakeHost(const std::string& name)
{
   return "instance of ZANSG_IPService { Name = \"i\"; HostName = \"" + name + "\"; };";
}

std::vector<std::string> MakeLabels(const std::vector<std::string>& collections)
{
   std::vector<boost::shared_ptr<NZANQSX20::TMemoryStore>> stores;
   for (const std::string& mof : collections)
      stores.push_back(MakeStore(mof));
   NZANQSX20::TDeltaRepository repository(stores);
   TStateWriter writer;
   const auto count = static_cast<unsigned short>(collections.size());
   writer.BaseInitialize(repository.Open(), {{"nNamespaces", count}});
   return writer.fNamespaceLabels;
}

}  // namespace

TEST(WriterState, LabelsTheCollectionsOfOneSystemByTime)
{
   EXPECT_THAT(MakeLabels({MakeSystem("S1", MakeTime("02")), MakeSystem("S1", MakeTime("03"))}),
               ElementsAre("2009-01-02 03:04:05", "2009-01-03 03:04:05"));
   EXPECT_THAT(MakeLabels({MakeSystem("S1", MakeTime("02")), MakeSystem("S1", "")}),
               ElementsAre("2009-01-02 03:04:05", "S1"))
      << "without a time zone the serial number stays";
}

TEST(WriterState, LabelsSeveralSystemsByHostName)
{
   EXPECT_THAT(MakeLabels({MakeSystem("S1", MakeHost("alpha")), MakeSystem("S2", ""),
                           MakeSystem("S1", MakeHost("gamma"))}),
               ElementsAre("alpha", "S2", "gamma"));
}

TEST(WriterState, APlainCollectionHasNoLabels)
{
   TStateWriter writer;
   writer.BaseInitialize(MakeNamespace(""), {});
   EXPECT_THAT(writer.fNamespaceLabels, IsEmpty());
}

TEST(WriterState, KnowsTheComparedClassesUntilItIsDisposed)
{
   NZANQSX20::TDeltaRepository repository(
      {MakeStore(MakeSystem("S1", MakeHost("a"))), MakeStore(MakeSystem("S2", MakeHost("b")))});
   repository.FindDifferences({});
   TStateWriter writer;
   writer.BaseInitialize(repository.Open(), {{"nNamespaces", static_cast<unsigned short>(2)}});
   EXPECT_THAT(writer.fDeltaClasses, ElementsAre(Pair("ZANSG_ComputerSystem", testing::_),
                                                 Pair("ZANSG_IPService", testing::_)));
   writer.BaseDispose();
   writer.BaseDispose();
   EXPECT_THAT(writer.fDeltaClasses, IsEmpty());
   EXPECT_THAT(writer.fNamespaceLabels, IsEmpty());
}

TEST(WriterLog, AStatusCutsTheFrontOfItsLine)
{
   NZANQSX20::TRecordingLog log(3);
   const NZANQSX20::TLogAttachment attachment(log);
   for (const int status : {15, 0, -1, 26, 27, 1000})
      LogStatus("Exiting TWriter::WriteThis", status);
   EXPECT_THAT(
      log.GetLines(),
      ElementsAre(Pair(3, "::WriteThis"), Pair(3, "Exiting TWriter::WriteThis"),
                  Pair(3, "Exiting TWriter::WriteThis"), Pair(3, ""), Pair(3, ""), Pair(3, "")));
}

TEST(WriterLog, TellsMissingThingsAndFailedWalks)
{
   NZANQSX20::TRecordingLog log(2);
   const NZANQSX20::TLogAttachment attachment(log);
   TRecordingWriter writer;
   writer.Use(MakeNamespace(R"(
      class Fan { [Key] string Name; };
      class Blade { [Key] uint32 Number; };
      [Association] class FanBlade { [Key] Fan REF Fan; [Key] Blade REF Blade; };
      instance of Fan as $f { Name = "f"; };
      instance of Fan { Name = "g"; };
      instance of Blade as $b { Number = 1; };
      instance of FanBlade { Fan = $f; Blade = $b; };)"));
   TReportParameters::TReportClass fans;
   fans.SetClass("Gone");
   EXPECT_TRUE(writer.GetInstances(fans).empty());
   fans.SetClass("Fan");
   const auto fan = writer.GetInstances(fans).at(0);
   writer.GetProperties(fan, "Speed", "", "");
   writer.GetProperties(fan, "Speed", "FanBlade", "");
   fans.GetInstanceSorter().AddProperty("Speed", true, false);
   writer.GetInstances(fans);
   EXPECT_THAT(log.GetLines(),
               ElementsAre(Pair(1, "HTML: Couldn't find property Speed in class Fan"),
                           Pair(0, "Error navigation association: Not found"),
                           Pair(0, "Error sorting: Not found")));
}
