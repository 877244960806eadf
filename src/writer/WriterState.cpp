#include "writer/StoreWalk.h"
#include "writer/TWriter.h"
#include "writer/ValueText.h"
#include "writer/WriterLog.h"

namespace {

using TLabels = std::vector<std::string>;

TInstances ReadInstancesOf(ICIMNamespace& cimNamespace, const std::string& className,
                           const TContext& context)
{
   return EnumerateInstances(cimNamespace.GetClass(className, context), context);
}

/// The compared classes by name; of two findings for one name the later counts.
std::map<std::string, boost::shared_ptr<ICIMInstance>> ReadDeltaClasses(ICIMNamespace& cimNamespace)
{
   std::map<std::string, boost::shared_ptr<ICIMInstance>> deltaClasses;
   for (const auto& instance :
        EnumerateOwnInstances(cimNamespace.GetClass("ZANSG_DeltaClass", {}))) {
      const auto property = instance->GetProperty("ClassName", {});
      deltaClasses[static_cast<std::string>(property->GetValue(TContext()))] = instance;
   }
   return deltaClasses;
}

/// The serial number of each namespace; one of the first namespace at least.
TLabels ReadSerialNumbers(const boost::shared_ptr<ICIMNamespace>& cimNamespace, TContext& context,
                          unsigned short count)
{
   TLabels labels;
   unsigned short index = 0;
   do {
      context[kNamespaceIndexKey] = index;
      labels.push_back(TCIMSchemaHelper::GetRawSerialNumberString(cimNamespace, context));
   } while (++index < count);
   return labels;
}

/// Labels the collections of one system by their time.
/// Missing: a namespace without a time keeps its label.
void LabelByTime(ICIMNamespace& cimNamespace, TContext& context, unsigned short count,
                 TLabels& labels)
{
   for (unsigned short i = 0; i < count; ++i) {
      context[kNamespaceIndexKey] = i;
      const TInstances zones = ReadInstancesOf(cimNamespace, "ZANSG_TimeZone", context);
      if (zones.empty())
         continue;
      const auto time = zones.front()->GetProperty("LocalDateTime", context);
      labels[i] = MakeDateTimeText(time->GetValue(context));
   }
}

/// Labels the collections of several systems by their host names.
/// Missing: a namespace whose name can't be read keeps its label.
void LabelByHostName(ICIMNamespace& cimNamespace, TContext& context, unsigned short count,
                     TLabels& labels)
{
   for (unsigned short i = 0; i < count; ++i) {
      try {
         context[kNamespaceIndexKey] = i;
         const TInstances services = ReadInstancesOf(cimNamespace, "ZANSG_IPService", context);
         if (services.empty())
            continue;
         const auto hostName = services.front()->GetProperty("HostName", context);
         labels[i] = hostName->GetValue(context).ToString(10);
      } catch (const TQSXException&) {
         // The serial number has to do.
      }
   }
}

bool IsOneSystem(const TLabels& serialNumbers)
{
   for (const std::string& serialNumber : serialNumbers)
      if (serialNumber != serialNumbers.front())
         return false;
   return true;
}

}  // namespace

void TWriter::BaseInitialize(boost::shared_ptr<ICIMNamespace> ns, TContext params)
{
   LogTrace("Entering TWriter::BaseInitialize");
   if (ns->GetProvider({})->GetProviderType({}) == NZANQSX20::kDeltaRepository) {
      fDeltaClasses = ReadDeltaClasses(*ns);
      const auto count = static_cast<unsigned short>(params["nNamespaces"]);
      fNamespaceLabels = ReadSerialNumbers(ns, params, count);
      if (IsOneSystem(fNamespaceLabels))
         LabelByTime(*ns, params, count, fNamespaceLabels);
      else
         LabelByHostName(*ns, params, count, fNamespaceLabels);
   }
   LogTrace("Exiting TWriter::BaseInitialize");
}

void TWriter::BaseDispose()
{
   fDeltaClasses.clear();
   fNamespaceLabels.clear();
}

std::string TWriter::GetDateTime(const TCIMValue& value, bool)
{
   return MakeDateTimeText(value);
}
