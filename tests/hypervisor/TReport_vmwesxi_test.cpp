#include "hypervisor/TReport_vmwesxi.h"

#include <gmock/gmock.h>

#include "support/MakeStore.h"
#include "support/TRecordingWriter_vmwesxi.h"

using testing::ElementsAre;
using TReportClass = TReportParameters::TReportClass;
using TReportProperty = TReportParameters::TReportProperty;

namespace {

std::vector<std::string> WriteReports(const std::string& mof)
{
   TRecordingWriter_vmwesxi writer;
   TReport_vmwesxi(MakeNamespace(mof), {}, "out").Write(&writer, {});
   return writer.fLines;
}

}  // namespace

TEST(HypervisorRun, WritesFivePagesOfAnEmptyStoreAndClosesNoGroup)
{
   EXPECT_THAT(
      WriteReports(""),
      ElementsAre("BeginIndex", "Software:", "out/system_overview", "== System Overview",
                  "system_overview without data", "Hardware:", "out/hardware_inventory",
                  "== Hardware Inventory", "hardware_inventory without data",
                  "out/registered_profile", "== Registered Profile",
                  "registered_profile without data", "out/health_status", "== Health Status",
                  "health_status without data", "Log:", "out/vmware_privilege_log",
                  "vmware_privilege_log without data", "EndIndex"));
}

TEST(HypervisorRun, DealsInstancesOutByTheLimitAndHidesDatesWithoutTheQualifier)
{
   std::vector<std::string> lines = WriteReports(R"(
class OMC_SMASHFirmwareIdentity { [Key] string Name; string Manufacturer; string VersionString; datetime ReleaseDate; };
class OMC_Chip { [Key] string Tag; string Manufacturer; string Version; string StatusDescriptions[]; };
class VMware_StoreLibSoftwareIdentity { [Key] string InstanceID; string VersionString; [NOTIMEPRECISION] datetime ReleaseDate; uint16 HealthState; };
instance of OMC_SMASHFirmwareIdentity { Name = "BIOS"; ReleaseDate = "20090102030405.000000+000"; };
instance of OMC_Chip { Tag = "CPU 1"; Manufacturer = "Zander"; StatusDescriptions = {"OK", "Hot"}; };
instance of OMC_Chip { Tag = "CPU 2"; Manufacturer = "Zander"; };
instance of OMC_Chip { Tag = "CPU 3"; Manufacturer = "Zander"; };
instance of VMware_StoreLibSoftwareIdentity { InstanceID = "s"; ReleaseDate = "20090102030405.000000+000"; };
)");
   lines.erase(std::remove_if(lines.begin(), lines.end(),
                              [](const std::string& line) {
                                 return line[0] != '|' && line.substr(0, 2) != "--";
                              }),
               lines.end());
   EXPECT_THAT(lines, ElementsAre("-- BIOS", "| Name | BIOS (raw: N/A) |", "| Manufacturer |  |",
                                  "| VersionString |  |", "| ReleaseDate |  |", "-- Processor",
                                  "| Manufacturer | Zander (raw: N/A) | Zander (raw: N/A) |",
                                  "| Version |  |  |", "| Tag | CPU 1 | CPU 2 |",
                                  "| StatusDescriptions | OK, Hot |  |",
                                  "| Manufacturer | Zander (raw: N/A) |", "| Version |  |",
                                  "| Tag | CPU 3 |", "| StatusDescriptions |  |", "-- Storage",
                                  "| InstanceID | VersionString | ReleaseDate | HealthState |",
                                  "| s (raw: N/A) |  | 2009-01-02 03:04:05 |  |"));
}

TEST(HypervisorRun, ASecondaryTargetComesTooLateForTheText)
{
   const auto cimNamespace = MakeNamespace(R"(
class CIM_Card { [Key] string Tag; };
class CIM_Board { [Key] string Tag; string Slot; };
class CIM_CardOnBoard { [Key] CIM_Card REF Card; [Key] CIM_Board REF Board; };
instance of CIM_Card { Tag = "c"; };
instance of CIM_Board { Tag = "b"; Slot = "2"; };
instance of CIM_CardOnBoard { Card = "CIM_Card.Tag=\"c\""; Board = "CIM_Board.Tag=\"b\""; };
)");
   TReportClass cards;
   cards.SetClass("CIM_Card");
   TReportProperty slot("Slot", "100%", "CIM_CardInSlot", "CIM_Slot", "");
   slot.SetSecondaryAssociationTarget("CIM_Board");
   cards.SetProperties({slot});

   TRecordingWriter_vmwesxi writer;
   writer.Initialize(cimNamespace, {}, "out");
   writer.WriteTable(cards, writer.GetInstances(cards), true, false, {});
   EXPECT_THAT(writer.fLines, ElementsAre("| Slot |", "|  |"));
}
