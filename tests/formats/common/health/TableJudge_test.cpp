#include "common/health/TableJudge.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

struct TTable
{
   const char* fPage;
   const char* fTitle;
   ETableKind fKind;
   /// In a column table the labels first; in a row table the label first in each row.
   std::vector<std::vector<std::string>> fRows;
};

TCollectedRows MakeRows(const TTable& table, TTableShape& shape)
{
   TCollectedRows rows;
   shape.fKind = table.fKind;
   const bool isUpright = table.fKind == ETableKind::kColumns;
   if (isUpright)
      shape.fLabels = table.fRows.front();
   for (std::size_t r = isUpright ? 1 : 0; r < table.fRows.size(); ++r) {
      rows.BeginRow();
      for (const std::string& text : table.fRows[r]) {
         TCell cell;
         cell.fText = text;
         rows.AddCell(cell);
      }
   }
   return rows;
}

/// The health that tables tell. Labels are the names of the properties.
class THealthOf
{
public:
   explicit THealthOf(const std::vector<TTable>& tables, TSensorLimitsByName limits = {})
   {
      THealthLedger ledger;
      TTableJudge judge(
         ledger, [](const std::string&, const std::string& property) { return property; },
         std::move(limits));
      unsigned number = 0;
      for (const TTable& table : tables) {
         if (number == 0)
            judge.BeginPage(7, table.fPage);
         TTableShape shape;
         const TCollectedRows rows = MakeRows(table, shape);
         judge.BeginTable("", table.fTitle, shape);
         fMarks = judge.Judge(rows, ++number, 0);
      }
      fHealth = ledger.Finish();
   }

   const TSubsystemHealth& Get(ESubsystem subsystem) const { return fHealth.Get(subsystem); }

   THealth fHealth;
   TTableJudge::TMarks fMarks;
};

struct TRuleCase
{
   const char* fReason;
   TTable fTable;
   ESubsystem fSubsystem;
   EState fState;
   const char* fText;
};

constexpr ETableKind kColumns = ETableKind::kColumns;
constexpr ETableKind kRows = ETableKind::kRows;

const TRuleCase kCases[] = {
   {"a word of failure",
    {"cv",
     "Physical Device Information",
     kRows,
     {{"ControllerNum", "1"}, {"Channel", "2"}, {"ScsiId", "3"}, {"State", "Defunct"}}},
    ESubsystem::kDisks,
    EState::kFailed,
    "The drive at channel 2, SCSI ID 3, of controller 1, is defunct."},
   {"what has no value is left out of the sentence",
    {"cv", "Physical Device Information", kRows, {{"Channel", "2"}, {"State", "Rebuilding"}}},
    ESubsystem::kDisks,
    EState::kAttention,
    "The drive at channel 2 is being rebuilt."},
   {"a drive that predicts its failure works",
    {"cv", "Physical Device Information", kRows, {{"State", "Online"}, {"PFA", "True"}}},
    ESubsystem::kDriveHealth,
    EState::kAttention,
    "The drive predicts its failure."},
   {"an array that no controller reports",
    {"mergedDevices",
     "RAID array",
     kColumns,
     {{"ElementName", "Location", "OperationalStatus"}, {"md0", "", "Degraded, In Service"}}},
    ESubsystem::kDisks,
    EState::kAttention,
    "The array md0 is degraded."},
   {"a word that no rule knows is unknown",
    {"lsi_mr",
     "Physical Drive Information",
     kRows,
     {{"Name", "Slot 4"}, {"OperationalStatus", "Odd"}}},
    ESubsystem::kDisks,
    EState::kUnknown,
    "The drive in Slot 4 says of \"OperationalStatus\" what no rule knows: Odd."},
   {"several things of one table each have the name ahead of them",
    {"lsi_mr",
     "Logical drive information",
     kRows,
     {{"Name", "Extent 0"},
      {"ExtentStatus", "In data redundancy"},
      {"Name", "Extent 1"},
      {"ExtentStatus", "Broken"}}},
    ESubsystem::kDisks,
    EState::kFailed,
    "Extent 1 is broken."},
   {"the instances of a row table stand side by side",
    {"hw_info",
     "Processor/Core",
     kRows,
     {{"DeviceID", "CPU 0", "CPU 1"}, {"CPUStatus", "Enabled", "Disabled by Firmware"}}},
    ESubsystem::kProcessors,
    EState::kFailed,
    "Processor CPU 1 is disabled by Firmware."},
   {"a volume is full from its limit on, in whatever unit",
    {"hw_info",
     "Volumes/Mount Points",
     kColumns,
     {{"DeviceID", "FileSystemName", "FreeSpace", "TotalSpace"},
      {"/srv", "ext4", "1,024 MB", "10,737,418,240 Bytes"}}},
    ESubsystem::kDisks,
    EState::kAttention,
    "Volume /srv is 90\u00A0% full."},
   {"a file system that nobody writes to may be full",
    {"hw_info",
     "Volumes/Mount Points",
     kColumns,
     {{"DeviceID", "FileSystemName", "FreeSpace", "TotalSpace"},
      {"/media", "iso9660", "0 Bytes", "700 MB"},
      {"/", "ext4", "9 GB", "10 GB"}}},
    ESubsystem::kDisks,
    EState::kOk,
    "1 volume is below 90\u00A0%."},
   {"memory in use",
    {"resource", "Memory Utilization", kRows, {{"MemoryLoad", "96 Percent"}}},
    ESubsystem::kMemory,
    EState::kAttention,
    "The memory is used to 96\u00A0%."},
   {"an attribute at its threshold",
    {"drive_health",
     "SMART Attributes Data",
     kColumns,
     {{"attribID", "attribName", "value", "worst", "threshold", "rawVal"},
      {"1", "Read errors", "36", "12", "36", "0 0"},
      {"9", "Hours", "1", "1", "0", "9 9"}}},
    ESubsystem::kDriveHealth,
    EState::kFailed,
    "Read errors is 36, at or below its threshold of 36."},
   {"the raw value counts where it is a count, lowest byte first",
    {"drive_health",
     "SMART Attributes Data",
     kColumns,
     {{"attribID", "attribName", "value", "worst", "threshold", "rawVal"},
      {"5", "Reallocated", "100", "100", "36", "80 7 0"},
      {"9", "Hours", "1", "1", "0", "9 9"}}},
    ESubsystem::kDriveHealth,
    EState::kAttention,
    "Reallocated counts 1,872 so far."},
   {"a light of a fault is on, one of operation may be",
    {"beaconpanel.html",
     "LED Settings",
     kColumns,
     {{"SensorType", "SensorIndex", "CurrentState"}, {"Power", "1", "On"}, {"Fan", "3", "On"}}},
    ESubsystem::kServiceProcessor,
    EState::kAttention,
    "The light Fan 3 is on."},
   {"texts beside the results of a test are none",
    {"bist.html", "IPMI BIST Results", kRows, {{"Description", "Controller"}, {"RAM", "Passed"}}},
    ESubsystem::kServiceProcessor,
    EState::kOk,
    "1 built-in test tells no fault."},
   {"errors by the number of packets",
    {"net",
     "Physical Network Ports",
     kRows,
     {{"DeviceID", "eth0", "eth1"}, {"RXErrors", "3", "40"}, {"RXPackets", "9000", "9000"}}},
    ESubsystem::kNetwork,
    EState::kAttention,
    "Port eth1 counts 40 of 9,000 packets as RXErrors."},
   {"a level without a version is unknown",
    {"firmware", "Firmware", kColumns, {{"Name", "Version"}, {"A", "1.0"}, {"B", ""}}},
    ESubsystem::kFirmware,
    EState::kUnknown,
    "B has no version."},
   {"a table of another report",
    {"other", "Firmware", kColumns, {{"Name", "Version"}, {"B", ""}}},
    ESubsystem::kFirmware,
    EState::kUnknown,
    "No value to judge by was collected."},
};

TEST(TableJudge, EveryFamilyOfRulesTellsWhatItFound)
{
   for (const TRuleCase& test : kCases) {
      const THealthOf health({test.fTable});
      const TSubsystemHealth& told = health.Get(test.fSubsystem);
      EXPECT_EQ(told.fState, test.fState) << test.fReason;
      EXPECT_EQ(told.fFindings.front().fText, test.fText) << test.fReason;
   }
}

TEST(TableJudge, AFindingNamesItsValueAndTheCellIsMarked)
{
   const THealthOf health({{"hw_info",
                            "Disk Information",
                            kColumns,
                            {{"Name", "DiskStatus"}, {"Disk 0", "OK"}, {"Disk 1", "Degraded"}}}});
   const TFinding& finding = health.Get(ESubsystem::kDisks).fFindings.front();
   EXPECT_EQ(finding.fSource, "Disk Information, row 2: DiskStatus = Degraded");
   EXPECT_EQ(finding.fPlace.fPage, 7u);
   EXPECT_EQ(finding.fPlace.fTable, 1u);
   EXPECT_EQ(finding.fPlace.fRow, 2u);
   EXPECT_EQ(finding.fPlace.fColumn, 2u);
   const TTableJudge::TMarks marks = {{{1, 2}, EState::kOk}, {{2, 2}, EState::kAttention}};
   EXPECT_EQ(health.fMarks, marks);
   EXPECT_EQ(health.fHealth.fPageStates[7], EState::kAttention);
   EXPECT_EQ(health.fHealth.GetVerdict(), EState::kAttention) << "unknown counts for nothing";
}

TEST(TableJudge, ReadingsAreJudgedByTheLimitsOfTheirSensor)
{
   const TTable readings = {"Environmentals",
                            "Environmentals",
                            kColumns,
                            {{"ElementName", "CurrentReading", "BaseUnits"},
                             {"Inlet", "41", "Degrees C"},
                             {"Fan", "0", "RPM"},
                             {"Outlet", "99", "Degrees C"}}};
   TSensorLimitsByName limits;
   limits["Inlet"].fUpperWarning = 38;
   limits["Fan"].fLowerCritical = 900;
   const THealthOf health({readings}, limits);
   const TSubsystemHealth& sensors = health.Get(ESubsystem::kSensors);
   ASSERT_EQ(sensors.fFindings.size(), 2u) << "one without limits is not judged";
   EXPECT_EQ(sensors.fFindings[0].fText, "Fan is below its critical limit of 900\u00A0RPM.");
   EXPECT_EQ(sensors.fFindings[1].fText, "Inlet is above its warning limit of 38\u00A0°C.");
   EXPECT_EQ(THealthOf({readings}).Get(ESubsystem::kSensors).fState, EState::kUnknown);
}

TEST(TableJudge, FindingsBeyondTheBoundAreCountedAndTheUrgentOnesKept)
{
   TTable disks = {"hw_info", "Disk Information", kColumns, {{"Name", "DiskStatus"}}};
   for (std::size_t i = 0; i < TSubsystemHealth::kMostFindings + 20; ++i)
      disks.fRows.push_back({"Disk", "Degraded"});
   disks.fRows.push_back({"Last", "Failed"});
   const TSubsystemHealth told = THealthOf({disks}).Get(ESubsystem::kDisks);
   EXPECT_EQ(told.fFindings.size(), TSubsystemHealth::kMostFindings);
   EXPECT_EQ(told.fFindings.front().fText, "Last has failed.");
   EXPECT_EQ(told.GetCount(), TSubsystemHealth::kMostFindings + 21);
}

TEST(TableJudge, WhatIsInOrderSaysWhatWasLookedAt)
{
   const THealthOf health(
      {{"hw_info", "Disk Information", kColumns, {{"Name", "DiskStatus"}, {"Disk 0", "OK"}}},
       {"hw_info",
        "Volumes/Mount Points",
        kColumns,
        {{"DeviceID", "VolumeState", "FreeSpace", "TotalSpace"},
         {"C:", "Healthy", "5 MB", "10 MB"},
         {"D:", "Healthy", "5 MB", "10 MB"}}}});
   const TSubsystemHealth& disks = health.Get(ESubsystem::kDisks);
   EXPECT_EQ(disks.fFindings.front().fText,
             "1 disk and 2 volumes tell no fault; 2 volumes are below 90\u00A0%.");
   EXPECT_EQ(disks.fFindings.front().fSource, "Disk Information: DiskStatus");
}

}  // namespace
