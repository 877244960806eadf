#include <chrono>
#include <cstdio>
#include <fstream>
#include <sstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CIMStore.h"
#include "services/IPMILan.h"
#include "services/LogSinks.h"
#include "services/TCoreLogger.h"
#include "support/TTestStore.h"

using namespace NZANQSX20;
using testing::ElementsAre;
using testing::Pair;

TEST(TCoreLogger, HandsLinesToThoseWhoWantTheirLevel)
{
   TRecordingLog quiet(kLogMissing);
   {
      TRecordingLog all(kLogTrace);
      const TLogAttachment first(quiet);
      const TLogAttachment second(all);
      const TLogAttachment again(quiet);
      TRootObject::GetCoreLogger()->Log(kLogTrace, "t");
      TRootObject::GetCoreLogger()->Log(kLogNotice, "n");
      EXPECT_TRUE(TRootObject::GetCoreLogger()->IsLevelEnabled(kLogTrace));
      EXPECT_FALSE(TRootObject::GetCoreLogger()->IsLevelEnabled(kLogTrace + 1));
      EXPECT_THAT(all.GetLines(), ElementsAre(Pair(kLogTrace, "t"), Pair(kLogNotice, "n")));
   }
   TRootObject::GetCoreLogger()->Log(kLogError, "late");
   EXPECT_THAT(quiet.GetLines(), ElementsAre(Pair(kLogNotice, "n")));
   EXPECT_FALSE(TRootObject::GetCoreLogger()->IsLevelEnabled(kLogError));
}

TEST(TFileLog, KeepsEachTextOnALineOfItsOwn)
{
   const std::string path = testing::TempDir() + "qsxreport_log_test";
   {
      TFileLog log(path, kLogTrace);
      log.Log(kLogError, "a\nnotice: \x1b[2J");
      log.Log(kLogMissingClass, "caf\xC3\xA9");
   }
   std::stringstream text;
   text << std::ifstream(path).rdbuf();
   std::remove(path.c_str());
   EXPECT_EQ("error: a\\x0anotice: \\x1b[2J\nmissing class: caf\xC3\xA9\n", text.str());
   EXPECT_THROW(TFileLog("/absent/folder/log", 0), std::system_error);

   TFileLog full("/dev/full", 0);
   full.Log(kLogError, "lost");
   full.Flush();
   EXPECT_TRUE(full.HasFailed());
}

TEST(IIPMILan, GivesTheAddressAsFarAsItFits)
{
   EXPECT_EQ(nullptr, TRootObject::GetipmiLanIns());
   SetIPMILanAddress("192.0.2.17");
   char buffer[6] = "?????";
   TRootObject::GetipmiLanIns()->getIPMIAddress(buffer, 6);
   EXPECT_STREQ("192.0", buffer);
   EXPECT_TRUE(TRootObject::GetipmiLanIns()->getipmiLanStatus());
   SetIPMILanAddress("");
   EXPECT_EQ(nullptr, TRootObject::GetipmiLanIns());
}

TEST(TOSSpecific, GivesWhatAProgramPrints)
{
   // No shell is in between: the argument arrives as it is.
   EXPECT_EQ("$HOME; x", TOSSpecific::SpawnProcess("printf", {"%s", "$HOME; x"}, 10));
   EXPECT_EQ("out",
             TOSSpecific::SpawnProcess("sh", {"-c", "printf out; printf err >&2; exit 3"}, 10));
   EXPECT_EQ("", TOSSpecific::SpawnProcess("cat", {}, 10));
   EXPECT_EQ("", TOSSpecific::SpawnProcess("no-such-program-here", {"-v"}, 10));
}

TEST(TOSSpecific, EndsAProgramThatTakesTooLongOrPrintsTooMuch)
{
   const auto start = std::chrono::steady_clock::now();
   EXPECT_EQ("", TOSSpecific::SpawnProcess("sh", {"-c", "printf early; sleep 60 & sleep 60"}, 1));
   EXPECT_EQ("", TOSSpecific::SpawnProcess("sh", {"-c", "exec >&-; sleep 60"}, 1));
   EXPECT_EQ("y\ny\n", TOSSpecific::SpawnProcess("yes", {}, 60).substr(0, 4));
   EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(TCIMSchemaHelper, TellsWhatTheCollectionHoldsOfItself)
{
   TTestStore store;
   const auto getStatus = [&] {
      try {
         TCIMSchemaHelper::GetMachineType(store.GetNamespace());
      } catch (const TQSXException& exception) {
         return exception.fStatusCode.fStatusCode;
      }
      return 0;
   };
   EXPECT_EQ(15, getStatus());
   EXPECT_EQ("", TCIMSchemaHelper::GetOperatingSystemVersion(store.GetNamespace()));
   EXPECT_EQ("", TCIMSchemaHelper::GetRawSerialNumberString(store.GetNamespace(), {}));

   store.AddClass("ZANSG_ComputerSystem", "");
   store.AddClass("ZANSG_QSXProduct", "");
   EXPECT_EQ(15, getStatus());
   store.AddInstance("ZANSG_ComputerSystem", {{"MachineType", "M1"}, {"SerialNumber", "S1"}});
   store.AddInstance("ZANSG_ComputerSystem", {{"MachineType", "M2"}});
   store.AddInstance("ZANSG_QSXProduct", {{"Version", "8.20.1"}});
   EXPECT_EQ("M1", TCIMSchemaHelper::GetMachineType(store.GetNamespace()));
   EXPECT_EQ("S1", TCIMSchemaHelper::GetRawSerialNumberString(store.GetNamespace(), {}));
   EXPECT_EQ("20.1", TCIMSchemaHelper::GetDataSourceMinorVersion(store.GetNamespace(), {}));
}
