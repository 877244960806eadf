#include "common/RecordColumns.h"

#include <algorithm>
#include <string>

namespace {

bool NamesTheRecord(const std::string& propertyName)
{
   return propertyName == "Caption" || propertyName == "Description" ||
          propertyName == "InstanceID";
}

bool HasValue(ICIMInstance& record, const std::string& propertyName)
{
   try {
      return record.GetProperty(propertyName, {})->HasValue();
   } catch (const TQSXException&) {
      return false;
   }
}

}  // namespace

std::vector<boost::shared_ptr<const ICIMPropertyDecl>> GetFilledColumns(
   const std::vector<boost::shared_ptr<ICIMInstance>>& records)
{
   std::vector<boost::shared_ptr<const ICIMPropertyDecl>> columns;
   std::vector<boost::shared_ptr<ICIMProperty>> properties;
   if (!records.empty())
      records.front()->EnumerateProperties(TAddToVectorCallback<ICIMProperty>(properties), {});
   for (const auto& property : properties) {
      const auto decl = property->GetDecl({});
      const std::string name = decl->GetName({});
      const bool isFilled = !NamesTheRecord(name) && std::any_of(records.begin(), records.end(),
                                                                 [&name](const auto& record) {
                                                                    return HasValue(*record, name);
                                                                 });
      if (isFilled)
         columns.push_back(decl);
   }
   return columns;
}
