#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ICIMInstance.h"
#include "ICIMNamespace.h"
#include "store/TMemoryStore.h"

/// A store made in a test, without a text format in between.
///
///    TTestStore store;
///    store.AddClass("ZANSG_Fan", "", {Key("Name"), Property("Speed", TType::kUInt32)});
///    auto fan = store.AddInstance("ZANSG_Fan", {{"Name", "Fan 1"}});
///
/// Throws: what the store throws; a class that is not declared is status 15.
class TTestStore
{
public:
   using TType = NZANQSX20::TCIMValue::TCIMType;
   using TValues = std::vector<std::pair<std::string, NZANQSX20::TCIMValue>>;
   using TInstanceHandle = boost::shared_ptr<NZANQSX20::ICIMInstance>;

   TTestStore();

   static NZANQSX20::TPropertyDecl Property(const std::string& name, TType::ECIMType type,
                                            std::vector<NZANQSX20::TQualifierDecl> qualifiers = {});
   static NZANQSX20::TPropertyDecl Key(const std::string& name,
                                       TType::ECIMType type = TType::kString);
   static NZANQSX20::TPropertyDecl Reference(const std::string& name,
                                             const std::string& referenceClass);
   static NZANQSX20::TCIMValue Strings(const std::vector<std::string>& texts);

   NZANQSX20::EDeclared AddClass(const std::string& name, const std::string& superclass,
                                 std::vector<NZANQSX20::TPropertyDecl> properties = {});

   /// Made and saved over the contract's interfaces, as the library does it.
   TInstanceHandle AddInstance(const std::string& className, const TValues& values);

   /// A reference value to the path, as a reader finds it in a file.
   NZANQSX20::TCIMValue PathTo(const std::string& path) const;

   NZANQSX20::TMemoryStore& GetStore() { return *fStore; }

   const boost::shared_ptr<NZANQSX20::ICIMNamespace>& GetNamespace() const { return fNamespace; }

   boost::shared_ptr<NZANQSX20::ICIMClass> GetClass(const std::string& name) const;
   /// Missing: an empty handle.
   TInstanceHandle FindInstance(const std::string& path) const;

   // What enumerations tell, as texts in their order.

   std::vector<std::string> GetInstances(const std::string& className, bool deep) const;
   std::vector<std::string> GetSubclasses(const std::string& className, bool deep) const;
   static std::vector<std::string> GetAssociators(const TInstanceHandle& instance,
                                                  const std::string& assocClass = "",
                                                  const std::string& resultClass = "",
                                                  const std::string& role = "",
                                                  const std::string& resultRole = "");
   std::vector<std::string> GetAssociatedClasses(const std::string& className,
                                                 const std::string& assocClass = "") const;
   static std::vector<std::string> GetPropertyNames(const TInstanceHandle& instance);

private:
   boost::shared_ptr<NZANQSX20::TMemoryStore> fStore;
   boost::shared_ptr<NZANQSX20::ICIMNamespace> fNamespace;
};
