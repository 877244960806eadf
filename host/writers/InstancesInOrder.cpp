#include "writers/InstancesInOrder.h"

#include <algorithm>

namespace NZANQSX20 {

std::vector<const TStoredInstance*> GetInstancesInOrder(const TMemoryStore& store)
{
   std::vector<const TStoredInstance*> instances;
   instances.reserve(store.CountInstances());
   for (const TStoredClass* storedClass : store.GetSchema().GetClasses())
      for (const TStoredInstance* instance : storedClass->GetInstances())
         if (instance->IsListed())
            instances.push_back(instance);
   std::sort(instances.begin(), instances.end(),
             [](const TStoredInstance* a, const TStoredInstance* b) {
                return a->GetOrder() < b->GetOrder();
             });
   return instances;
}

}  // namespace NZANQSX20
