#include <boost/shared_ptr.hpp>

#include "Callbacks.h"
#include "CoreServices.h"
#include "ICIMClass.h"
#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "ICIMProperty.h"
#include "TQSXException.h"

namespace NZANQSX20 {

namespace {

/// A property of the first instance of a class, subclasses included. Throws: status 15 when class,
/// instance or property is not there, or the property is null.
std::string GetFirstValue(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                          const char* className, const char* propertyName, const TContext& context)
{
   const boost::shared_ptr<ICIMClass> storeClass = cimNamespace->GetClass(className, context);
   std::vector<boost::shared_ptr<ICIMInstance>> instances;
   if (storeClass)
      storeClass->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(instances), true, context);
   if (instances.empty())
      throw TQSXException(kStatusNotFound);
   const boost::shared_ptr<ICIMProperty> property =
      instances.front()->GetProperty(propertyName, context);
   const TCIMValue& value = property->GetValue(context);
   if (value.IsNull())
      throw TQSXException(kStatusNotFound);
   return value.ToString(10);
}

/// The same. Missing: the empty text where GetFirstValue throws status 15.
std::string FindFirstValue(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                           const char* className, const char* propertyName, const TContext& context)
{
   try {
      return GetFirstValue(cimNamespace, className, propertyName, context);
   } catch (const TQSXException& exception) {
      if (exception.fStatusCode.fStatusCode != kStatusNotFound)
         throw;
      return std::string();
   }
}

}  // namespace

std::string TCIMSchemaHelper::GetMachineType(boost::shared_ptr<ICIMNamespace> cimNamespace)
{
   return GetFirstValue(cimNamespace, "ZANSG_ComputerSystem", "MachineType", {});
}

std::string TCIMSchemaHelper::GetOperatingSystemVersion(
   boost::shared_ptr<ICIMNamespace> cimNamespace)
{
   return FindFirstValue(cimNamespace, "ZANSG_OperatingSystem", "Version", {});
}

std::string TCIMSchemaHelper::GetDataSourceMinorVersion(
   boost::shared_ptr<ICIMNamespace> cimNamespace, TContext context)
{
   const std::string version = GetFirstValue(cimNamespace, "ZANSG_QSXProduct", "Version", context);
   const std::size_t point = version.find('.');
   return point != std::string::npos ? version.substr(point + 1) : std::string();
}

std::string TCIMSchemaHelper::GetRawSerialNumberString(
   boost::shared_ptr<ICIMNamespace> cimNamespace, TContext context)
{
   return FindFirstValue(cimNamespace, "ZANSG_ComputerSystem", "SerialNumber", context);
}

}  // namespace NZANQSX20
