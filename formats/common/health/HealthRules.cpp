#include "common/health/HealthRules.h"

// The rules of health, all of them. To teach the pages a word of another controller, add a line to
// its list; to have another value judged, add a rule. docs/health.md tells how they work.
//
// "Attention" is what still works and won't for long: an array without redundancy, a drive that
// predicts its failure. What is gone or can't be relied on has failed.

namespace {

using E = ESubsystem;
using J = EJudgement;

// ---- words -------------------------------------------------------------------------------------

constexpr TStateWord kProcessorWords[] = {
   {"Enabled", EState::kOk},
   {"CPU Enabled", EState::kOk},
   {"Idle", EState::kOk},
   {"CPU Is Idle", EState::kOk},
   {"Populated", EState::kOk},
   {"Unpopulated", EState::kOk},
   {"Disabled by User", EState::kAttention},
   {"CPU Disabled by User", EState::kAttention},
   {"CPU Disabled by User via BIOS Setup", EState::kAttention},
   {"Disabled", EState::kAttention},
   {"Disabled by Firmware", EState::kFailed},
   {"Disabled by BIOS", EState::kFailed},
   {"CPU Disabled By BIOS (POST Error)", EState::kFailed},
   {"Failed", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kControllerWords[] = {
   {"OK", EState::kOk},         {"Okay", EState::kOk},
   {"Optimal", EState::kOk},    {"Degraded", EState::kAttention},
   {"Failed", EState::kFailed}, {"Unknown", EState::kUnknown},
};

constexpr TStateWord kBatteryWords[] = {
   {"OK", EState::kOk},         {"Okay", EState::kOk},         {"Low", EState::kAttention},
   {"Failed", EState::kFailed}, {"Unknown", EState::kUnknown},
};

// Logical drives, volumes and arrays.
constexpr TStateWord kArrayWords[] = {
   {"OK", EState::kOk},
   {"Okay", EState::kOk},
   {"Optimal", EState::kOk},
   {"Online", EState::kOk},
   {"Enabled", EState::kOk},
   {"Healthy", EState::kOk},
   {"Critical", EState::kAttention},  // an array that lost its redundancy, not its data
   {"Degraded", EState::kAttention},
   {"At Risk", EState::kAttention},
   {"Rebuilding", EState::kAttention},
   {"Resync in progress", EState::kAttention},
   {"Resyncing", EState::kAttention},
   {"Quiesced", EState::kAttention},
   {"Failed", EState::kFailed},
   {"Missing", EState::kFailed},
   {"Inactive", EState::kFailed},
   {"Offline", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kDriveWords[] = {
   {"OK", EState::kOk},
   {"Okay", EState::kOk},
   {"Online", EState::kOk},
   {"Ready", EState::kOk},
   {"Empty", EState::kOk},
   {"Hot spare", EState::kOk},
   {"Standby hot spare", EState::kOk},
   {"Degraded", EState::kAttention},
   {"Rebuilding", EState::kAttention},
   {"Out of sync", EState::kAttention},
   {"Predictive Failure", EState::kAttention},
   {"Defunct", EState::kFailed},
   {"Failed", EState::kFailed},
   {"Missing", EState::kFailed},
   {"Not responding", EState::kFailed},
   {"Offline", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kOperationalWords[] = {
   {"OK", EState::kOk},
   {"Online", EState::kOk},
   {"In Service", EState::kAttention},
   {"Degraded", EState::kAttention},
   {"Stressed", EState::kAttention},
   {"Predictive Failure", EState::kAttention},
   {"Starting", EState::kAttention},
   {"Stopping", EState::kAttention},
   {"Stopped", EState::kAttention},
   {"Error", EState::kFailed},
   {"Non-Recoverable Error", EState::kFailed},
   {"No Contact", EState::kFailed},
   {"Lost Communication", EState::kFailed},
   {"Aborted", EState::kFailed},
   {"Supporting Entity in Error", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kExtentWords[] = {
   {"In data redundancy", EState::kOk},
   {"Rebuild", EState::kAttention},
   {"Rebuilding", EState::kAttention},
   {"Readying", EState::kAttention},
   {"Recalculate", EState::kAttention},
   {"Spare in Use", EState::kAttention},
   {"Exposed", EState::kAttention},
   {"Fractionally Exposed", EState::kAttention},
   {"Partially Exposed", EState::kAttention},
   {"Protection Disabled", EState::kAttention},
   {"Broken", EState::kFailed},
   {"Data Lost", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kHealthWords[] = {
   {"OK", EState::kOk},
   {"Degraded", EState::kAttention},
   {"Degraded/Warning", EState::kAttention},
   {"Minor failure", EState::kAttention},
   {"Major failure", EState::kFailed},
   {"Critical failure", EState::kFailed},
   {"Non-recoverable error", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

constexpr TStateWord kPredictionWords[] = {
   {"False", EState::kOk},
   {"No", EState::kOk},
   {"True", EState::kAttention},
   {"Yes", EState::kAttention},
};

constexpr TStateWord kSmartWords[] = {
   {"Good", EState::kOk},         {"OK", EState::kOk},
   {"Passed", EState::kOk},       {"Threshold exceeded", EState::kFailed},
   {"Failing", EState::kFailed},  {"Failed", EState::kFailed},
   {"Unknown", EState::kUnknown},
};

// A test that was not run to its end says nothing of the drive.
constexpr TStateWord kSelfTestWords[] = {
   {"Completed without error", EState::kOk},
   {"Aborted by host", EState::kOk},
   {"Interrupted by host", EState::kOk},
   {"Never run", EState::kOk},
   {"No test run", EState::kOk},
   {"In progress", EState::kOk},
   {"Fatal error", EState::kFailed},
   {"Unknown failure", EState::kFailed},
   {"Electrical failure", EState::kFailed},
   {"Servo failure", EState::kFailed},
   {"Read failure", EState::kFailed},
   {"Handling damage", EState::kFailed},
};

// Beside these the tables of a built-in test hold texts.
constexpr TStateWord kBuiltInTestWords[] = {
   {"Passed", EState::kOk},
   {"Failed", EState::kFailed},
};

constexpr TStateWord kLightWords[] = {
   {"Off", EState::kOk},
   {"On", EState::kAttention},
   {"Blinking", EState::kAttention},
};

// An event is no thing that could have failed, unless it says that all is lost. An information is
// no state.
constexpr TStateWord kSeverityWords[] = {
   {"Information", EState::kNone},
   {"Unknown", EState::kUnknown},
   {"Warning", EState::kAttention},
   {"Degraded/Warning", EState::kAttention},
   {"Minor", EState::kAttention},
   {"Major", EState::kAttention},
   {"Critical", EState::kAttention},
   {"Fatal", EState::kFailed},
   {"Fatal/NonRecoverable", EState::kFailed},
};

// A port that is switched off on purpose is no fault, nor is one without a cable; a team tells when
// it misses one.
constexpr TStateWord kPortWords[] = {
   {"Enabled", EState::kOk},
   {"Disabled", EState::kOk},
   {"Enabled but Offline", EState::kOk},
   {"Unknown", EState::kUnknown},
};

// ---- what a rule is for, by another value
// ---------------------------------------------------------

// The lights that are on where something is wrong; others are on where all is well.
constexpr TStateWord kFaultLights[] = {
   {"Fault", EState::kNone},
   {"System Error", EState::kNone},
   {"Fan", EState::kNone},
   {"CPU", EState::kNone},
   {"Processor", EState::kNone},
   {"DIMM", EState::kNone},
   {"Memory", EState::kNone},
   {"Hard Drive", EState::kNone},
   {"Power Supply", EState::kNone},
   {"Temperature", EState::kNone},
   {"Voltage", EState::kNone},
   {"VRM", EState::kNone},
   {"PCI", EState::kNone},
   {"NMI", EState::kNone},
   {"Over Specification", EState::kNone},
};

// File systems that are full because nobody can write to them.
constexpr TStateWord kReadOnlyFileSystems[] = {
   {"squashfs", EState::kNone}, {"iso9660", EState::kNone}, {"udf", EState::kNone},
   {"cdfs", EState::kNone},     {"cramfs", EState::kNone},  {"erofs", EState::kNone},
   {"romfs", EState::kNone},
};

// Raw values that count what a drive lost, by the number of the attribute: sectors that were
// reallocated, that wait for it, and that can't be read.
constexpr TStateWord kCountingAttributes[] = {
   {"5", EState::kNone},
   {"197", EState::kNone},
   {"198", EState::kNone},
};

// ---- rules
// -----------------------------------------------------------------------------------------

std::vector<THealthRule> MakeRules()
{
   std::vector<THealthRule> rules;
   const auto add = [&rules](const THealthRule& rule) -> THealthRule& {
      return rules.emplace_back(rule);
   };
   const auto addWords = [&add](E subsystem, const char* page, const char* title,
                                const char* className, const char* property, const char* noun,
                                const char* thing, TStateWords words) -> THealthRule& {
      return add({subsystem, J::kWords, page, title, className, property, noun, thing, words});
   };

   addWords(E::kProcessors, "hw_info", "Processor/Core", "ZANSG_Processor", "CPUStatus",
            "processor core", "Processor {DeviceID}[, core {Core}]", kProcessorWords);
   addWords(E::kProcessors, "hardware_inventory", "Processor", "OMC_Chip", "StatusDescriptions",
            "processor socket", "Processor {Tag}", kProcessorWords);

   addWords(E::kMemory, "hardware_inventory", "Memory", "OMC_PhysicalMemory", "OperationalStatus",
            "memory module", "Module {Tag}", kOperationalWords);
   add({E::kMemory, J::kPercent, "resource", "Memory Utilization", "ZANSG_OperatingSystem",
        "MemoryLoad", "memory load", "The memory"})
      .fLimit = 95;
   add({E::kMemory, J::kPercent, "resource", "Memory Utilization", "ZANSG_OperatingSystem",
        "SwapUtilization", "swap load", "The swap space"})
      .fLimit = 90;

   // hw_info
   addWords(E::kDisks, "hw_info", "Disk Information", "ZANSG_MediaAccessDevice", "DiskStatus",
            "disk", "{Name}", kDriveWords);
   addWords(E::kDisks, "hw_info", "Volumes/Mount Points", "ZANSG_LogicalDisk", "VolumeState",
            "volume", "Volume {DeviceID}", kArrayWords);
   {
      THealthRule& space = add({E::kDisks, J::kUsedSpace, "hw_info", "Volumes/Mount Points",
                                "ZANSG_LogicalDisk", "FreeSpace", "volume", "Volume {DeviceID}"});
      space.fOther = "TotalSpace";
      space.fLimit = 90;
      space.fWhere = "FileSystemName";
      space.fOnly = kReadOnlyFileSystems;
      space.fIsExcept = true;
   }

   // cv
   addWords(E::kDisks, "cv", "Controller ", "ZANSG_cvSCSIProtocolController", "ControllerStatus",
            "controller", "The controller {ControllerType}", kControllerWords);
   addWords(E::kDisks, "cv", "Controller ", "ZANSG_cvSCSIProtocolController",
            "ControllerBatteryStatus", "battery", "The battery of the controller {ControllerType}",
            kBatteryWords);
   addWords(E::kDisks, "cv", "Logical Drive Information", "ZANSG_cvLogicalDisk",
            "LogicalDriveStatus", "logical drive",
            "Logical drive {LogicalDriveNum}[ ({LogicalDriveName})][ of controller "
            "{ControllerNum}]",
            kArrayWords);
   addWords(E::kDisks, "cv", "Physical Device Information", "ZANSG_cvDiskDrive", "State",
            "physical drive",
            "The drive[ at channel {Channel}][, SCSI ID {ScsiId}][, of controller "
            "{ControllerNum},]",
            kDriveWords);
   addWords(E::kDriveHealth, "cv", "Physical Device Information", "ZANSG_cvDiskDrive", "PFA",
            "failure prediction",
            "The drive[ at channel {Channel}][, SCSI ID {ScsiId}][, of controller "
            "{ControllerNum},]",
            kPredictionWords)
      .fPredicate = "predicts its failure";

   // lsi
   addWords(E::kDisks, "lsi", "Controller Status", "ZANSG_LSISCSIProtocolController",
            "VolumeStatus", "volume", "The volume[ {VolumeID}]", kArrayWords);
   addWords(E::kDisks, "lsi", "Controller Status", "ZANSG_LSISCSIProtocolController", "VolumeState",
            "volume", "The volume[ {VolumeID}]", kArrayWords);
   addWords(E::kDisks, "lsi", "Logical drive information", "ZANSG_LSILogicalDisk", "VolumeStatus",
            "logical drive", "Volume {VolumeNumber}", kArrayWords);
   addWords(E::kDisks, "lsi", "Physical device information", "ZANSG_LSIDiskDrive", "State",
            "physical drive", "The drive[ in slot {SlotID}][, target {TargetID},]", kDriveWords);
   addWords(E::kDisks, "lsi", "Physical drive information", "LSI_RAID_DiskDrive",
            "OperationalStatus", "physical drive", "The drive {Name}", kOperationalWords);
   addWords(E::kDisks, "lsi", "Logical drive information", "LSI_RAID_StorageVolume",
            "OperationalStatus", "logical drive", "Logical drive {ElementName}", kOperationalWords);
   addWords(E::kDisks, "lsi", "Logical drive information", "LSI_RAID_StorageExtent", "ExtentStatus",
            "extent", "The extent {DiskName}", kExtentWords);

   // lsi_mr
   addWords(E::kDisks, "lsi_mr", "Logical drive information", "LSIESG_StorageVolume",
            "OperationalStatus", "logical drive", "{ElementName}", kOperationalWords);
   addWords(E::kDisks, "lsi_mr", "Logical drive information", "LSIESG_DiskExtent", "ExtentStatus",
            "extent", "{Name}", kExtentWords);
   addWords(E::kDisks, "lsi_mr", "Physical Drive Information", "LSIESG_DiskDrive",
            "OperationalStatus", "physical drive", "The drive[ in {Name}]", kOperationalWords);

   // lsiide
   addWords(E::kDisks, "lsiide", "Physical drive information", "ZANSG_LSIIDEDiskDrive",
            "DriveStatus", "physical drive", "The drive[ on bus {Bus}][, target {TargetID},]",
            kDriveWords);

   addWords(E::kDisks, "health_status", "Storage", "VMware_StoreLibSoftwareIdentity", "HealthState",
            "storage component", "{InstanceID}", kHealthWords);

   add({E::kDriveHealth, J::kName, "drive_health", "ATA Device", "OMC_ATADevice", "DeviceID",
        "drive", "{DeviceID}[ ({VendorID} {ProductID})]"});
   addWords(E::kDriveHealth, "drive_health", "SMART Status", "OMC_IDESMARTErrorLog", "smartStatus",
            "drive", "The drive[ {name}]", kSmartWords);
   addWords(E::kDriveHealth, "drive_health", "SMART Status", "OMC_IDESMARTErrorLog",
            "selftestExecutionStatus", "self-test", "The last self-test[ of {name}]",
            kSelfTestWords)
      .fPredicate = "ended: {value}";
   {
      THealthRule& attributes =
         add({E::kDriveHealth, J::kAttributes, "drive_health", "SMART Attributes Data",
              "OMC_IDESMARTAttrib", "value", "attribute", "{attribName}[ of {name}]"});
      attributes.fOther = "threshold";
      THealthRule& counts =
         add({E::kDriveHealth, J::kRawCount, "drive_health", "SMART Attributes Data",
              "OMC_IDESMARTAttrib", "rawVal", "error count", "{attribName}[ of {name}]"});
      counts.fWhere = "attribID";
      counts.fOnly = kCountingAttributes;
   }

   add({E::kSensors, J::kReading, "Environmentals", "Environmentals", "CIM_NumericSensor",
        "CurrentReading", "reading", "{ElementName}"})
      .fOther = "BaseUnits";
   add({E::kSensors, J::kReading, "environmentals", "", "ZANSG_SP_NumericSensor", "CurrentReading",
        "reading", "{SensorDescription}[ of {SourceNode}]"})
      .fOther = "BaseUnits";

   addWords(E::kServiceProcessor, "bist.html", "", "", "*", "built-in test",
            "The test \"{property}\"[ of {Description}][, {SourceNode},]", kBuiltInTestWords);
   {
      THealthRule& lights = addWords(
         E::kServiceProcessor, "beaconpanel.html", "LED Settings", "ZANSG_SP_LED", "CurrentState",
         "fault light", "The light {SensorType}[ {SensorIndex}][ of {SourceNode}]", kLightWords);
      lights.fWhere = "SensorType";
      lights.fOnly = kFaultLights;
   }

   addWords(E::kNetwork, "net", "Physical Network Ports", "ZANSG_PhysicalNetworkPort",
            "EnabledState", "port", "Port {DeviceID}", kPortWords);
   {
      THealthRule& received =
         add({E::kNetwork, J::kErrorShare, "net", "Physical Network Ports",
              "ZANSG_NetworkStatisticalData", "RXErrors", "error counter", "Port {DeviceID}"});
      received.fOther = "RXPackets";
      received.fLimit = 1000;
      THealthRule& sent =
         add({E::kNetwork, J::kErrorShare, "net", "Physical Network Ports",
              "ZANSG_NetworkStatisticalData", "TXErrors", "error counter", "Port {DeviceID}"});
      sent.fOther = "TXPackets";
      sent.fLimit = 1000;
   }

   const auto addVersion = [&add](const char* page, const char* title, const char* className,
                                  const char* property) {
      add(
         {E::kFirmware, J::kPresent, page, title, className, property, "firmware level", "{Name}"});
   };
   addVersion("firmware", "Firmware", "ZANSG_FirmwareElement", "Version");
   addVersion("firmware", "Emulex Firmware", "ELXHBA_FirmwareVersion", "Version");
   addVersion("firmware", "BIOS/uEFI", "CIM_BIOSElement", "Version");
   addVersion("firmware", "SP Firmware Main VPD", "ZANSG_SPROMFirmwareVPDMain", "Version");
   addVersion("hardware_inventory", "BIOS", "OMC_SMASHFirmwareIdentity", "VersionString");

   // What a machine tells of itself where no controller's own report does, by the class of device.
   const auto addDevices = [&addWords](E subsystem, const char* title, const char* noun,
                                       const char* thing) {
      addWords(subsystem, "mergedDevices", title, "ZANSG_LogicalDevice", "OperationalStatus", noun,
               thing, kOperationalWords);
   };
   addDevices(E::kDisks, "RAID array", "array", "The array {ElementName}");
   addDevices(E::kDisks, "Drive", "drive", "The drive {ElementName}");
   addDevices(E::kSensors, "Fan", "fan", "The fan {ElementName}");
   addDevices(E::kServiceProcessor, "Power supply", "power supply",
              "The power supply {ElementName}");
   addDevices(E::kServiceProcessor, "Battery", "battery", "The battery {ElementName}");
   addDevices(E::kServiceProcessor, "Service processor", "group of sensors", "{ElementName}");
   addDevices(E::kNetwork, "Network team", "team of ports", "The team {ElementName}");

   // Marked, and not told as findings: the devices once more, as another report groups them, and
   // the records of logs.
   addWords(E::kNone, "mergedDevices", "", "ZANSG_LogicalDevice", "OperationalStatus", "", "",
            kOperationalWords);
   addWords(E::kNone, "corvanelogs", "", "ZANSG_LogRecord_RAIDMgrEvent", "Severity", "", "",
            kSeverityWords);
   addWords(E::kNone, "chassis_event", "Chassis Event Log", "ZAN_StandardMessageLogEntry",
            "PerceivedSeverity", "", "", kSeverityWords);
   return rules;
}

// ---- sentences
// -----------------------------------------------------------------------------------

struct TPhrase
{
   std::string_view fWord;
   std::string_view fPhrase;
};

constexpr TPhrase kPhrases[] = {
   {"Failed", "has failed"},
   {"Error", "is in error"},
   {"Non-Recoverable Error", "has an error that it can't recover from"},
   {"Not responding", "does not respond"},
   {"No Contact", "can't be reached"},
   {"Lost Communication", "can't be reached"},
   {"Supporting Entity in Error", "depends on something in error"},
   {"Predictive Failure", "predicts its failure"},
   {"Rebuilding", "is being rebuilt"},
   {"Resync in progress", "is being synchronised"},
   {"Resyncing", "is being synchronised"},
   {"Threshold exceeded", "has exceeded a threshold"},
   {"In Service", "is being serviced"},
   {"Data Lost", "has lost data"},
   {"Minor failure", "has a minor failure"},
   {"Major failure", "has a major failure"},
   {"Critical failure", "has a critical failure"},
   {"Protection Disabled", "has no protection"},
   {"Spare in Use", "uses a spare"},
};

}  // namespace

std::string_view FindPhrase(std::string_view word)
{
   for (const TPhrase& phrase : kPhrases)
      if (IsSameWord(phrase.fWord, word))
         return phrase.fPhrase;
   return {};
}

const std::vector<THealthRule>& GetHealthRules()
{
   static const std::vector<THealthRule> kRules = MakeRules();
   return kRules;
}

const std::vector<TKernelMessage>& GetKernelMessages()
{
   // A floppy or optical drive without a medium can't be read; that is no fault.
   static const std::vector<TKernelMessage> kMessages = {
      {"I/O error, dev fd", "dev fd"},
      {"I/O error, dev sr", "dev sr"},
      {"I/O error", ""},
      {"medium error", ""},
      {"Medium Error", ""},
      {"Hardware Error", ""},
      {"Machine check", ""},
      {"EXT4-fs error", ""},
      {"XFS_CORRUPT", ""},
      {"BTRFS error", ""},
      {"Remounting filesystem read-only", ""},
      {"Out of memory: Kill", ""},
      {"soft lockup", ""},
   };
   return kMessages;
}
