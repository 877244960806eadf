#include "subjects/DriveErrors.h"

#include <cstdint>
#include <optional>

#include <fmt/format.h>

#include "TCollected.h"
#include "text/Json.h"

namespace NZANQSX20 {

namespace {

/// The registers hold the address in three bytes.
void SetAddress(TEntry& entry, const rapidjson::Value& registers)
{
   entry.Set("sectorCount", GetNumber(registers, "count"));
   const auto address = GetNumber(registers, "lba");
   if (!address)
      return;
   entry.Set("LBALow", *address & 0xFF)
      .Set("LBAMid", *address >> 8 & 0xFF)
      .Set("LBAHigh", *address >> 16 & 0xFF);
}

/// The age of the drive when it happened. Units: hours.
std::optional<TCIMDateTime> MakeAge(std::optional<std::uint64_t> hours)
{
   constexpr std::uint64_t kMost = 24 * 99'999'999ULL;
   TCIMDateTime age;
   if (!hours || *hours > kMost ||
       !TCIMDateTime::Parse(fmt::format("{:08}{:02}0000.000000:000", *hours / 24, *hours % 24),
                            age))
      return std::nullopt;
   return age;
}

void AddCommand(TCollected& collected, const TEntry& error, const std::string& id,
                const rapidjson::Value& told)
{
   const rapidjson::Value& registers = GetMember(told, "registers");
   TEntry command = collected.Add("OMC_IDESMARTErrorCmdData");
   command.Set("InstanceID", id)
      .Set("commandId", GetText(told, "command_name"))
      .Set("commandReg", GetNumber(registers, "command"))
      .Set("deviceControl", GetNumber(registers, "device_control"))
      .Set("features", GetNumber(registers, "features"))
      .Set("timestamp", GetNumber(told, "powerup_milliseconds"));
   SetAddress(command, registers);
   collected.Associate("OMC_IDESMARTLogCmdData", error, command);
}

void AddError(TCollected& collected, const TEntry& log, const std::string& drive,
              const rapidjson::Value& told)
{
   const auto number = GetNumber(told, "error_number");
   if (!number)
      return;
   const std::string id = drive + ' ' + std::to_string(*number);
   const rapidjson::Value& registers = GetMember(told, "completion_registers");
   TEntry error = collected.Add("OMC_IDESMARTError");
   error.Set("InstanceID", id)
      .Set("RecordID", number)
      .Set("deviceState", GetText(GetMember(told, "device_state"), "string"))
      .Set("errorReg", GetNumber(registers, "error"))
      .Set("statusReg", GetNumber(registers, "status"))
      .Set("MessageTimestamp", MakeAge(GetNumber(told, "lifetime_hours")));
   SetAddress(error, registers);
   collected.Associate("OMC_IDESMARTRecordInLog", log, error);
   int order = 0;
   for (const rapidjson::Value& command : GetElements(GetMember(told, "previous_commands")))
      AddCommand(collected, error, id + '.' + std::to_string(++order), command);
}

}  // namespace

void AddDriveErrors(TCollected& collected, const TEntry& log, const std::string& drive,
                    const rapidjson::Value& told)
{
   const rapidjson::Value& summary = GetMember(GetMember(told, "ata_smart_error_log"), "summary");
   for (const rapidjson::Value& error : GetElements(GetMember(summary, "table")))
      AddError(collected, log, drive, error);
}

}  // namespace NZANQSX20
