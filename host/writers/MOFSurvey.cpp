#include "writers/MOFSurvey.h"

#include <algorithm>

#include <fmt/format.h>

#include "writers/TScalar.h"
#include "writers/TWriteError.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

const TPropertyDecl* FindNamed(const std::vector<TPropertyDecl>& properties,
                               const std::string& name)
{
   const auto found =
      std::find_if(properties.begin(), properties.end(),
                   [&name](const TPropertyDecl& property) { return property.fName == name; });
   return found != properties.end() ? &*found : nullptr;
}

bool HaveOneType(const TPropertyDecl& a, const TPropertyDecl& b)
{
   return a.fType == b.fType && a.fIsArray == b.fIsArray;
}

class TSurveying
{
public:
   TMOFSurvey Survey(const std::vector<const TStoredInstance*>& instances)
   {
      for (const TStoredInstance* instance : instances) {
         const TShape& shape = instance->GetShape();
         for (std::uint32_t i = 0; i < shape.fCount; ++i)
            Look(*instance, shape.fSlots[i], instance->GetValues()[i]);
      }
      for (auto& [storedClass, properties] : fSurvey.fAdded)
         DropInherited(*storedClass, properties);
      return std::move(fSurvey);
   }

private:
   void Look(const TStoredInstance& instance, TSlot slot, const TStoredValue& value)
   {
      if (value.GetType() == TType::kReference)
         LookAtReference(value);
      const TStoredClass& storedClass = instance.GetClass();
      if (storedClass.FindProperty(slot) == nullptr)
         Add(storedClass, slot, value);
   }

   void LookAtReference(const TStoredValue& value)
   {
      if (value.IsNull())
         return;
      if (value.IsArray())
         for (std::uint32_t i = 0; i < value.GetCount(); ++i)
            LookAtReference(value.GetElements()[i]);
      else if (value.GetTarget() != nullptr && value.GetTarget()->IsListed())
         fSurvey.fAliased.insert(value.GetTarget());
   }

   void Add(const TStoredClass& storedClass, TSlot slot, const TStoredValue& value)
   {
      TPropertyDecl property;
      property.fName = storedClass.GetSlotName(slot);
      property.fType = value.GetType() == TType::kNull ? TType::kString : value.GetType();
      property.fIsArray = value.IsArray();
      std::vector<TPropertyDecl>& added = fSurvey.fAdded[&storedClass];
      const TPropertyDecl* const known = FindNamed(added, property.fName);
      if (known == nullptr)
         added.push_back(std::move(property));
      else if (!HaveOneType(*known, property))
         throw TWriteError(
            fmt::format("{}.{} is not declared and has values of the types {} and "
                        "{}, which MOF cannot say; CIM-XML can",
                        storedClass.GetName(), property.fName, GetTypeName(known->fType),
                        GetTypeName(property.fType)));
   }

   void DropInherited(const TStoredClass& storedClass, std::vector<TPropertyDecl>& properties) const
   {
      for (const TStoredClass* ancestor = storedClass.GetSuperclass(); ancestor != nullptr;
           ancestor = ancestor->GetSuperclass()) {
         const auto above = fSurvey.fAdded.find(ancestor);
         if (above == fSurvey.fAdded.end())
            continue;
         const auto isInherited = [&above](const TPropertyDecl& property) {
            const TPropertyDecl* const same = FindNamed(above->second, property.fName);
            return same != nullptr && HaveOneType(*same, property);
         };
         properties.erase(std::remove_if(properties.begin(), properties.end(), isInherited),
                          properties.end());
      }
   }

   TMOFSurvey fSurvey;
};

}  // namespace

TMOFSurvey MakeMOFSurvey(const std::vector<const TStoredInstance*>& instances)
{
   return TSurveying().Survey(instances);
}

}  // namespace NZANQSX20
