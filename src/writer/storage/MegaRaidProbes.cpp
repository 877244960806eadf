#include "writer/ReportFrame.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"

namespace {

/// Whether the class has an instance. A missing class is logged with the text of its probe.
bool HasInstances(const TNamespaceHandle& cimNamespace, const std::string& className,
                  const std::string& statusText)
{
   TClassHandle cimClass;
   try {
      cimClass = cimNamespace->GetClass(className, {});
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      LogStatus(statusText, failure);
      return false;
   }
   return cimClass && !EnumerateInstances(cimClass).empty();
}

}  // namespace

bool TWriter::isMRVendorProviderPresent()
{
   return HasInstances(fNamespace, "LSIESG_MegaRAIDHBA",
                       "Exiting TWriter::isMRVendorProviderPresent, ex.fStatusCode.fStatusCode=");
}

bool TWriter::isMRRawDataPresent()
{
   return HasInstances(fNamespace, "ZANSG_MegaLSIRawData",
                       "Exiting TWriter::isMRRawDataPresent, ex.fStatusCode.fStatusCode=");
}
