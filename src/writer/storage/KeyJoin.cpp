#include "writer/storage/KeyJoin.h"

std::string ReadKey(const TInstanceHandle& instance, const std::string& name)
{
   return instance->GetProperty(name, {})->GetValue({}).ToString(10);
}

bool KeyContains(const std::string& key, const std::string& part)
{
   return key.find(part) != std::string::npos;
}

TInstanceHandle FindByKeyPart(const TWriter::TInstances& instances, const std::string& keyName,
                              const std::string& part)
{
   for (const TInstanceHandle& instance : instances)
      if (KeyContains(ReadKey(instance, keyName), part))
         return instance;
   return {};
}
