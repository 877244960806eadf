#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "TCIMValue.h"

namespace NZANQSX20 {

/// Collects the handles of an enumeration. Every walk first collects, then works on the vector.
template <typename T>
class TAddToVectorCallback
{
public:
   explicit TAddToVectorCallback(std::vector<boost::shared_ptr<T>>& handles) : fHandles(handles) {}

   bool operator()(boost::shared_ptr<T> handle) const
   {
      fHandles.push_back(handle);
      return true;
   }

private:
   std::vector<boost::shared_ptr<T>>& fHandles;
};

/// Collects key bindings; a key that is there already stays as it is.
class TAddKeyBindingsToMapCallback
{
public:
   explicit TAddKeyBindingsToMapCallback(std::map<std::string, TCIMValue>& keyBindings)
      : fKeyBindings(keyBindings)
   {}

   bool operator()(std::pair<std::string, TCIMValue> keyBinding) const
   {
      fKeyBindings.insert(keyBinding);
      return true;
   }

private:
   std::map<std::string, TCIMValue>& fKeyBindings;
};

}  // namespace NZANQSX20
