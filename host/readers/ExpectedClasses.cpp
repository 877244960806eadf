#include "readers/ExpectedClasses.h"

#include <algorithm>
#include <iterator>

#include "store/TMemoryStore.h"

namespace NZANQSX20 {

namespace {

enum class EWhen
{
   kAlways,
   kForSystemSensors  // the class takes the older pages of the service processor away
};

struct TExpectedClass
{
   const char* fName;
   const char* fReason;
   EWhen fWhen = EWhen::kAlways;
};

constexpr const char* kFirmwarePage =
   "a section of the firmware page, which ends the run without it";
constexpr const char* kSensorPage =
   "without it the service processor page gives way to older ones, and the system's sensors are "
   "not shown";
constexpr const char* kServiceProcessorPage =
   "without it the service processor page breaks off and is missing from the index";

constexpr TExpectedClass kExpectedClasses[] = {
   {"ZANSG_FirmwareElement", kFirmwarePage},
   {"CIM_BIOSElement", kFirmwarePage},
   {"ZANSG_PostBIOSVPD", kFirmwarePage},
   {"ZANSG_DiagnosticVPD", kFirmwarePage},
   {"ZANSG_SPROMFirmwareVPDMain", kFirmwarePage},
   {"ZANSG_SPROMFirmwareVPDBootROM", kFirmwarePage},
   {"ZANSG_HardwareRevisionLevel", kFirmwarePage},
   {"ZANSG_FRU", kFirmwarePage},
   {"ZANSG_CadenzaDevices", "the device analysis, which ends the run without it"},
   {"ZANSG_CadenzaMessageLog", "named with the device analysis; read by concrete writers alone"},
   {"CIM_StaticIPAssignmentSettingData", kSensorPage, EWhen::kForSystemSensors},
   {"CIM_DNSSettingData", kSensorPage, EWhen::kForSystemSensors},
   {"CIM_IPProtocolEndpoint", kServiceProcessorPage},
   {"CIM_SNMPCommunityString", kServiceProcessorPage},
   {"ZANSG_TimeZone",
    "labels the collections of one system in a comparison, which ends without it"},
   {"ZANSG_HeavyHittersLogRecord", "takes the hint on a removed drive, which is lost without it"},
};

/// What the older pages of the service processor show.
constexpr const char* kOlderPageClasses[] = {
   "ZANSG_SP_ComputerSystem",
   "ZANSG_SP_NumericSensor",
   "ZANSG_ServProc_IPProtocolEndpoint",
   "ZANSG_ServProc_IPProtocolEndpoint2",
   "ZANSG_ServProc_DialProtocolEndpoint1",
   "ZANSG_ServProc_DialProtocolEndpoint2",
   "ZANSG_ServProc_DialProtocolEndpoint3",
   "ZANSG_ServProc_DialProtocolEndpoint4",
};

bool HasInstances(const TMemoryStore& store, const char* className)
{
   const TStoredClass* const top = store.GetSchema().Find(className);
   if (top == nullptr)
      return false;
   for (const TStoredClass* each : TSchema::GetWithSubclasses(*top))
      if (store.CountInstances(*each) > 0)
         return true;
   return false;
}

/// Whether the sensors of the system are all that the two families of pages can show.
bool HasSystemSensorsOnly(const TMemoryStore& store)
{
   return HasInstances(store, "CIM_NumericSensor") &&
          std::none_of(std::begin(kOlderPageClasses), std::end(kOlderPageClasses),
                       [&store](const char* name) { return HasInstances(store, name); });
}

}  // namespace

std::vector<std::string> DeclareExpectedClasses(TMemoryStore& store)
{
   std::vector<std::string> added;
   const bool hasSystemSensorsOnly = HasSystemSensorsOnly(store);
   for (const TExpectedClass& expected : kExpectedClasses) {
      if (!hasSystemSensorsOnly && expected.fWhen == EWhen::kForSystemSensors)
         continue;
      const TStoredClass* const known = store.GetSchema().Find(expected.fName);
      if (known != nullptr && !known->IsPlaceholder())
         continue;
      TClassDecl declaration;
      declaration.fName = expected.fName;
      // A declaration of another collection that is compared with this one takes its place.
      declaration.fIsImplied = true;
      store.GetSchema().Declare(declaration);
      added.push_back(expected.fName);
   }
   return added;
}

}  // namespace NZANQSX20
