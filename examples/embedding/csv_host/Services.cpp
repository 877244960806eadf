// The services that a host owes the library: a logger, programs, questions on the schema, the
// assertion hook.
#include <iostream>

#include <boost/assert.hpp>

#include "CIMStore.h"

namespace {

/// Errors only, to standard error.
class TErrorLog : public NZANQSX20::TLogger
{
public:
   bool IsLevelEnabled(int level) const override { return level <= NZANQSX20::kLogError; }

   void Log(int level, const std::string& text) override
   {
      if (IsLevelEnabled(level))
         std::cerr << text << '\n';
   }
};

std::string GetFirst(const boost::shared_ptr<ICIMNamespace>& store, const char* className,
                     const char* property)
{
   std::vector<boost::shared_ptr<ICIMInstance>> instances;
   store->GetClass(className, {})
      ->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(instances), true, {});
   if (instances.empty())
      throw TQSXException(kStatusNotFound);
   return instances.front()->GetProperty(property, {})->GetValueString();
}

std::string FindFirst(const boost::shared_ptr<ICIMNamespace>& store, const char* className,
                      const char* property)
{
   try {
      return GetFirst(store, className, property);
   } catch (const TQSXException&) {
      return "";
   }
}

}  // namespace

namespace NZANQSX20 {

TLogger* TRootObject::GetCoreLogger()
{
   static TErrorLog log;
   return &log;
}

IIPMILan* TRootObject::GetipmiLanIns()
{
   return nullptr;
}

const std::string TOSSpecific::kFileSeparator = "/";

std::string TOSSpecific::SpawnProcess(std::string, std::vector<std::string>, int)
{
   return "";  // this host runs no programs
}

std::string TCIMSchemaHelper::GetMachineType(boost::shared_ptr<ICIMNamespace> store)
{
   return GetFirst(store, "ZANSG_ComputerSystem", "MachineType");
}

std::string TCIMSchemaHelper::GetOperatingSystemVersion(boost::shared_ptr<ICIMNamespace> store)
{
   return FindFirst(store, "ZANSG_OperatingSystem", "Version");
}

std::string TCIMSchemaHelper::GetDataSourceMinorVersion(boost::shared_ptr<ICIMNamespace> store,
                                                        TContext)
{
   const std::string version = GetFirst(store, "ZANSG_QSXProduct", "Version");
   return version.substr(version.find('.') + 1);
}

std::string TCIMSchemaHelper::GetRawSerialNumberString(boost::shared_ptr<ICIMNamespace> store,
                                                       TContext)
{
   return FindFirst(store, "ZANSG_ComputerSystem", "SerialNumber");
}

}  // namespace NZANQSX20

namespace boost {

// The library counts on an exception where an empty handle is dereferenced.
QSX_API void assertion_failed(char const*, char const*, char const*, long)
{
   throw TQSXException(1);
}

}  // namespace boost
