#include "MaskKey.h"

#include <fnmatch.h>
#include <sodium.h>

#include <new>
#include <set>
#include <stdexcept>

#include "MaskRules.h"
#include "NoIdentifiers.h"

namespace NZANQSX20 {

namespace {

void StartLibrary()
{
   if (sodium_init() < 0)
      throw std::runtime_error("no source of random numbers");
}

bool IsSystem(const TStoredClass& storedClass)
{
   for (const TStoredClass* each = &storedClass; each != nullptr; each = each->GetSuperclass())
      for (const char* pattern : {"*_ComputerSystem", "*_ComputerSystemProduct"})
         if (fnmatch(pattern, each->GetName().c_str(), 0) == 0)
            return true;
   return false;
}

}  // namespace

TMaskKey DeriveMaskKey(std::string_view secret)
{
   StartLibrary();
   // The same everywhere: equal secrets are to give equal stand-ins.
   constexpr unsigned char kSalt[crypto_pwhash_SALTBYTES] = "qsxreport mask";
   constexpr std::size_t kMemory = std::size_t{64} << 20;
   constexpr unsigned kPasses = 3;
   TMaskKey key;
   if (crypto_pwhash(key.data(), key.size(), secret.data(), secret.size(), kSalt, kPasses, kMemory,
                     crypto_pwhash_ALG_ARGON2ID13) != 0)
      throw std::bad_alloc();
   return key;
}

TMaskKey MakeRandomMaskKey()
{
   StartLibrary();
   TMaskKey key;
   randombytes_buf(key.data(), key.size());
   return key;
}

std::string FindMachineSecret(const TMemoryStore& store)
{
   constexpr std::size_t kLeastBytes = 6;
   std::set<std::string> parts;
   for (const TStoredClass* storedClass : store.GetSchema().GetClasses()) {
      if (!IsSystem(*storedClass))
         continue;
      for (const TStoredInstance* instance : storedClass->GetInstances()) {
         const TShape& shape = instance->GetShape();
         for (std::uint32_t i = 0; i < shape.fCount; ++i) {
            const TStoredValue& value = instance->GetValues()[i];
            const EMaskKind kind =
               FindMaskKind(*storedClass, storedClass->GetSlotName(shape.fSlots[i]));
            const bool isText = value.GetType() == TCIMValue::TCIMType::kString &&
                                !value.IsNull() && !value.IsArray();
            const bool mayIdentify = kind == EMaskKind::kUUID || kind == EMaskKind::kSerial;
            // A placeholder is the same on many machines.
            if (isText && mayIdentify && !IdentifiesNobody(kind, value.GetText()))
               parts.emplace(value.GetText());
         }
      }
   }
   std::string secret;
   for (const std::string& part : parts)
      secret += part + '\n';
   return secret.size() > kLeastBytes ? secret : "";
}

}  // namespace NZANQSX20
