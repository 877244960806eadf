#include <gmock/gmock.h>
#include <stdlib.h>

#include "run/Schedule.h"
#include "run/TReport.h"
#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using TBuilder = TReportParametersBuilder;

namespace {

/// The classes that a collection can't do without, and no instances.
constexpr const char* kNeededClasses = R"(
class ZANSG_FirmwareElement { string Name; };
class CIM_BIOSElement { string Name; };
class ZANSG_PostBIOSVPD { string Name; };
class ZANSG_DiagnosticVPD { string Name; };
class ZANSG_SPROMFirmwareVPDMain { string Name; };
class ZANSG_SPROMFirmwareVPDBootROM { string Name; };
class ZANSG_HardwareRevisionLevel { string Name; };
class ZANSG_FRU { string Name; };
class ZANSG_CadenzaDevices { string Name; };
class ZANSG_DeltaClass { [Key] string ClassName; };
class ZANSG_OperatingSystem { [Key] string Name; string ProductVendor; uint16 OSType; };
)";

std::string MakeSystem(const std::string& vendor, int osType)
{
   return kNeededClasses +
          ("instance of ZANSG_OperatingSystem { Name = \"os\"; ProductVendor = \"" + vendor +
           "\"; OSType = " + std::to_string(osType) + "; };");
}

/// A collection that says of itself that it is a comparison of two.
class TComparedNamespace : public ICIMNamespace, public INamespaceProvider
{
public:
   explicit TComparedNamespace(boost::shared_ptr<ICIMNamespace> inner) : fInner(inner) {}

   boost::shared_ptr<INamespaceProvider> GetProvider(TContext) override
   {
      return boost::shared_ptr<INamespaceProvider>(this, [](INamespaceProvider*) {});
   }

   boost::shared_ptr<ICIMClass> GetClass(const std::string& className, TContext context) override
   {
      return fInner->GetClass(className, context);
   }

   boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path, TContext context) override
   {
      return fInner->GetInstance(path, context);
   }

   int GetProviderType(TContext) override { return NZANQSX20::kDeltaRepository; }

private:
   boost::shared_ptr<ICIMNamespace> fInner;
};

/// What a writer was called with, as the index that comes of it: a line a group, with the link
/// names, or the display name in brackets where there is no page. A closed group ends with a point.
std::string MakeOutline(const TRecordingWriter& writer)
{
   std::string outline;
   for (const std::string& line : writer.fLines) {
      const std::size_t quote = line.find('"');
      const std::string text = quote == std::string::npos
                                  ? ""
                                  : line.substr(quote + 1, line.find('"', quote + 1) - quote - 1);
      const std::string operation = line.substr(0, line.find(' '));
      if (operation == "BeginIndexGroup")
         outline += "\n" + text + ":";
      else if (operation == "WriteIndexEntry" && text.empty())
         outline += " (" + line.substr(quote + 5, line.find('"', quote + 5) - quote - 5) + ")";
      else if (operation == "WriteIndexEntry" || operation == "WriteEventLogReport" ||
               operation == "WriteMergedLogReport")
         outline += " " + text;
      else if (operation == "EndIndexGroup")
         outline += " .";
      else if (operation == "EndIndex")
         outline += " end";
   }
   return outline;
}

std::string WriteReports(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                         const TContext& params = {})
{
   TRecordingWriter writer;
   TReport(cimNamespace, params, "out").Write(&writer, params);
   return MakeOutline(writer);
}

constexpr const char* kHardware =
   "\nHardware: hw_info pci_info firmware servproc_config environmentals drive_health "
   "(LSI IDE Controller) (Corvane) corvanelogs Qlogic emulex vmware_esxi beaconpanel.html "
   "bist.html";

/// One row of a schedule that writes its text, or fails with the status.
TStep Say(const std::string& text, int status = 0)
{
   return TStep([text, status](TRun& run) {
      run.fWriter->BeginIndexGroup(text);
      if (status != 0)
         throw TQSXException(status);
   });
}

std::string RunSteps(const std::vector<TStep>& steps)
{
   TRecordingWriter writer;
   TRun run{&writer, TBuilder({}, "default", false), false, TBuilder::kLinux, "3.", "default",
            false};
   schedule::WriteSteps(steps, run);
   return MakeOutline(writer);
}

}  // namespace

TEST(Schedule, OlderWindowsListsItsComponents)
{
   EXPECT_EQ(
      "\nSoftware: system_overview installedapps win_components installedfixes devicedriver "
      "systemservice net resource processes os_config ." +
         std::string(kHardware) +
         " ."
         "\nWindows Logs: event_application event_system event_security ."
         "\nSP Logs: tlm_event wrdp_event ipmi_event ."
         "\nAnalysis: merged_log mergedDevices cadenzadevices ps fileloader.html diags . "
         "qsx_log end",
      WriteReports(MakeNamespace(MakeSystem("Microsoft", 73))));
}

TEST(Schedule, LinuxListsItsPackagesAndConfiguration)
{
   EXPECT_EQ(
      "\nSoftware: system_overview installed_packages kernelmodules net resource processes "
      "os_config linux_config ." +
         std::string(kHardware) +
         " ."
         "\nLinux Logs: (Event Logs) ."
         "\nSP Logs: tlm_event wrdp_event ipmi_event ."
         "\nAnalysis: merged_log cadenzadevices ps fileloader.html diags . qsx_log end",
      WriteReports(MakeNamespace(MakeSystem("Red Hat", 36))));
}

TEST(Schedule, ESXHasNoConfigurationFilesAndAnUnknownSystemNoSoftware)
{
   EXPECT_THAT(WriteReports(MakeNamespace(MakeSystem("", 78))),
               HasSubstr("\nSoftware: system_overview installed_packages kernelmodules net "
                         "resource processes os_config ."));
   const std::string unknown = WriteReports(MakeNamespace(kNeededClasses));
   EXPECT_THAT(unknown,
               HasSubstr("\nSoftware: system_overview net resource processes os_config ."));
   EXPECT_THAT(unknown, HasSubstr("\nLinux Logs:"));
}

TEST(Schedule, ServiceModeAndKMCAreRunParameters)
{
   const auto linux = MakeNamespace(MakeSystem("Zander", 36));
   const std::string service = WriteReports(linux, {{"mode", "mek"}});
   EXPECT_THAT(service, HasSubstr("ipmi_event .\nZAN Service: "));
   EXPECT_THAT(WriteReports(linux, {{"mode", "MEK"}}), Not(HasSubstr("ZAN Service")));
   // The key alone counts.
   const std::string kmc = WriteReports(linux, {{"KMC", TCIMValue()}});
   EXPECT_THAT(kmc, HasSubstr("\nKMC Logs: chassis_event ipmi_event ."));
   EXPECT_THAT(kmc, Not(HasSubstr("merged_log")));
}

TEST(Schedule, TheBIOSProviderIsToldByTheEnvironmentInAnyCase)
{
   const auto linux = MakeNamespace(MakeSystem("Zander", 36));
   setenv("QSX_BIOSPROVIDER", "YES", 1);
   const std::string with = WriteReports(linux);
   setenv("QSX_BIOSPROVIDER", "1", 1);
   const std::string without = WriteReports(linux);
   unsetenv("QSX_BIOSPROVIDER");
   EXPECT_NE(with, without);
   EXPECT_EQ(WriteReports(linux), without);
}

TEST(Schedule, AComparisonEndsBehindTheOpenHardwareGroupAndCorrectsNothing)
{
   const auto collected =
      MakeNamespace(MakeSystem("Red Hat", 36) +
                    "class ZANSG_ComputerSystem { [Key] string Name; string ProductName; };"
                    "instance of ZANSG_ComputerSystem { Name = \"a\"; ProductName = \"R36-\"; };"
                    "class ZANSG_TimeZone { [Key] string SettingID; };");
   TComparedNamespace compared(collected);
   const boost::shared_ptr<ICIMNamespace> handle(&compared, [](ICIMNamespace*) {});
   TContext params;
   params["nNamespaces"] = static_cast<unsigned short>(1);
   EXPECT_EQ(
      "\nSoftware: system_overview installed_packages kernelmodules net resource processes "
      "os_config linux_config ."
      "\nHardware: hw_info pci_info firmware servproc_config Qlogic emulex vmware_esxi "
      "beaconpanel.html bist.html end",
      WriteReports(handle, params));
   const auto system =
      collected->GetInstance({collected, "ZANSG_ComputerSystem", {{"Name", "a"}}}, {});
   EXPECT_EQ("R36-", system->GetProperty("ProductName", {})->GetValue({}).ToString(10));
}

TEST(Schedule, AGuardAnswersAnyStatusAndKeepsWhatWasWritten)
{
   for (const int status : {1, NZANQSX20::kStatusNotFound})
      EXPECT_EQ(
         "\na:\nb:\nfallback:\nlast:",
         RunSteps({schedule::Guarded({Say("a"), Say("b", status), Say("c")}, {Say("fallback")}),
                   Say("last")}));
   EXPECT_THROW(RunSteps({Say("a", NZANQSX20::kStatusNotFound)}), TQSXException);
}

TEST(Schedule, AnEndLeavesTheGroupOpenAndTheRestOut)
{
   const TCondition never([](TRun&) { return false; });
   EXPECT_EQ("\nA: .\nB:",
             RunSteps({schedule::Group("A"), schedule::End().When(never), schedule::Group("B"),
                       schedule::End(), schedule::EndGroup(), Say("out")}));
}
