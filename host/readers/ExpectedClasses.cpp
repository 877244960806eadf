#include "readers/ExpectedClasses.h"

#include "store/TMemoryStore.h"

namespace NZANQSX20 {

namespace {

struct TExpectedClass
{
   const char* fName;
   const char* fReason;
};

constexpr const char* kFirmwarePage =
   "a section of the firmware page, which ends the run without it";

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
};

}  // namespace

std::vector<std::string> DeclareExpectedClasses(TMemoryStore& store)
{
   std::vector<std::string> added;
   for (const TExpectedClass& expected : kExpectedClasses) {
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
