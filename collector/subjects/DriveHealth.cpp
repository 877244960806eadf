#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/DeviceStates.h"
#include "subjects/DriveErrors.h"
#include "subjects/Subjects.h"
#include "text/Json.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kHealth = {
   "Drive health",
   {"OMC_ATADevice", "OMC_IDESMARTErrorLog", "OMC_IDESMARTAttrib", "OMC_IDESMARTError"}};

constexpr std::uint64_t kGood = 0;
constexpr std::uint64_t kThresholdExceeded = 1;

constexpr std::uint64_t kSelfTestAborted = 1;
constexpr std::uint64_t kSelfTestFatal = 3;
constexpr std::uint64_t kSelfTestFailed = 4;
constexpr std::uint64_t kSelfTestNeverRun = 16;

/// Attributes that move while the drive does its work well.
bool IsRunning(std::uint64_t attribute)
{
   constexpr std::uint64_t kRunning[] = {1,   3,   4,   7,   9,   12,  13,  177, 190, 191,
                                         192, 193, 194, 195, 204, 222, 225, 226, 227, 228,
                                         231, 233, 234, 240, 241, 242, 246, 247, 248, 249};
   return std::binary_search(std::begin(kRunning), std::end(kRunning), attribute);
}

/// As the drive's maker wants it read, "39 (Min/Max 20/45)", not as the six bytes it comes in.
std::vector<std::string> ReadRawValue(const rapidjson::Value& raw)
{
   std::string text = GetText(raw, "string");
   if (const auto number = GetNumber(raw, "value"); number && text.empty())
      text = std::to_string(*number);
   return text.empty() ? std::vector<std::string>() : std::vector<std::string>{text};
}

void AddATAAttribute(TCollected& collected, const TEntry& drive, const std::string& path,
                     const rapidjson::Value& told)
{
   const auto id = GetNumber(told, "id");
   if (!id)
      return;
   const rapidjson::Value& flags = GetMember(told, "flags");
   const auto isPrefailure = GetBoolean(flags, "prefailure");
   TEntry attribute =
      collected.Add(IsRunning(*id) ? "OMC_IDESMARTRunningAttrib" : "OMC_IDESMARTAttrib");
   attribute.Set("InstanceID", path + ' ' + std::to_string(*id))
      .Set("attribID", id)
      .Set("attribName", GetText(told, "name"))
      .Set("flags", Trim(GetText(flags, "string")))
      .Set("value", GetNumber(told, "value"))
      .Set("worst", GetNumber(told, "worst"))
      .Set("threshold", GetNumber(told, "thresh"))
      .Set("rawVal", ReadRawValue(GetMember(told, "raw")));
   if (isPrefailure)
      attribute.Set("type", *isPrefailure ? "Pre-fail" : "Old age");
   collected.Associate("OMC_IDESMARTElementStatisticalData", drive, attribute);
}

/// A counter of a drive that is no ATA drive, and where the tool tells it.
struct THealthField
{
   const char* fGroup;  // null for a member of the whole
   const char* fMember;
   const char* fName;
   bool fIsRunning;
};

constexpr const char* kNVMe = "nvme_smart_health_information_log";

constexpr THealthField kNVMeFields[] = {
   {kNVMe, "critical_warning", "Critical warning", false},
   {kNVMe, "temperature", "Temperature", true},
   {kNVMe, "available_spare", "Available spare (%)", false},
   {kNVMe, "available_spare_threshold", "Available spare threshold (%)", false},
   {kNVMe, "percentage_used", "Percentage used", true},
   {kNVMe, "data_units_read", "Data units read", true},
   {kNVMe, "data_units_written", "Data units written", true},
   {kNVMe, "power_cycles", "Power cycles", true},
   {kNVMe, "power_on_hours", "Power on hours", true},
   {kNVMe, "unsafe_shutdowns", "Unsafe shutdowns", false},
   {kNVMe, "media_errors", "Media errors", false},
   {kNVMe, "num_err_log_entries", "Error log entries", false},
   {kNVMe, "warning_temp_time", "Minutes above warning temperature", false},
   {kNVMe, "critical_comp_time", "Minutes above critical temperature", false}};

constexpr THealthField kSCSIFields[] = {
   {nullptr, "scsi_grown_defect_list", "Grown defects", false},
   {nullptr, "scsi_percentage_used_endurance_indicator", "Percentage used", true},
   {"temperature", "current", "Temperature", true},
   {"temperature", "drive_trip", "Highest temperature", false},
   {"power_on_time", "hours", "Power on hours", true}};

/// The counters have no numbers and no thresholds of their own: they stand as name and raw value.
template <std::size_t count>
void AddFields(TCollected& collected, const TEntry& drive, const std::string& path,
               const rapidjson::Value& told, const THealthField (&fields)[count], const char* type)
{
   for (const THealthField& field : fields) {
      const auto value =
         GetNumber(field.fGroup == nullptr ? told : GetMember(told, field.fGroup), field.fMember);
      if (!value)
         continue;
      TEntry attribute =
         collected.Add(field.fIsRunning ? "OMC_IDESMARTRunningAttrib" : "OMC_IDESMARTAttrib");
      attribute.Set("InstanceID", path + ' ' + field.fMember)
         .Set("attribName", field.fName)
         .Set("type", type)
         .Set("rawVal", std::vector<std::string>{std::to_string(*value)});
      collected.Associate("OMC_IDESMARTElementStatisticalData", drive, attribute);
   }
}

/// The result of the last self-test of an ATA drive, the upper half of its status byte.
std::optional<std::uint64_t> ReadATASelfTest(const rapidjson::Value& told)
{
   const rapidjson::Value& status =
      GetMember(GetMember(GetMember(told, "ata_smart_data"), "self_test"), "status");
   const auto value = GetNumber(status, "value");
   if (!value)
      return std::nullopt;
   const rapidjson::Value& log = GetMember(GetMember(told, "ata_smart_self_test_log"), "standard");
   // The drive says the same of a test that went well and of none.
   if (*value >> 4 == 0 && GetNumber(log, "count") == std::uint64_t{0})
      return kSelfTestNeverRun;
   return *value >> 4;
}

/// The last self-test of an NVMe drive, in the words for ATA drives.
std::optional<std::uint64_t> ReadNVMeSelfTest(const rapidjson::Value& told)
{
   const auto tests = GetElements(GetMember(GetMember(told, "nvme_self_test_log"), "table"));
   if (tests.Empty())
      return std::nullopt;
   const auto result = GetNumber(GetMember(*tests.begin(), "self_test_result"), "value");
   if (!result)
      return std::nullopt;
   switch (*result) {
      case 0:
         return kGood;
      case 5:
         return kSelfTestFatal;
      case 6:
      case 7:
         return kSelfTestFailed;
      default:
         return kSelfTestAborted;
   }
}

void AddAttributes(TCollected& collected, const TEntry& drive, const std::string& path,
                   const rapidjson::Value& told)
{
   const rapidjson::Value& table = GetMember(GetMember(told, "ata_smart_attributes"), "table");
   for (const rapidjson::Value& attribute : GetElements(table))
      AddATAAttribute(collected, drive, path, attribute);
   const std::string protocol = GetText(GetMember(told, "device"), "protocol");
   if (protocol == "NVMe")
      AddFields(collected, drive, path, told, kNVMeFields, "NVMe");
   else if (protocol == "SCSI")
      AddFields(collected, drive, path, told, kSCSIFields, "SCSI");
}

/// A drive that expects to fail says so among all devices, too.
void TellPrediction(TCollected& collected, const std::string& path)
{
   // The controller of an NVMe drive answers; the drive is its first namespace.
   const std::string drive = StartsWith(path, "/dev/nvme") ? path + "n1" : path;
   if (auto device = collected.Find("ZANSG_LogicalDevice.DeviceID=\"" + drive + '"'))
      device->Set("OperationalStatus", std::vector<std::uint64_t>{kStatePredictiveFailure});
}

/// id: of the drive; several drives behind one controller share its path.
void AddDrive(TCollected& collected, const std::string& id, const std::string& path,
              const rapidjson::Value& told)
{
   const std::string model = GetText(told, "model_name");
   TEntry drive = collected.Add("OMC_ATADevice");
   drive.Set("DeviceID", id)
      .Set("VendorID", GetText(told, model.empty() ? "scsi_vendor" : "model_family"))
      .Set("ProductID", model.empty() ? GetText(told, "scsi_product") : model);

   const auto passed = GetBoolean(GetMember(told, "smart_status"), "passed");
   const auto ataTest = ReadATASelfTest(told);
   TEntry log = collected.Add("OMC_IDESMARTErrorLog");
   log.Set("InstanceID", id)
      .Set("selftestExecutionStatus", ataTest ? ataTest : ReadNVMeSelfTest(told));
   if (passed)
      log.Set("smartStatus", *passed ? kGood : kThresholdExceeded);
   if (passed == false)
      TellPrediction(collected, path);
   collected.Associate("OMC_IDESMARTUseOfMessageLog", drive, log);
   AddAttributes(collected, drive, id, told);
   AddDriveErrors(collected, log, id, told);
}

/// What the tool says went wrong. Missing: empty.
std::string GetMessage(const rapidjson::Value& told)
{
   const auto messages = GetElements(GetMember(GetMember(told, "smartctl"), "messages"));
   return messages.Empty() ? std::string() : GetText(*messages.begin(), "string");
}

/// Names the gap of one drive.
void AddGap(TCollected& collected, const std::string& id, const TReading& reading,
            const std::string& message)
{
   EReason reason = reading.fReason == EReason::kNone ? EReason::kFailed : reading.fReason;
   if (Contains(message, "Permission denied"))
      reason = EReason::kNotPermitted;
   collected.AddGap(kHealth, reading.fSource + " of " + id, reason,
                    message.empty() ? reading.fDetail : message);
}

void CollectDrive(const TMachine& machine, TCollected& collected, const rapidjson::Value& found)
{
   const std::string path = GetText(found, "name");
   const std::string type = GetText(found, "type");
   // A type with a number names a drive behind the path.
   const std::string id = Contains(type, ",") ? path + ' ' + type : path;
   if (path.empty())
      return;
   // A drive that sleeps is left asleep. The exit code tells of the drive's health as well.
   const TReading reading = machine.RunTool(
      "smartctl", {"-j", "-a", "-n", "standby", "-d", type.empty() ? "auto" : type, path},
      EExit::kAny);
   const rapidjson::Document told = ParseJson(reading.fText);
   const bool hasHealth = GetMember(told, "smart_status").IsObject() ||
                          GetMember(told, "ata_smart_attributes").IsObject() ||
                          GetMember(told, kNVMe).IsObject();
   if (reading && hasHealth)
      AddDrive(collected, id, path, told);
   else
      AddGap(collected, id, reading, GetMessage(told));
}

}  // namespace

void CollectDriveHealth(const TMachine& machine, TCollected& collected)
{
   const TReading reading = machine.RunTool("smartctl", {"-j", "--scan"});
   if (!collected.Has(reading, kHealth))
      return;
   const rapidjson::Document found = ParseJson(reading.fText);
   for (const rapidjson::Value& drive : GetElements(GetMember(found, "devices")))
      CollectDrive(machine, collected, drive);
}

}  // namespace NZANQSX20
