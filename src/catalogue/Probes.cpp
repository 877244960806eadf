#include <algorithm>
#include <array>
#include <utility>

#include "catalogue/TReportParametersBuilder.h"
#include "writer/StoreWalk.h"
#include "writer/WriterLog.h"

namespace {

constexpr unsigned short kOSTypeLinux = 36;
/// The last type of the Windows family with its own list of components.
constexpr unsigned short kOSTypeLastWindows = 73;
constexpr unsigned short kOSTypeESX = 78;

constexpr const char* kESXName = "VMware ESX Server";
constexpr int kVersionCommandTimeout = 300;

/// The machine types of the models that are built of several nodes.
constexpr std::array<const char*, 9> kMultiNodeMachines = {"5310", "5312", "5316", "5317", "5314",
                                                           "6420", "6422", "6423", "6426"};

/// In a comparison the probes look at the first namespace alone.
TContext FirstNamespace()
{
   return {{kNamespaceIndexKey, TCIMValue(static_cast<unsigned short>(0))}};
}

/// All instances of the class, those of subclasses too. Throws: status 15 where there is no class.
TInstances Enumerate(TReportParametersBuilder& builder, const std::string& className)
{
   const boost::shared_ptr<ICIMClass> cimClass = builder.GetClass(className);
   if (!cimClass)
      throw TQSXException(kStatusNotFound);
   return EnumerateInstances(cimClass);
}

TCIMValue Read(ICIMInstance& instance, const std::string& property)
{
   return instance.GetProperty(property, {})->GetValue({});
}

bool Contains(const std::string& text, const char* part)
{
   return text.find(part) != std::string::npos;
}

/// Where the operating system isn't told, its event records tell Windows.
int GetOSTypeFromEventRecords(TReportParametersBuilder& builder)
{
   try {
      const TInstances records = Enumerate(builder, "ZANSG_WindowsSystemEventLogRecord");
      return records.empty() ? TReportParametersBuilder::kUnknownOS
                             : TReportParametersBuilder::kWindows;
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
   }
   LogTrace("Report - Can not get ZANSG_WindowsSystemEventLogRecord");
   return TReportParametersBuilder::kUnknownOS;
}

int GetOSTypeOf(ICIMInstance& system)
{
   const std::string vendor(Read(system, "ProductVendor"));
   const auto osType = static_cast<unsigned short>(Read(system, "OSType"));
   if (Contains(vendor, "Microsoft")) {
      LogTrace("Report - GetOSType: Windows");
      return osType > kOSTypeLastWindows ? TReportParametersBuilder::kWindowsLater
                                         : TReportParametersBuilder::kWindows;
   }
   if (osType == kOSTypeLinux) {
      LogTrace("Report - GetOSType: Linux");
      return TReportParametersBuilder::kLinux;
   }
   if (osType == kOSTypeESX) {
      LogTrace("Report - GetOSType: VMware ESX Server");
      return TReportParametersBuilder::kESX;
   }
   LogTrace("Report - GetOSType: Unknown");
   return TReportParametersBuilder::kUnknownOS;
}

}  // namespace

TReportParametersBuilder::TReportParametersBuilder(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                                   std::string mode, bool isKMC)
   : fNamespace(std::move(cimNamespace)), fMode(std::move(mode)), fIsKMC(isKMC)
{}

boost::shared_ptr<ICIMClass> TReportParametersBuilder::GetClass(std::string name)
{
   return fNamespace->GetClass(name, FirstNamespace());
}

int TReportParametersBuilder::GetOSType()
{
   try {
      const TInstances systems = Enumerate(*this, "ZANSG_OperatingSystem");
      if (systems.size() == 1)
         return GetOSTypeOf(*systems.front());
      LogTrace("Report - instances.size() !=1, GetOSType: Unknown");
      return GetOSTypeFromEventRecords(*this);
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
   }
   LogTrace("Report - GetOSType: Unknown");
   return kUnknownOS;
}

int TReportParametersBuilder::GetOSType(std::string path)
{
   if (path.empty())
      return GetOSType();
   const std::string version = TOSSpecific::SpawnProcess("vmware", {"-v"}, kVersionCommandTimeout);
   return Contains(version, kESXName) ? kESX : kLinux;
}

bool TReportParametersBuilder::IsRedHat()
{
   try {
      const TInstances systems = Enumerate(*this, "ZANSG_OperatingSystem");
      if (systems.size() == 1) {
         const bool isRedHat =
            Contains(std::string(Read(*systems.front(), "ProductVendor")), "Red Hat");
         if (isRedHat)
            LogTrace("Report - IsRedHat: True");
         return isRedHat;
      }
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
   }
   LogTrace("Report - IsRedHat: Unknown");
   return false;
}

bool TReportParametersBuilder::IsMultiNode()
{
   try {
      const std::string machine = TCIMSchemaHelper::GetMachineType(fNamespace);
      return std::find(kMultiNodeMachines.begin(), kMultiNodeMachines.end(), machine) !=
             kMultiNodeMachines.end();
   } catch (const TQSXException&) {
      return false;
   }
}

bool TReportParametersBuilder::IsMultiNodeforBeaconPanel()
{
   return IsMultiNode();
}

bool TReportParametersBuilder::IsHarbor()
{
   const boost::shared_ptr<ICIMClass> systems =
      FindClass(fNamespace, "ZANSG_SP_HarborSystem", FirstNamespace());
   if (!systems)
      return false;

   // The last instance decides; a failure leaves what was read before it.
   bool present = false;
   try {
      for (const boost::shared_ptr<ICIMInstance>& system : EnumerateInstances(systems))
         present = static_cast<bool>(Read(*system, "HarborPresent"));
   } catch (const TQSXException&) {
   }
   return present;
}

bool TReportParametersBuilder::HasTeamInfo()
{
   LogTrace("Report - HasTeamInfo: Enter");
   try {
      for (const boost::shared_ptr<ICIMInstance>& port :
           Enumerate(*this, "ZANSG_PhysicalNetworkPort")) {
         const TCIMValue teamName = Read(*port, "TeamName");
         const TCIMValue teamID = Read(*port, "TeamID");
         if (!teamName.IsNull() && !teamID.IsNull()) {
            LogTrace("Report - HasTeamInfo: True");
            return true;
         }
      }
      return false;
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
   }
   LogTrace("Report - HasTeamInfo: Unknown");
   return false;
}

std::string TReportParametersBuilder::GetDataSourceVersion()
{
   std::string minor;
   try {
      minor = TCIMSchemaHelper::GetDataSourceMinorVersion(fNamespace, FirstNamespace());
   } catch (const TQSXException&) {
      // The version ends behind the point.
   }
   const std::string version = "3." + minor.substr(0, 1);
   LogTrace("Report - GetDataSourceVersion: ", version);
   return version;
}
