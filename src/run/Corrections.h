#pragma once

#include <string>

#include "CIMStore.h"

// What the corrections of the collected data share.

/// The value of a property. Throws: status 15 when the instance has none of that name.
inline TCIMValue ReadValue(const boost::shared_ptr<ICIMInstance>& instance, const std::string& name)
{
   return instance->GetProperty(name, {})->GetValue({});
}

inline void WriteValue(const boost::shared_ptr<ICIMInstance>& instance, const std::string& name,
                       const TCIMValue& value)
{
   instance->GetProperty(name, {})->SetValue(value, {});
}

inline bool Contains(const std::string& text, const char* part)
{
   return text.find(part) != std::string::npos;
}

/// Does the work on one thing; a failure of the store ends it there and costs nothing else.
template <typename TWork>
void IgnoreFailure(TWork work)
{
   try {
      work();
   } catch (const TQSXException&) {
      // A correction repairs what it can.
   }
}
