#include "reliability/TFaultStore.h"

#include <new>

#include <boost/make_shared.hpp>

namespace {

using TStore = std::shared_ptr<TFaultStore>;

class TFaultProvider : public INamespaceProvider
{
public:
   TFaultProvider(TStore store, boost::shared_ptr<INamespaceProvider> inner)
      : fStore(std::move(store)), fInner(std::move(inner))
   {}

   int GetProviderType(TContext context) override
   {
      fStore->Call();
      return fInner->GetProviderType(context);
   }

private:
   TStore fStore;
   boost::shared_ptr<INamespaceProvider> fInner;
};

class TFaultNamespace : public ICIMNamespace
{
public:
   TFaultNamespace(TStore store, boost::shared_ptr<ICIMNamespace> inner)
      : fStore(std::move(store)), fInner(std::move(inner))
   {}

   boost::shared_ptr<INamespaceProvider> GetProvider(TContext context) override
   {
      fStore->Call();
      return boost::make_shared<TFaultProvider>(fStore, fInner->GetProvider(context));
   }

   boost::shared_ptr<ICIMClass> GetClass(const std::string& className, TContext context) override
   {
      if (fStore->Call(true))
         return {};
      return fStore->Wrap(fInner->GetClass(className, context));
   }

   boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path, TContext context) override
   {
      if (fStore->Call(true))
         return {};
      return fStore->Wrap(fInner->GetInstance(path, context));
   }

private:
   TStore fStore;
   boost::shared_ptr<ICIMNamespace> fInner;
};

class TFaultQualifier : public ICIMQualifier
{
public:
   TFaultQualifier(TStore store, boost::shared_ptr<const ICIMQualifier> inner)
      : fStore(std::move(store)), fInner(std::move(inner))
   {}

   const TCIMValue& GetValue(TContext context) const override
   {
      fStore->Call();
      return fInner->GetValue(context);
   }

private:
   TStore fStore;
   boost::shared_ptr<const ICIMQualifier> fInner;
};

class TFaultDecl : public ICIMPropertyDecl
{
public:
   TFaultDecl(TStore store, boost::shared_ptr<const ICIMPropertyDecl> inner)
      : fStore(std::move(store)), fInner(std::move(inner))
   {}

   boost::shared_ptr<const ICIMQualifier> GetQualifier(const std::string& name, bool& found,
                                                       TContext context) const override
   {
      found = false;
      fStore->Call();
      return boost::make_shared<TFaultQualifier>(fStore,
                                                 fInner->GetQualifier(name, found, context));
   }

   const std::string& GetName(TContext context) const override
   {
      fStore->Call();
      return fInner->GetName(context);
   }

private:
   TStore fStore;
   boost::shared_ptr<const ICIMPropertyDecl> fInner;
};

class TFaultProperty : public ICIMProperty
{
public:
   TFaultProperty(TStore store, boost::shared_ptr<ICIMProperty> inner)
      : fStore(std::move(store)), fInner(std::move(inner))
   {}

   TCIMValue::TCIMType GetType(TContext context) override { return Inner().GetType(context); }

   bool IsArray(TContext context) override { return Inner().IsArray(context); }

   const TCIMValue& GetValue(TContext context) override { return Inner().GetValue(context); }

   void SetValue(const TCIMValue& value, TContext context) override
   {
      Inner().SetValue(value, context);
   }

   boost::shared_ptr<const ICIMPropertyDecl> GetDecl(TContext context) override
   {
      return fStore->Wrap(Inner().GetDecl(context));
   }

   const TCIMValue& GetValue() override { return Inner().GetValue(); }

   bool HasValue() override { return Inner().HasValue(); }

   std::string GetValueString() override { return Inner().GetValueString(); }

   std::string GetRawValueString() override { return Inner().GetRawValueString(); }

   std::vector<std::string> GetValueStrings() override { return Inner().GetValueStrings(); }

private:
   ICIMProperty& Inner()
   {
      fStore->Call();
      return *fInner;
   }

   TStore fStore;
   boost::shared_ptr<ICIMProperty> fInner;
};

/// Hands each handle of an enumeration on as one of the store's.
template <typename T>
boost::function<bool(boost::shared_ptr<T>)> Wrapping(
   TStore store, boost::function<bool(boost::shared_ptr<T>)> callback)
{
   return [store, callback](boost::shared_ptr<T> inner) { return callback(store->Wrap(inner)); };
}

class TFaultClass : public ICIMClass
{
public:
   TFaultClass(TStore store, boost::shared_ptr<ICIMClass> inner)
      : fStore(std::move(store)), fInner(std::move(inner))
   {}

   const std::string& GetName(TContext context) override { return Inner().GetName(context); }

   boost::shared_ptr<ICIMNamespace> GetNamespace(TContext) override
   {
      fStore->Call();
      return fStore->GetNamespace();
   }

   void EnumerateSubclasses(boost::function<bool(boost::shared_ptr<ICIMClass>)> callback, bool deep,
                            TContext context) override
   {
      Inner().EnumerateSubclasses(Wrapping(fStore, callback), deep, context);
   }

   void EnumerateAssociatedClasses(boost::function<bool(boost::shared_ptr<ICIMClass>)> callback,
                                   const std::string& assocClass, const std::string& resultClass,
                                   const std::string& role, const std::string& resultRole,
                                   TContext context) override
   {
      Inner().EnumerateAssociatedClasses(Wrapping(fStore, callback), assocClass, resultClass, role,
                                         resultRole, context);
   }

   boost::shared_ptr<const ICIMPropertyDecl> GetPropertyDecl(const std::string& name,
                                                             TContext context) override
   {
      return fStore->Wrap(Inner().GetPropertyDecl(name, context));
   }

   boost::shared_ptr<ICIMInstance> CreateInstance(TContext context) override
   {
      return fStore->Wrap(Inner().CreateInstance(context));
   }

   void EnumerateInstances(boost::function<bool(boost::shared_ptr<ICIMInstance>)> callback,
                           bool deep, TContext context) override
   {
      Inner().EnumerateInstances(Wrapping(fStore, callback), deep, context);
   }

private:
   ICIMClass& Inner()
   {
      fStore->Call();
      return *fInner;
   }

   TStore fStore;
   boost::shared_ptr<ICIMClass> fInner;
};

class TFaultInstance : public ICIMInstance
{
public:
   TFaultInstance(TStore store, boost::shared_ptr<ICIMInstance> inner)
      : fStore(std::move(store)), fInner(std::move(inner))
   {}

   void Save(TContext context) override { Inner().Save(context); }

   void Delete(TContext context) override { Inner().Delete(context); }

   TCIMReference GetReference(TContext context) override
   {
      return fStore->Wrap(Inner().GetReference(context));
   }

   boost::shared_ptr<ICIMClass> GetClass(TContext context) override
   {
      return fStore->Wrap(Inner().GetClass(context));
   }

   void EnumerateAssociators(boost::function<bool(boost::shared_ptr<ICIMInstance>)> callback,
                             const std::string& assocClass, const std::string& resultClass,
                             const std::string& role, const std::string& resultRole,
                             TContext context) override
   {
      Inner().EnumerateAssociators(Wrapping(fStore, callback), assocClass, resultClass, role,
                                   resultRole, context);
   }

   boost::shared_ptr<ICIMProperty> GetProperty(const std::string& name, TContext context) override
   {
      return fStore->Wrap(Inner().GetProperty(name, context));
   }

   void SetProperty(const std::string& name, const TCIMValue& value, TContext context) override
   {
      Inner().SetProperty(name, value, context);
   }

   void EnumerateProperties(boost::function<bool(boost::shared_ptr<ICIMProperty>)> callback,
                            TContext context) override
   {
      Inner().EnumerateProperties(Wrapping(fStore, callback), context);
   }

private:
   ICIMInstance& Inner()
   {
      fStore->Call();
      return *fInner;
   }

   TStore fStore;
   boost::shared_ptr<ICIMInstance> fInner;
};

}  // namespace

boost::shared_ptr<ICIMNamespace> TFaultStore::Open(boost::shared_ptr<ICIMNamespace> inner,
                                                   std::shared_ptr<TFaultStore> store)
{
   const boost::shared_ptr<ICIMNamespace> opened =
      boost::make_shared<TFaultNamespace>(store, std::move(inner));
   store->fShared = store;
   store->fNamespace = opened;
   return opened;
}

bool TFaultStore::Call(bool mayBeEmpty)
{
   ++fCalls;
   const bool isDue =
      fFault.fCall != 0 && (fFault.fOnward ? fCalls >= fFault.fCall : fCalls == fFault.fCall);
   if (!isDue || (fFault.fStatus == TFault::kEmptyHandle && !mayBeEmpty))
      return false;
   if (!fHasFailed && fOnFailure)
      fOnFailure();
   fHasFailed = true;
   if (fFault.fStatus == TFault::kEmptyHandle)
      return true;
   if (fFault.fStatus == TFault::kOutOfMemory)
      throw std::bad_alloc();
   throw TQSXException(fFault.fStatus);
}

boost::shared_ptr<ICIMClass> TFaultStore::Wrap(boost::shared_ptr<ICIMClass> inner)
{
   if (!inner)
      return inner;
   return boost::make_shared<TFaultClass>(fShared.lock(), std::move(inner));
}

boost::shared_ptr<ICIMInstance> TFaultStore::Wrap(boost::shared_ptr<ICIMInstance> inner)
{
   if (!inner)
      return inner;
   boost::weak_ptr<ICIMInstance>& known = fInstances[inner.get()];
   boost::shared_ptr<ICIMInstance> handle = known.lock();
   if (!handle) {
      handle = boost::make_shared<TFaultInstance>(fShared.lock(), std::move(inner));
      known = handle;
   }
   return handle;
}

boost::shared_ptr<ICIMProperty> TFaultStore::Wrap(boost::shared_ptr<ICIMProperty> inner)
{
   return boost::make_shared<TFaultProperty>(fShared.lock(), std::move(inner));
}

boost::shared_ptr<const ICIMPropertyDecl> TFaultStore::Wrap(
   boost::shared_ptr<const ICIMPropertyDecl> inner)
{
   return boost::make_shared<TFaultDecl>(fShared.lock(), std::move(inner));
}

TCIMReference TFaultStore::Wrap(const TCIMReference& inner) const
{
   return TCIMReference(GetNamespace(), inner.GetPath(), inner.GetContext());
}
