#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/WriterLog.h"

namespace {

using TProperty = boost::shared_ptr<ICIMProperty>;

constexpr std::size_t kRegisterCount = 600;
constexpr std::size_t kGroupCount = 7;
/// The groups of the first instance come first; the second and third instance have one each.
constexpr std::size_t kFirstBridgeGroup = 5;
constexpr std::size_t kReportedInstances = 3;
constexpr std::string_view kRegisterPrefix = "Register";

// The blank behind "PCI Brandt 0 " is part of the title.
constexpr std::array<const char*, kGroupCount> QTARegisterCategoryList = {
   "Sorrel Registers MCK and Misc",
   "Sorrel Registers 86xxx",
   "Sorrel Registers 89xxx",
   "Sorrel Registers 8bxxx",
   "Sorrel Registers 8cxxx",
   "PCI Brandt 0 ",
   "PCI Brandt 1"};

// "081508 " has a blank behind it and so never matches: meant.
constexpr std::array<const char*, 44> QTARegisterAddressMiscList = {
   "08C100",  "08C108", "08C120", "081000", "081400", "081008", "081408", "083000", "083008",
   "085000",  "085008", "185020", "185028", "085060", "085068", "089100", "089108", "08C248",
   "08C258",  "08C128", "081020", "081420", "081028", "081428", "083020", "083028", "089120",
   "089128",  "089F90", "089F98", "089FA8", "089FB0", "089FC0", "089FC8", "086600", "081108",
   "081508 ", "081510", "001005", "001015", "001805", "001815", "00F005", "00F015"};

/// The group of a category of addresses, and the trace line of a register that joins it.
struct TCategory
{
   const char* fCategory;
   std::size_t fGroup;
   const char* fTraceText;
};

constexpr std::array<TCategory, 6> kCategories = {{{"086", 1, "get a 86"},
                                                   {"089", 2, "get a 89"},
                                                   {"08B", 3, "get a 8b"},
                                                   {"08b", 3, "get a 8b"},
                                                   {"08C", 4, "get a 8c"},
                                                   {"08c", 4, "get a 8c"}}};

/// The registers of one group by their number; most entries stay empty.
using TRegisterList = std::vector<TProperty>;

/// What one walk over the instances finds.
struct TRegisterDump
{
   TRegisterDump() { fGroups.fill(TRegisterList(kRegisterCount)); }

   std::array<TRegisterList, kGroupCount> fGroups;
   TProperty fDateTimeOfCollection;
   TProperty fMachineType;
};

/// The first three fields joined. A value with fewer commas repeats its rest: meant.
std::string GetAddress(std::string value)
{
   std::string address;
   for (int field = 0; field < 3; ++field) {
      const auto comma = value.find(',');
      address += value.substr(0, comma);
      value = value.substr(comma + 1);  // npos + 1 is 0
   }
   return address;
}

/// The number that follows the prefix directly. Missing: kRegisterCount where there is none in
/// range.
std::size_t GetRegisterNumber(std::string_view name)
{
   name.remove_prefix(kRegisterPrefix.size());
   if (name.empty() || !std::isdigit(static_cast<unsigned char>(name[0])))
      return kRegisterCount;
   std::size_t number = 0;
   for (const char digit : name) {
      if (!std::isdigit(static_cast<unsigned char>(digit)) || number >= kRegisterCount)
         break;
      number = number * 10 + static_cast<std::size_t>(digit - '0');
   }
   return std::min(number, kRegisterCount);
}

void AddChipsetRegister(TRegisterDump& dump, const TProperty& property, std::size_t number,
                        const std::string& value)
{
   const std::string category = QTARegisterGetCategory(value);
   if (QTARegisterAddressInMisc(value)) {
      LogTrace("get a misc");
      dump.fGroups[0][number] = property;
      return;
   }
   for (const auto& known : kCategories) {
      if (category == known.fCategory) {
         LogTrace(known.fTraceText);
         dump.fGroups[known.fGroup][number] = property;
         return;
      }
   }
}

/// Keeps the register under its number. A number outside the list comes from the collection and is
/// left out.
void AddRegister(TRegisterDump& dump, std::size_t instanceIndex, const TProperty& property,
                 const std::string& name, const std::string& value)
{
   if (instanceIndex >= kReportedInstances)
      return;
   const std::size_t number = GetRegisterNumber(name);
   if (number >= kRegisterCount)
      LogMissing("Register number out of range: ", name);
   else if (instanceIndex == 0)
      AddChipsetRegister(dump, property, number, value);
   else
      dump.fGroups[kFirstBridgeGroup + instanceIndex - 1][number] = property;
}

void KeepFirst(TProperty& kept, const TProperty& property)
{
   if (!kept)
      kept = property;
}

void ReadInstance(TWriter& writer, TRegisterDump& dump, std::size_t index,
                  const boost::shared_ptr<ICIMInstance>& instance)
{
   for (const auto& property : EnumerateProperties(instance)) {
      const std::string name = property->GetDecl({})->GetName({});
      const std::string value = writer.GetPropertyValue(instance, name, ",");
      const bool isRegister = name.compare(0, kRegisterPrefix.size(), kRegisterPrefix) == 0 &&
                              value.find(',') != std::string::npos;
      if (isRegister)
         AddRegister(dump, index, property, name, value);
      else if (name == "DateTimeOfCollection")
         KeepFirst(dump.fDateTimeOfCollection, property);
      else if (name == "MachineType")
         KeepFirst(dump.fMachineType, property);
   }
}

void BeginRegisterTable(TWriter& writer, const std::string& title, const std::string& caption)
{
   writer.WriteTableBreak();
   writer.WriteTableTitle(title, false, true);
   writer.BeginRowTable("100%", "20%", caption);
}

void WriteRegisterRow(TWriter& writer, const boost::shared_ptr<ICIMInstance>& instance,
                      const TProperty& property)
{
   writer.BeginTableRow(true);
   writer.WriteDeclHeaderCell(property->GetDecl({}));
   writer.WriteRegisterValueCell(instance, property);
   writer.EndTableRow();
}

void WriteCollectionTable(TWriter& writer, const TRegisterDump& dump,
                          const boost::shared_ptr<ICIMInstance>& instance)
{
   BeginRegisterTable(writer, "Collection Information", "Date Time of Collection");
   for (const auto& property : {dump.fDateTimeOfCollection, dump.fMachineType})
      if (property)
         WriteRegisterRow(writer, instance, property);
   writer.EndTable();
}

bool IsShown(const TProperty& entry)
{
   const std::string name = entry->GetDecl({})->GetName({});
   return name != "Description" && name != "InstanceID" && name != "Caption" &&
          !entry->GetValue({}).IsNull();
}

/// Every number without a register costs one trace line: its empty handle runs into the assertion
/// hook at its first use.
void WriteRegisterTable(TWriter& writer, const char* title, const TRegisterList& registers,
                        const boost::shared_ptr<ICIMInstance>& instance)
{
   BeginRegisterTable(writer, title, title);
   for (const auto& entry : registers) {
      try {
         if (IsShown(entry))
            WriteRegisterRow(writer, instance, entry);
      } catch (const TQSXException&) {
         LogTrace("There is no data for certain register yet");
      }
   }
   writer.EndTable();
}

/// The instance whose registers a group holds. Missing: empty where so many were not collected.
boost::shared_ptr<ICIMInstance> GetGroupInstance(const TInstances& instances, std::size_t group)
{
   const std::size_t index = group < kFirstBridgeGroup ? 0 : group - kFirstBridgeGroup + 1;
   return index < instances.size() ? instances[index] : boost::shared_ptr<ICIMInstance>();
}

}  // namespace

bool QTARegisterAddressInMisc(std::string value)
{
   const std::string address = GetAddress(value);
   LogTrace("The Register Address = ", address);
   return std::find(QTARegisterAddressMiscList.begin(), QTARegisterAddressMiscList.end(),
                    address) != QTARegisterAddressMiscList.end();
}

std::string QTARegisterGetCategory(std::string value)
{
   const std::string category = GetAddress(value).substr(0, 3);
   LogTrace("The Register Category = ", category);
   return category;
}

void TWriter::WriteQTARegisterReport()
{
   const std::string title = "QTA Chipset Registers";
   const TInstances instances = FindInstances(fNamespace, "ZANSG_QTAChipsetErrorData");
   if (instances.empty()) {
      WriteIndexEntry("qta_reg", title, false);
      return;
   }
   OpenReportPage(*this, fOutputDirectory, "qta_reg");
   WriteReportTitle(title, "", "");
   TRegisterDump dump;
   for (std::size_t index = 0; index < instances.size(); ++index)
      ReadInstance(*this, dump, index, instances[index]);
   WriteCollectionTable(*this, dump, instances.front());
   for (std::size_t group = 0; group < kGroupCount; ++group)
      WriteRegisterTable(*this, QTARegisterCategoryList[group], dump.fGroups[group],
                         GetGroupInstance(instances, group));
   CloseReportPage(*this);
   WriteIndexEntry("qta_reg", title, true);
}
