#include <gmock/gmock.h>

#include <regex>

#include "catalogue/TReportDraft.h"
#include "comparison/TDeltaRepository.h"
#include "services/LogSinks.h"
#include "services/TCoreLogger.h"
#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"

using testing::Contains;
using testing::ElementsAre;
using testing::IsSupersetOf;

namespace {

/// Widths stand in front of the lines of a grid.
class TDeltaWriter : public TRecordingWriter
{
public:
   void WriteGrid(TTableGrid* grid) override
   {
      TRecordingWriter::WriteGrid(grid);
      std::string widths = "widths " + std::to_string(grid->fTableWidth) + ":";
      for (const int width : grid->fColumnWidths)
         widths += " " + std::to_string(width);
      fLines.push_back(widths);
   }
};

std::string MakeSystem(const std::string& name, const std::string& instances)
{
   return R"(
      class ZANSG_ComputerSystem { [Key] string Name; string SerialNumber; };
      class ZANSG_IPService { [Key] string Name; string HostName; };
      class Disk { [Key] string Name; uint32 Size; string Note; };
      class Flash : Disk { };
      class Firmware { [Key] string ID; string Version; };
      class Volume { [Key] string Name; uint32 Size; };
      class File { [Key] string Name; uint32 Size; };
      [Association] class Runs { [Key] Disk ref Disk; [Key] Firmware ref Firmware; };
      [Association] class Holds { [Key] Disk ref Disk; [Key] Volume ref Volume; };
      [Association] class Keeps { [Key] Volume ref Volume; [Key] File ref File; };
      instance of ZANSG_ComputerSystem { Name = "s"; SerialNumber = ")" +
          name + "\"; };\ninstance of ZANSG_IPService { Name = \"i\"; HostName = \"" + name +
          "\"; };\n" + instances;
}

std::string MakeDisk(const std::string& name, int size, const std::string& note,
                     const std::string& cimClass = "Disk")
{
   return "instance of " + cimClass + " { Name = \"" + name + "\"; Size = " + std::to_string(size) +
          "; Note = \"" + note + "\"; };\n";
}

std::string MakeBelow(const std::string& owner, const std::string& association,
                      const std::string& cimClass, const std::string& name, int size)
{
   const std::string ownerClass = owner.substr(0, owner.find('.'));
   return "instance of " + cimClass + " { Name = \"" + name + "\"; Size = " + std::to_string(size) +
          "; };\ninstance of " + association + " { " + ownerClass + " = \"" + ownerClass +
          ".Name=\\\"" + owner.substr(ownerClass.size() + 1) + "\\\"\"; " + cimClass + " = \"" +
          cimClass + ".Name=\\\"" + name + "\\\"\"; };\n";
}

std::string MakeVolume(const std::string& disk, const std::string& name, int size)
{
   return MakeBelow("Disk." + disk, "Holds", "Volume", name, size);
}

std::string MakeFirmware(const std::string& disk, const std::string& id, const std::string& version)
{
   return "instance of Firmware { ID = \"" + id + "\"; Version = \"" + version +
          "\"; };\ninstance of Runs { Disk = \"Disk.Name=\\\"" + disk +
          "\\\"\"; Firmware = \"Firmware.ID=\\\"" + id + "\\\"\"; };\n";
}

TReportParameters MakeReport()
{
   TReportDraft report("disks", "Disks");
   TTableDraft& disks = report.Table("Disk", "All disks");
   disks.SetWidth("90%");
   disks.Column("Name", "20%");
   disks.Column("Size", "40%");
   disks.Column("Note", "30%");
   disks.Column("Version", "10%").As("Level").Via("Runs", "Firmware");
   TTableDraft& volumes = disks.SubTable("Volume", "Holds");
   volumes.Column("Name", "50%");
   volumes.Column("Size", "50%");
   volumes.SubTable("File", "Keeps").Column("Size", "100%");
   return report.Finish();
}

/// The lines of the report's body over these systems, called alpha, beta and gamma; of a report
/// without data those of its frame.
std::vector<std::string> WriteReport(const std::vector<std::string>& systems)
{
   const char* const names[] = {"alpha", "beta", "gamma"};
   std::vector<boost::shared_ptr<NZANQSX20::TMemoryStore>> stores;
   for (const std::string& system : systems)
      stores.push_back(MakeStore(MakeSystem(names[stores.size()], system)));
   NZANQSX20::TDeltaRepository repository(stores);
   repository.FindDifferences({});
   TDeltaWriter writer;
   const auto count = static_cast<unsigned short>(systems.size());
   writer.BaseInitialize(repository.Open(), {{"nNamespaces", count}});
   writer.Use(repository.Open());
   writer.WriteGenericDeltaReport(MakeReport());
   writer.BaseDispose();
   std::vector<std::string>& lines = writer.fLines;
   constexpr int kBegin = 4;
   constexpr int kEnd = 3;
   if (lines.size() > kBegin + kEnd) {
      EXPECT_EQ("WriteIndexEntry \"disks\", \"Disks\", true", lines.back());
      return {lines.begin() + kBegin, lines.end() - kEnd};
   }
   return lines;
}

}  // namespace

TEST(DeltaReport, EqualSystemsHaveNoData)
{
   const std::string system = MakeDisk("a", 1, "n");
   EXPECT_THAT(WriteReport({system, system}),
               ElementsAre("OpenReportFile \"disks\"", "WriteReportPreamble", "BeginReportBody",
                           "WriteReportTitle \"Disks\", \"\", \"\"", "EndReportBody",
                           "CloseReportFile", "WriteIndexEntry \"disks\", \"Disks\", false"));
}

TEST(DeltaReport, DifferencesComeFirstThenWhatIsMissingThenWhatIsUnique)
{
   EXPECT_THAT(
      WriteReport({MakeDisk("a", 1, "n") + MakeDisk("b", 1, "n") + MakeDisk("c", 1, "n"),
                   MakeDisk("a", 2, "n") + MakeDisk("d", 1, "n") + MakeDisk("b", 1, "n"),
                   MakeDisk("a", 1, "m") + MakeDisk("d", 1, "n") + MakeDisk("e", 1, "n", "Flash") +
                      MakeDisk("b", 1, "n")}),
      ElementsAre(
         "WriteTableTitle \"All disks\", false, false", "WriteGrid",
         "| Name | Size | Note | Level |", "| a (raw: N/A) | 1 | n |  |", "widths 90: 20 40 30 10",
         "WriteTableTitle \"Differences\", true, true", "WriteGrid",
         "| Data Source | Size | Note |", "| alpha | 1 | n |", "| beta | 2 | --- SAME --- |",
         "| gamma | --- SAME --- | m |", "widths 81: 22 44 33", "WriteTableBreak",
         "WriteTableTitle \"Missing from beta, gamma\", true, true", "WriteGrid",
         "| Name | Size | Note | Level |", "| c (raw: N/A) | 1 | n |  |", "widths 90: 20 40 30 10",
         "WriteTableBreak", "WriteTableTitle \"Unique to beta, gamma\", true, true", "WriteGrid",
         "| Name | Size | Note | Level |", "| d (raw: N/A) | 1 | n |  |", "widths 90: 20 40 30 10",
         "WriteTableBreak", "WriteTableTitle \"Unique to gamma\", true, true", "WriteGrid",
         "| Name | Size | Note | Level |", "| e (raw: N/A) | 1 | n |  |", "widths 90: 20 40 30 10",
         "WriteTableBreak"));
}

TEST(DeltaReport, AColumnOfAnotherClassIsComparedByWhatItShows)
{
   EXPECT_THAT(WriteReport({MakeDisk("a", 1, "n") + MakeFirmware("a", "f", "1.0"),
                            MakeDisk("a", 1, "n") + MakeFirmware("a", "f", "2.0"),
                            MakeDisk("a", 3, "n") + MakeFirmware("a", "f", "1.0")}),
               ElementsAre("WriteTableTitle \"All disks\", false, false", "WriteGrid",
                           "| Name | Size | Note | Level |", "| a (raw: N/A) | 1 | n | 1.0 |",
                           "widths 90: 20 40 30 10", "WriteTableTitle \"Differences\", true, true",
                           "WriteGrid", "| Data Source | Size | Level |", "| alpha | 1 |  |",
                           "| beta | --- SAME --- | 2.0 |", "| gamma | 3 |  |",
                           "widths 63: 28 57 14", "WriteTableBreak"));
}

TEST(DeltaReport, WhatDiffersBelowBringsItsOwnerAlong)
{
   EXPECT_THAT(WriteReport({MakeDisk("a", 1, "n") + MakeVolume("a", "v", 1) +
                               MakeVolume("a", "w", 1) + MakeVolume("a", "x", 1),
                            MakeDisk("a", 1, "n") + MakeVolume("a", "v", 2) +
                               MakeVolume("a", "w", 1) + MakeVolume("a", "y", 1)}),
               ElementsAre("WriteTableTitle \"All disks\", false, false", "WriteGrid",
                           "| Name | Size | Note | Level |", "| a (raw: N/A) | 1 | n |  |",
                           "widths 90: 20 40 30 10", "WriteTableBreak", "WriteGrid",
                           "| Name | Size |", "| v (raw: N/A) | 1 |", "widths 100: 50 50",
                           "WriteTableTitle \"Differences\", true, true", "WriteGrid",
                           "| Data Source | Size |", "| alpha | 1 |", "| beta | 2 |",
                           "widths 68: 26 73", "WriteTableBreak", "WriteGrid", "| Name | Size |",
                           "| x (raw: N/A) | 1 |", "widths 100: 50 50", "WriteTableBreak",
                           "WriteGrid", "| Name | Size |", "| y (raw: N/A) | 1 |",
                           "widths 100: 50 50", "WriteTableBreak", "WriteGrid", "| Name | Size |",
                           "| w (raw: N/A) | 1 |", "widths 100: 50 50", "WriteTableBreak"));
}

TEST(DeltaReport, AnotherFirmwareOfTheSameVersionIsNoDifferenceOfItsDisk)
{
   const std::string disk = MakeDisk("a", 1, "n");
   EXPECT_THAT(
      WriteReport({disk + MakeFirmware("a", "f", "1.0"), disk + MakeFirmware("a", "g", "1.0")}),
      Contains("WriteIndexEntry \"disks\", \"Disks\", false"));
}

TEST(DeltaReport, WhatDiffersTwoLevelsBelowIsFoundByWalksThatTheLogTells)
{
   NZANQSX20::TRecordingLog log(NZANQSX20::kLogTrace);
   const NZANQSX20::TLogAttachment attachment(log);
   const std::string volume = MakeDisk("a", 1, "n") + MakeVolume("a", "v", 1);
   EXPECT_THAT(WriteReport({volume + MakeBelow("Volume.v", "Keeps", "File", "f", 1),
                            volume + MakeBelow("Volume.v", "Keeps", "File", "f", 2)}),
               IsSupersetOf({"| a (raw: N/A) | 1 | n |  |", "| v (raw: N/A) | 1 |",
                             "| 1 (raw: N/A) |", "| beta | 2 |"}));
   std::string walks;
   for (const auto& [level, text] : log.GetLines())
      walks += std::regex_replace(std::regex_replace(text, std::regex("Entering TWriter::"), "+"),
                                  std::regex("Exiting TWriter::"), "-") +
               ' ';
   EXPECT_EQ(
      "+BaseInitialize -BaseInitialize +WriteGenericDeltaReport +CreateDeltaInstances "
      "+FindDeltas -FindDeltas +CreateDeltaAssocProperties "
      "+CreateDeltaAssocProperties(2), propertyName=Version, assocClass=Runs +FindDeltas "
      "-FindDeltas -CreateDeltaAssocProperties(2) -CreateDeltaAssocProperties "
      "+CreateDeltaBackAssocDependencies "
      "-CreateDeltaBackAssocDependencies, !deltaClass->fBackAssociatedClass "
      "+CreateDeltaInstances +FindDeltas -FindDeltas +CreateDeltaAssocProperties "
      "-CreateDeltaAssocProperties +CreateDeltaBackAssocDependencies "
      "+CreateDeltaBackAssocDependencies "
      "-CreateDeltaBackAssocDependencies, !deltaClass->fBackAssociatedClass "
      "-CreateDeltaBackAssocDependencies +CreateDeltaInstances +FindDeltas -FindDeltas "
      "+CreateDeltaAssocProperties -CreateDeltaAssocProperties "
      "+CreateDeltaBackAssocDependencies +CreateDeltaBackAssocDependencies "
      "+CreateDeltaBackAssocDependencies "
      "-CreateDeltaBackAssocDependencies, !deltaClass->fBackAssociatedClass "
      "-CreateDeltaBackAssocDependencies -CreateDeltaBackAssocDependencies "
      "-CreateDeltaInstances +CreateDeltaBackAssocDependencies "
      "-CreateDeltaBackAssocDependencies -CreateDeltaInstances "
      "+CreateDeltaBackAssocDependencies -CreateDeltaBackAssocDependencies "
      "-CreateDeltaInstances +WriteTable -WriteTable +WriteTable -WriteTable +WriteTable "
      "-WriteTable -WriteGenericDeltaReport ",
      walks);
}
