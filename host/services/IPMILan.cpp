#include "services/IPMILan.h"

#include <algorithm>
#include <cstring>

#include "CoreServices.h"

namespace NZANQSX20 {

namespace {

class TIPMILan : public IIPMILan
{
public:
   bool getipmiLanStatus() override { return !fAddress.empty(); }

   void getIPMIAddress(char* buffer, int size) override
   {
      if (size <= 0)
         return;
      const std::size_t length = std::min(fAddress.size(), static_cast<std::size_t>(size) - 1);
      std::memcpy(buffer, fAddress.data(), length);
      buffer[length] = '\0';
   }

   std::string fAddress;
};

TIPMILan& GetLan()
{
   static TIPMILan lan;
   return lan;
}

}  // namespace

void SetIPMILanAddress(const std::string& address)
{
   GetLan().fAddress = address;
}

IIPMILan* TRootObject::GetipmiLanIns()
{
   return GetLan().getipmiLanStatus() ? &GetLan() : nullptr;
}

}  // namespace NZANQSX20
