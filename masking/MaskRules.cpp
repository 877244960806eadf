#include "MaskRules.h"

#include <fnmatch.h>

namespace NZANQSX20 {

namespace {

struct TMaskRule
{
   /// A pattern with "*" and "?", case ignored; a subclass of what fits fits, too.
   const char* fClass;
   const char* fProperty;
   EMaskKind fKind;
};

// The first row that fits counts.
// clang-format off
constexpr TMaskRule kRules[] = {
   // Among them the machine that built a package, which is not this one.
   {"*",                  "*Version*",            EMaskKind::kVersion},
   {"*",                  "*Revision*",           EMaskKind::kVersion},
   {"*",                  "*Release*",            EMaskKind::kVersion},
   {"*",                  "*Build*",              EMaskKind::kVersion},
   {"*",                  "*FirmwareLevel*",      EMaskKind::kVersion},

   {"*",                  "*SerialNum*",          EMaskKind::kSerial},
   {"*",                  "*SerialNo",            EMaskKind::kSerial},
   {"*",                  "Serial",               EMaskKind::kSerial},
   {"*",                  "*AssetTag*",           EMaskKind::kSerial},
   {"*",                  "*AssetNumber*",        EMaskKind::kSerial},
   {"*ComputerSystem*",   "IdentifyingNumber",    EMaskKind::kSerial},
   {"*SystemEnclosure*",  "IdentifyingNumber",    EMaskKind::kSerial},

   // A number of what is installed, the same on every machine.
   {"*Software*",         "*ID",                  EMaskKind::kVersion},
   {"*Product",           "*ID",                  EMaskKind::kVersion},
   {"*Product",           "IdentifyingNumber",    EMaskKind::kVersion},
   {"*",                  "*TypeGUID*",           EMaskKind::kVersion},
   {"*",                  "*UUID*",               EMaskKind::kUUID},
   {"*",                  "*GUID*",               EMaskKind::kUUID},

   {"*",                  "*MACAddress*",         EMaskKind::kMAC},
   {"*",                  "PermanentAddress",     EMaskKind::kMAC},
   {"*",                  "NetworkAddresses",     EMaskKind::kMAC},
   {"*",                  "*WorldWide*Name*",     EMaskKind::kWWN},
   {"*",                  "*WWN*",                EMaskKind::kWWN},
   {"*",                  "*WWPN*",               EMaskKind::kWWN},
   {"*",                  "*WWID*",               EMaskKind::kWWN},
   {"*",                  "*EUI64*",              EMaskKind::kWWN},
   {"*",                  "*NAA*Name*",           EMaskKind::kWWN},

   // A part of the machine, named alike in all.
   {"*_*_ComputerSystem", "Name",                 EMaskKind::kNone},
   {"*ComputerSystem",    "Name",                 EMaskKind::kHost},
   {"*",                  "*HostName*",           EMaskKind::kHost},
   {"*",                  "SystemName",           EMaskKind::kHost},
   {"*",                  "CSName",               EMaskKind::kHost},
   {"*",                  "OSName",               EMaskKind::kHost},
   {"*",                  "ComputerSystem_Name",  EMaskKind::kHost},
   {"*",                  "ComputerName",         EMaskKind::kHost},
   {"*",                  "*MachineName*",        EMaskKind::kHost},
   {"*",                  "NodeName",             EMaskKind::kHost},
   {"*",                  "SourceNode",           EMaskKind::kHost},
   {"*",                  "LogonServer",          EMaskKind::kHost},
   {"*",                  "*DomainName*",         EMaskKind::kDomain},
   {"*",                  "Domain",               EMaskKind::kDomain},
   {"*",                  "*DNSDomain*",          EMaskKind::kDomain},
   {"*",                  "*WorkGroup*",          EMaskKind::kDomain},

   {"*",                  "User",                 EMaskKind::kUser},
   {"*",                  "UserName",             EMaskKind::kUser},
   {"*",                  "*LoginID",             EMaskKind::kUser},
   {"*",                  "*LogonName",           EMaskKind::kUser},
   {"*",                  "StartName",            EMaskKind::kUser},
   {"*",                  "*Email*",              EMaskKind::kUser},
   {"*Account*",          "Name",                 EMaskKind::kUser},
   {"*Account*",          "Description",          EMaskKind::kContact},
   {"*User",              "Name",                 EMaskKind::kUser},
   {"*User",              "FullName",             EMaskKind::kContact},
   {"*",                  "*Owner",               EMaskKind::kContact},
   {"*",                  "*OwnerName",           EMaskKind::kContact},
   {"*",                  "*Contact",             EMaskKind::kContact},
   {"*",                  "*OwnerContact",        EMaskKind::kContact},
   {"*",                  "*SystemLocation",      EMaskKind::kContact},
   {"*",                  "*PhoneNumber*",        EMaskKind::kContact},
   {"*",                  "Organization",         EMaskKind::kContact},

   {"*",                  "*CommunityString*",    EMaskKind::kSecret},
   {"*",                  "Community?Name",       EMaskKind::kSecret},
   {"*",                  "*Password*",           EMaskKind::kSecret},
   {"*",                  "*Secret*",             EMaskKind::kSecret},
   {"*",                  "*ProductKey*",         EMaskKind::kSecret},
   {"*",                  "*LicenseKey*",         EMaskKind::kSecret},
};

// clang-format on

bool Fits(const char* pattern, const std::string& name)
{
   return fnmatch(pattern, name.c_str(), FNM_CASEFOLD) == 0;
}

bool FitsClass(const char* pattern, const TStoredClass& storedClass)
{
   for (const TStoredClass* each = &storedClass; each != nullptr; each = each->GetSuperclass())
      if (Fits(pattern, each->GetName()))
         return true;
   return false;
}

}  // namespace

EMaskKind FindMaskKind(const TStoredClass& storedClass, const std::string& property)
{
   for (const TMaskRule& rule : kRules)
      if (Fits(rule.fProperty, property) && FitsClass(rule.fClass, storedClass))
         return rule.fKind;
   return EMaskKind::kNone;
}

EMaskKind FindMaskKind(const std::string& className, const std::string& property)
{
   for (const TMaskRule& rule : kRules)
      if (Fits(rule.fProperty, property) && Fits(rule.fClass, className))
         return rule.fKind;
   return EMaskKind::kNone;
}

EMaskKind TMaskRules::Find(const TStoredClass& storedClass, TSlot slot)
{
   constexpr int kUnknown = -1;
   std::vector<int>& kinds = fKinds[&storedClass];
   if (slot >= kinds.size())
      kinds.resize(slot + 1, kUnknown);
   if (kinds[slot] == kUnknown)
      kinds[slot] = static_cast<int>(FindMaskKind(storedClass, storedClass.GetSlotName(slot)));
   return static_cast<EMaskKind>(kinds[slot]);
}

const char* GetMaskKindName(EMaskKind kind)
{
   static constexpr const char* kNames[] = {
      "none",        "version",      "serial number", "UUID",   "MAC address",
      "WWN",         "IPv4 address", "IPv6 address",  "SID",    "host name",
      "domain name", "user name",    "contact",       "secret", "term"};
   return kNames[static_cast<int>(kind)];
}

}  // namespace NZANQSX20
