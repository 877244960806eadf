#include <gmock/gmock.h>

#include <boost/make_shared.hpp>
#include <functional>
#include <sstream>

#include "services/TCoreLogger.h"
#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

namespace {

/// A store that has no class to give. Status 0 stands for the empty handle.
class TClasslessNamespace : public ICIMNamespace
{
public:
   explicit TClasslessNamespace(int status) : fStatus(status) {}

   boost::shared_ptr<INamespaceProvider> GetProvider(TContext) override { return {}; }

   boost::shared_ptr<ICIMClass> GetClass(const std::string&, TContext) override
   {
      if (fStatus != 0)
         throw TQSXException(fStatus);
      return {};
   }

   boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference&, TContext) override
   {
      return {};
   }

private:
   int fStatus;
};

/// The core log lines from here to the end of a scope.
class TLogLines : public NZANQSX20::TLogger
{
public:
   std::string fText;

   bool IsLevelEnabled(int) const override { return true; }

   void Log(int level, const std::string& text) override
   {
      fText += std::to_string(level) + " " + text + "\n";
   }

private:
   NZANQSX20::TLogAttachment fAttachment{*this};
};

struct TStorageCase
{
   const char* fReport;
   std::function<void(TWriter&)> fWrite;
   /// The calls without any class, and the log lines where it is status 15 that says so.
   std::string fMissing;
   std::string fMissingLog;
   /// The calls with all classes and no instance.
   std::string fEmpty;
   /// What leaves the report when a class lookup fails with status 4; 0 when nothing does.
   int fFailure;
};

std::string gLink;

constexpr const char* kNothing = "";
constexpr const char* kLogsPage =
   R"(OpenReportFile "corvanelogs"
WriteReportTitle "Corvane Logs", "", ""
CloseReportFile
WriteIndexEntry "corvanelogs", "Corvane Logs", false
)";
constexpr const char* kHealthPage =
   R"(OpenReportFile "drive_health"
WriteReportTitle "Drive Health", "", ""
WriteHeaderTextCell "No Supported IDE or Tape Drive found
", No Supported IDE or Tape Drive

CloseReportFile
WriteIndexEntry "drive_health", "Drive Health", false
)";
const std::string kMegaRaidRawPage =
   R"(OpenReportFile "megalsi_rawData"
WriteReportTitle "MegaRAID Information", "", ""
WriteGrid
| Description | Raw Result |
CloseReportFile
WriteIndexEntry "megalsi_rawData", "MR Controller", false
)";

const TStorageCase kCases[] = {
   {"Corvane", &TWriter::WriteCorvaneReport, "WriteIndexEntry \"\", \"Corvane\", false\n",
    "3 Entering TWriter::WriteCorvaneReport\n", "WriteIndexEntry \"\", \"Corvane\", false\n", 4},
   {"Corvane logs", &TWriter::WriteCorvaneLogsReport, kLogsPage,
    "3 Entering TWriter::WriteCorvaneLogsReport\n"
    "3 Exiting TWriter::WriteCorvaneLogsReport\n",
    kLogsPage, 4},
   {"LSI", &TWriter::WriteLSIReport, kNothing,
    "3 Entering TWriter::WriteLSIReport\n"
    "3 Exiting TWriter::WriteLSIReport, caught exception while getting class instances\n",
    R"(OpenReportFile "lsi"
WriteReportTitle "LSI Controller", "", ""
WriteHeaderTextCell "No LSI Controller Card Detected
", 
CloseReportFile
WriteIndexEntry "lsi", "LSI Controller", false
)",
    4},
   {"LSI IDE", &TWriter::WriteLSIIDEReport, "WriteIndexEntry \"\", \"LSI IDE Controller\", false\n",
    "3 Entering TWriter::WriteLSIIDEReport\n"
    "3 ::WriteLSIIDEReport, ex.fStatusCode.fStatusCode=\n",
    R"(OpenReportFile "lsiide"
WriteReportTitle "LSI IDE Controller", "", ""
CloseReportFile
WriteIndexEntry "lsiide", "LSI IDE Controller", false
)",
    4},
   // The lookup of the raw data goes on with the empty handle, whose use is status 1.
   {"MegaRAID", &TWriter::WriteLSIMegaRaidReport, kNothing,
    "3 Entering TWriter::WriteLSIMegaRaidReport\n"
    "3 Entering TWriter::WriteMegaLSIRawDataReport\n"
    "3 ::WriteMegaLSIRawDataReport, ex.fStatusCode.fStatusCode=\n"
    "3 ::WriteLSIMegaRaidReport, ex.fStatusCode.fStatusCode=\n"
    "3 Exiting TWriter::WriteLSIMegaRaidReport\n",
    kMegaRaidRawPage + R"(OpenReportFile "lsi_mr"
WriteReportTitle "MegaRaid Information", "", ""
CloseReportFile
)",
    1},
   {"MegaRAID raw data", &TWriter::WriteMegaLSIRawDataReport, kNothing,
    "3 Entering TWriter::WriteMegaLSIRawDataReport\n"
    "3 ::WriteMegaLSIRawDataReport, ex.fStatusCode.fStatusCode=\n",
    kMegaRaidRawPage, 1},
   // Without cards the page has no title.
   {"integrated RAID", &TWriter::WriteLSIIntegratedRaidReport, kNothing,
    "3 Entering TWriter::WriteLSIIntegratedRaidReport\n"
    "3 ::WriteLSIIntegratedRaidReport, ex.fStatusCode.fStatusCode=\n"
    "3 Exiting TWriter::WriteLSIIntegratedRaidReport\n",
    R"(OpenReportFile "lsi"
CloseReportFile
WriteIndexEntry "lsi", "LSI Controller", false
)",
    4},
   {"LSI raw data", [](TWriter& writer) { writer.WriteLSIRawData(gLink, gLink); }, kNothing,
    "3 Entering TWriter::WriteLSIRawData\n"
    "3 Exiting TWriter::WriteLSIRawData, class ZANSG_lsiRawData not found\n",
    kNothing, 0},
   {"Corvane manager raw data",
    [](TWriter& writer) { writer.WriteCorvaneManagerRawDataReport(gLink, gLink); }, kNothing,
    "3 Entering TWriter::WriteCorvaneManagerRawDataReport\n"
    "2 Entering TWriter::WriteCorvaneManagerRawDataReport:Can not get ZANSG_cvManagerRawData "
    "class.Not found\n",
    kNothing, 0},
   {"drive health", &TWriter::WriteDriveHealthReport, kHealthPage, "", kHealthPage, 4},
};

constexpr const char* kClassNames =
   "ZANSG_cvSCSIProtocolController ZANSG_cvLogicalDisk ZANSG_cvDiskGroup ZANSG_cvManagerRawData "
   "ZANSG_LogRecord_RAIDMgrEvent ZANSG_LogRecord_cvDDD ZANSG_cvSCSIDeviceData "
   "ZANSG_LSISCSIProtocolController ZANSG_LSIIDEProtocolController ZANSG_lsiRawData "
   "ZANSG_MegaLSIRawData LSIESG_MegaRAIDHBA LSIESG_PhysicalCard LSIESG_ControllerBIOSIdentity "
   "LSIESG_ControllerFirmwareIdentity LSIESG_DiskDrive LSIESG_DriveFirmwareIdentity "
   "LSIESG_StorageVolume LSIESG_StorageVolumeSetting LSIESG_StorageRedundancySet "
   "LSIESG_DiskExtent LSIESG_ConcreteDependency LSI_RAID_Card LSI_RAID_ComputerSystem "
   "LSI_RAID_DiskDrive OMC_ATADevice ZANSG_TapeDriveSensePageData";

/// What the report writes, and the status that leaves it; 0 when none does.
std::pair<std::string, int> WriteReport(const TStorageCase& reportCase,
                                        const boost::shared_ptr<ICIMNamespace>& cimNamespace)
{
   TRecordingWriter writer;
   writer.Use(cimNamespace);
   int status = 0;
   try {
      reportCase.fWrite(writer);
   } catch (const TQSXException& failure) {
      status = failure.fStatusCode.fStatusCode;
   }
   std::string text;
   for (const std::string& line :
        writer.GetLines({"OpenReportFile", "WriteReportTitle", "WriteHeaderTextCell", "WriteGrid",
                         "|", "CloseReportFile", "WriteIndexEntry"}))
      text += line + "\n";
   return {text, status};
}

}  // namespace

TEST(StorageReports, TakeAnEmptyHandleForAMissingClass)
{
   for (const TStorageCase& reportCase : kCases)
      for (const int status : {kStatusNotFound, 0})
         EXPECT_EQ(WriteReport(reportCase, boost::make_shared<TClasslessNamespace>(status)),
                   std::pair(reportCase.fMissing, 0))
            << reportCase.fReport;
}

TEST(StorageReports, LogTheWayOutWithTheStatusCutOff)
{
   for (const TStorageCase& reportCase : kCases) {
      TLogLines log;
      WriteReport(reportCase, boost::make_shared<TClasslessNamespace>(kStatusNotFound));
      EXPECT_EQ(log.fText, reportCase.fMissingLog) << reportCase.fReport;
   }
}

TEST(StorageReports, HandOnOtherFailuresOfTheLookup)
{
   for (const TStorageCase& reportCase : kCases)
      EXPECT_EQ(WriteReport(reportCase, boost::make_shared<TClasslessNamespace>(4)),
                std::pair(std::string(), reportCase.fFailure))
         << reportCase.fReport;
}

TEST(StorageReports, SayWhenTheirClassesAreEmpty)
{
   std::string mof;
   std::istringstream names(kClassNames);
   for (std::string name; names >> name;)
      mof += "class " + name + " { [Key] string ID; };\n";
   for (const TStorageCase& reportCase : kCases)
      EXPECT_EQ(WriteReport(reportCase, MakeNamespace(mof)), std::pair(reportCase.fEmpty, 0))
         << reportCase.fReport;
   EXPECT_EQ(gLink, "");
}
