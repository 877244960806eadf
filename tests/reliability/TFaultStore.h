#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include "CIMStore.h"

/// Which call of the store fails, and how.
struct TFault
{
   static constexpr int kOutOfMemory = 10'000;
   /// Where the contract allows an empty handle, that; elsewhere the call works.
   static constexpr int kEmptyHandle = 10'001;

   /// Counted from 1; 0 fails nothing.
   std::uint64_t fCall = 0;
   /// A status, or one of the two above.
   int fStatus = 0;
   /// All calls from there on.
   bool fOnward = false;
};

/// A store that works as the one behind it does, until a call is to fail.
///
/// Owner: shared by all its handles, like the store behind it.
class TFaultStore
{
public:
   /// The namespace over the one behind it. All handles that come from it belong to the store.
   static boost::shared_ptr<ICIMNamespace> Open(boost::shared_ptr<ICIMNamespace> inner,
                                                std::shared_ptr<TFaultStore> store);

   /// Counts from the first call again.
   void Arm(const TFault& fault)
   {
      fFault = fault;
      fCalls = 0;
      fHasFailed = false;
   }

   std::uint64_t GetCalls() const { return fCalls; }

   /// Called at the first failure.
   std::function<void()> fOnFailure;

   /// Before each call. Gives whether the call is to return an empty handle. Throws: the fault.
   bool Call(bool mayBeEmpty = false);

   boost::shared_ptr<ICIMClass> Wrap(boost::shared_ptr<ICIMClass> inner);
   boost::shared_ptr<ICIMInstance> Wrap(boost::shared_ptr<ICIMInstance> inner);
   boost::shared_ptr<ICIMProperty> Wrap(boost::shared_ptr<ICIMProperty> inner);
   boost::shared_ptr<const ICIMPropertyDecl> Wrap(boost::shared_ptr<const ICIMPropertyDecl> inner);
   /// The path, to be looked up in this store.
   TCIMReference Wrap(const TCIMReference& inner) const;

   boost::shared_ptr<ICIMNamespace> GetNamespace() const { return fNamespace.lock(); }

private:
   TFault fFault;
   std::uint64_t fCalls = 0;
   bool fHasFailed = false;
   boost::weak_ptr<ICIMNamespace> fNamespace;
   std::weak_ptr<TFaultStore> fShared;
   /// One handle here for one handle there: the library tells findings apart by them.
   std::unordered_map<ICIMInstance*, boost::weak_ptr<ICIMInstance>> fInstances;
};
