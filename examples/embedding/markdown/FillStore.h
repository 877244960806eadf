#pragma once

#include <map>
#include <stdexcept>
#include <string>

#include "store/TMemoryStore.h"

// A small machine: two processes, and a network port that is joined to its address.

using namespace NZANQSX20;
using TType = TCIMValue::TCIMType;

// clang-format off
inline void DeclareClasses(TSchema& schema)
{
   const TQualifierDecl key{"Key", TCIMValue::Boolean(true)};
   const TQualifierDecl codes{"ValueMap", TCIMValue::Array(TType::kString, {"2", "3"})};
   const TQualifierDecl words{"Values", TCIMValue::Array(TType::kString, {"Ready", "Running"})};

   // Class, superclass, qualifiers; of each property its name, type, whether it is an array, the class that a
   // reference names, default, qualifiers.
   schema.Declare({"ZANSG_Process", "", {}, {
      {"Handle", TType::kString, false, "", {}, {key}},
      {"Name"},
      {"ExecutionState", TType::kUInt16, false, "", {}, {codes, words}},
      {"Priority", TType::kSInt32},
      {"WorkingSetSize", TType::kUInt64, false, "", {}, {{"Units", "KiloBytes"}}},
      {"CreationDate", TType::kDateTime, false, "", {}, {{"DisplayName", "Started"}}}}});
   schema.Declare({"ZANSG_PhysicalNetworkPort", "", {}, {
      {"DeviceID", TType::kString, false, "", {}, {key}},
      {"NetworkAddresses", TType::kString, true}}});
   schema.Declare({"ZANSG_IPProtocolEndpoint", "", {}, {
      {"Name", TType::kString, false, "", {}, {key}},
      {"IPv4Address"}, {"IPv6Address"}, {"SubnetMask"}}});
   // An association is a class with two references, its keys.
   schema.Declare({"ZANSG_PortImplementsEndpoint", "", {}, {
      {"Antecedent", TType::kReference, false, "ZANSG_PhysicalNetworkPort", {}, {key}},
      {"Dependent", TType::kReference, false, "ZANSG_IPProtocolEndpoint", {}, {key}}}});
}

// clang-format on

inline TStoredInstance& Add(TMemoryStore& store, const char* className,
                            const std::map<std::string, TStoredValue>& values)
{
   TStoredClass* const storedClass = store.GetSchema().Find(className);
   if (storedClass == nullptr)
      throw std::invalid_argument(std::string("no class ") + className);
   TInstanceDraft draft(*storedClass);
   for (const auto& [name, value] : values)
      draft.Set(storedClass->GetSlot(name), value);
   return store.Add(draft);
}

inline void FillStore(TMemoryStore& store)
{
   DeclareClasses(store.GetSchema());
   unsigned handle = 0;
   for (const char* name : {"worker", "watch"})
      Add(store, "ZANSG_Process",
          {{"Handle", store.MakeString(std::to_string(++handle))},
           {"Name", store.MakeString(name)},
           {"ExecutionState", TStoredValue::Unsigned(TType::kUInt16, 1 + handle)},
           {"Priority", TStoredValue::Signed(TType::kSInt32, -5)},
           {"WorkingSetSize", TStoredValue::Unsigned(TType::kUInt64, 2048)},
           // Year, month, day, time of day, microseconds, minutes east of UTC.
           {"CreationDate", store.MakeDateTime(TCIMDateTime(2026, 1, 2, 3, 4, 5, 0, 60))}});
   TStoredInstance& port =
      Add(store, "ZANSG_PhysicalNetworkPort",
          {{"DeviceID", store.MakeString("port 0")},
           {"NetworkAddresses",
            store.MakeArray(TType::kString, {store.MakeString("0a"), store.MakeString("0b")})}});
   TStoredInstance& endpoint =
      Add(store, "ZANSG_IPProtocolEndpoint",
          {{"Name", store.MakeString("ip 0")}, {"IPv4Address", store.MakeString("192.0.2.7")}});
   Add(store, "ZANSG_PortImplementsEndpoint",
       {{"Antecedent", store.MakeReference(port)}, {"Dependent", store.MakeReference(endpoint)}});
}
