#include "common/Gaps.h"

#include "writer/StoreWalk.h"

namespace {

constexpr const char* kClass = "QSX_NotCollected";

/// Missing: empty, also where a collection's own class has no such property.
std::vector<std::string> ReadTexts(const boost::shared_ptr<ICIMInstance>& gap, const char* name)
{
   try {
      return gap->GetProperty(name, {})->GetValueStrings();
   } catch (const TQSXException&) {
      return {};
   }
}

std::string ReadText(const boost::shared_ptr<ICIMInstance>& gap, const char* name)
{
   const std::vector<std::string> texts = ReadTexts(gap, name);
   return texts.empty() ? "" : texts.front();
}

}  // namespace

std::vector<TGap> ReadGaps(const boost::shared_ptr<ICIMNamespace>& cimNamespace)
{
   std::vector<TGap> gaps;
   try {
      for (const boost::shared_ptr<ICIMInstance>& instance : FindInstances(cimNamespace, kClass)) {
         TGap& gap = gaps.emplace_back();
         gap.fSubject = ReadText(instance, "Subject");
         gap.fSource = ReadText(instance, "Source");
         gap.fReason = ReadText(instance, "Reason");
         gap.fDetail = ReadText(instance, "Detail");
         gap.fClasses = ReadTexts(instance, "Classes");
      }
   } catch (const TQSXException&) {
      // What could be read counts.
   }
   return gaps;
}
