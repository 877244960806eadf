#include "Gaps.h"

#include <fmt/format.h>

#include "writer/StoreWalk.h"

namespace {

constexpr const char* kClass = "QSX_NotCollected";

/// Missing: empty, also where a collection's own class has no such property.
std::string GetWords(const boost::shared_ptr<ICIMInstance>& instance, const char* property)
{
   try {
      return instance->GetProperty(property, {})->GetValueString();
   } catch (const TQSXException&) {
      return {};
   }
}

}  // namespace

std::vector<std::string> DescribeGaps(const boost::shared_ptr<NZANQSX20::TMemoryStore>& store)
{
   std::vector<std::string> lines;
   for (const auto& gap : FindInstances(NZANQSX20::OpenNamespace(store), kClass)) {
      const std::string detail = GetWords(gap, "Detail");
      lines.push_back(fmt::format("{}: {} ({}{}{})", GetWords(gap, "Subject"),
                                  GetWords(gap, "Reason"), GetWords(gap, "Source"),
                                  detail.empty() ? "" : ": ", detail));
   }
   return lines;
}
