#include "subjects/PCISlots.h"

#include <string_view>
#include <vector>

#include "machine/TMachine.h"
#include "text/DMIRecords.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

const TNeed kSlots = {"Slots of the board", {"ZANSG_SystemSlot", "ZANSG_SystemBoard"}};

constexpr const char* kSwitchableFolder = "/sys/bus/pci/slots";

// Types of records.
constexpr int kSlot = 9;
constexpr int kOnboardDevice = 41;

/// The words of the description and the numbers of the property.
struct TWord
{
   std::string_view fWord;
   std::uint64_t fNumber;
};

constexpr TWord kUsages[] = {
   {"Other", 1}, {"Unknown", 2}, {"Available", 3}, {"In Use", 4}, {"Unavailable", 5}};
constexpr TWord kLengths[] = {{"Short", 3}, {"Long", 4}};
constexpr TWord kVoltages[] = {{"3.3 V is provided", 2}, {"5.0 V is provided", 3}};

template <std::size_t count>
std::optional<std::uint64_t> FindNumber(const TWord (&words)[count], std::string_view word)
{
   for (const TWord& each : words)
      if (each.fWord == word)
         return each.fNumber;
   return std::nullopt;
}

/// "x8" of "x8 PCI Express 3", "64-bit" of "64-bit PCI". Missing: empty for another type.
std::string_view ReadWidth(std::string_view type)
{
   const std::string_view word = type.substr(0, type.find(' '));
   const bool isLanes = StartsWith(word, "x") && ToNumber(word.substr(1));
   return isLanes || EndsWith(word, "-bit") ? word : std::string_view();
}

/// "0000:02:00.1" as "0000:02:00".
std::string WithoutFunction(std::string_view address)
{
   return std::string(address.substr(0, address.rfind('.')));
}

std::vector<std::string> ListOf(std::string_view text)
{
   return text.empty() ? std::vector<std::string>() : std::vector<std::string>{std::string(text)};
}

TEntry AddSlot(TCollected& collected, const TDMIRecord& record)
{
   std::vector<std::uint64_t> voltages;
   bool canHotPlug = false;
   for (const std::string_view line : record.fLines) {
      if (const auto voltage = FindNumber(kVoltages, line))
         voltages.push_back(*voltage);
      canHotPlug = canHotPlug || line == "Hot-plug devices are supported";
   }
   TEntry slot = collected.Add("ZANSG_SystemSlot");
   slot.Set("Tag", "Slot " + std::string(record.fHandle))
      .Set("SlotDesignation", record.Get("Designation"))
      .Set("Number", ToNumber(record.Get("ID")))
      .Set("ConnectorType", ListOf(record.Get("Type")))
      .Set("MaxDataWidth", ReadWidth(record.Get("Type")))
      .Set("SlotLength", FindNumber(kLengths, record.Get("Length")))
      .Set("CurrentUsage", FindNumber(kUsages, record.Get("Current Usage")))
      .Set("SupportsHotPlug", canHotPlug)
      .Set("VccMixedVoltageSupport", voltages);
   return slot;
}

}  // namespace

TPCISlots::TPCISlots(const TMachine& machine, TCollected& collected)
{
   const TDMITable table(machine, collected, kSlots);
   AddDescribed(collected, table);
   if (fSlots.empty())
      AddSwitchable(machine, collected);
}

void TPCISlots::AddDescribed(TCollected& collected, const TDMITable& table)
{
   for (const TDMIRecord* record : table.GetRecords(kSlot)) {
      const TEntry slot = AddSlot(collected, *record);
      const std::string address = WithoutFunction(record->Get("Bus Address"));
      if (!address.empty())
         fSlots.emplace(address, TPlace{slot, ToNumber(record->Get("ID"))});
   }
   for (const TDMIRecord* record : table.GetRecords(kOnboardDevice)) {
      TEntry place = collected.Add("ZANSG_SystemBoard");
      place.Set("Tag", "Board " + std::string(record->fHandle))
         .Set("SlotDesignation", record->Get("Reference Designation"));
      fBoardPlaces.emplace(record->Get("Bus Address"), TPlace{place, std::nullopt});
   }
}

void TPCISlots::AddSwitchable(const TMachine& machine, TCollected& collected)
{
   for (const std::string& name : machine.List(kSwitchableFolder)) {
      const std::string folder = kSwitchableFolder + ('/' + name);
      const std::string address = machine.ReadLine(folder + "/address");
      TEntry slot = collected.Add("ZANSG_SystemSlot");
      slot.Set("Tag", "Slot " + name)
         .Set("SlotDesignation", name)
         .Set("Number", ToNumber(name))
         .Set("SupportsHotPlug", machine.Exists(folder + "/power"));
      if (machine.Exists("/sys/bus/pci/devices/" + address + ".0"))
         slot.Set("CurrentUsage", *FindNumber(kUsages, "In Use"));
      fSlots.emplace(address, TPlace{slot, ToNumber(name)});
   }
}

void TPCISlots::Place(TCollected& collected, const std::string& address, TEntry& element,
                      bool isBridge)
{
   if (const auto place = fBoardPlaces.find(address); place != fBoardPlaces.end()) {
      collected.Associate("ZANSG_DeviceInSlot", place->second.fEntry, element);
      return;
   }
   const auto slot = fSlots.find(WithoutFunction(address));
   if (slot == fSlots.end())
      return;
   collected.Associate("ZANSG_DeviceInSlot", slot->second.fEntry, element);
   if (!isBridge)
      element.Set("UINumber", slot->second.fNumber);
}

}  // namespace NZANQSX20
