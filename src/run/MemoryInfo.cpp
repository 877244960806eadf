#include <cstdlib>

#include "run/Corrections.h"
#include "run/TReport.h"
#include "writer/StoreWalk.h"

namespace {

/// A module's bank and tag begin with as many letters: "Bank3", "Node2/...".
constexpr std::size_t kLettersAheadOfNumber = 4;
/// Where a controller's record has its node, of one digit, and, counted from "DIMM", its number:
/// "Node 2 DIMM 3".
constexpr std::size_t kNodeOffset = 5;
constexpr std::size_t kDIMMOffset = 5;

int ToNumber(const std::string& text)
{
   return std::atoi(text.c_str());
}

std::string TextFrom(const std::string& text, std::size_t position)
{
   return position < text.size() ? text.substr(position) : std::string();
}

/// What a module and its record in the controller are matched by.
struct TPlace
{
   int fNode = 0;
   int fDIMM = 0;
};

/// Throws: std::out_of_range where a text has fewer characters than the letters ahead.
TPlace GetModulePlace(const boost::shared_ptr<ICIMInstance>& module)
{
   TPlace place;
   IgnoreFailure([&] {
      const auto bank = static_cast<std::string>(ReadValue(module, "BankLabel"));
      place.fDIMM = ToNumber(bank.substr(kLettersAheadOfNumber));
   });
   IgnoreFailure([&] {
      const auto tag = static_cast<std::string>(ReadValue(module, "Tag"));
      place.fNode = ToNumber(tag.substr(0, tag.find('/')).substr(kLettersAheadOfNumber));
   });
   return place;
}

TPlace GetRecordPlace(const boost::shared_ptr<ICIMInstance>& record)
{
   TPlace place;
   IgnoreFailure([&] {
      const auto name = static_cast<std::string>(ReadValue(record, "Name"));
      // A name that tells no node is of the first.
      place.fNode = Contains(name, "Node") ? ToNumber(TextFrom(name, kNodeOffset).substr(0, 1)) : 1;
      const std::size_t dimm = name.find("DIMM");
      if (dimm != std::string::npos)
         place.fDIMM = ToNumber(TextFrom(name, dimm + kDIMMOffset));
   });
   return place;
}

/// A property of the module that its record may fill.
struct TGap
{
   const char* fModuleProperty;
   const char* fRecordProperty;
};

constexpr TGap kGaps[] = {
   {"Manufacturer", "Vendor"}, {"PartNumber", "PartNumber"}, {"SerialNumber", "SerialNumber"}};

/// The properties of the module that are empty or can't be read.
std::vector<TGap> FindGaps(const boost::shared_ptr<ICIMInstance>& module)
{
   std::vector<TGap> gaps;
   for (const TGap& gap : kGaps) {
      std::string text;
      IgnoreFailure(
         [&] { text = static_cast<std::string>(ReadValue(module, gap.fModuleProperty)); });
      if (text.empty())
         gaps.push_back(gap);
   }
   return gaps;
}

/// Of several records of one place, the last one counts.
void FillGaps(const boost::shared_ptr<ICIMInstance>& module, const TInstances& records)
{
   const auto memoryType = static_cast<unsigned short>(ReadValue(module, "MemoryType"));
   if (memoryType == 22 || memoryType == 23)
      return;
   const std::vector<TGap> gaps = FindGaps(module);
   if (gaps.empty())
      return;
   const TPlace place = GetModulePlace(module);
   for (const boost::shared_ptr<ICIMInstance>& record : records) {
      const TPlace recordPlace = GetRecordPlace(record);
      if (recordPlace.fNode != place.fNode || recordPlace.fDIMM != place.fDIMM)
         continue;
      for (const TGap& gap : gaps)
         IgnoreFailure([&] {
            WriteValue(module, gap.fModuleProperty, ReadValue(record, gap.fRecordProperty));
         });
   }
}

}  // namespace

void TReport::fixMemInfo()
{
   const boost::shared_ptr<ICIMClass> moduleClass = FindClass(fNamespace, "ZANSG_SPDData");
   const boost::shared_ptr<ICIMClass> recordClass = FindClass(fNamespace, "ZANSG_IPMIFRU");
   if (!moduleClass || !recordClass)
      return;
   const TInstances modules = EnumerateInstances(moduleClass);
   const TInstances records = EnumerateInstances(recordClass);
   for (const boost::shared_ptr<ICIMInstance>& module : modules)
      IgnoreFailure([&] { FillGaps(module, records); });
}
