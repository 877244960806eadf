#pragma once

#include <string>

#include <boost/shared_ptr.hpp>

#include "QSXExport.h"
#include "TCIMValue.h"

namespace NZANQSX20 {

class ICIMClass;
class ICIMInstance;
class INamespaceProvider;
class TCIMReference;

/// A view on the store: one collection, or several behind one delta repository.
class QSX_API ICIMNamespace
{
public:
   virtual ~ICIMNamespace() = default;

   /// The provider that tells what kind of repository this is.
   virtual boost::shared_ptr<INamespaceProvider> GetProvider(TContext context) = 0;

   /// The class of that name. Missing: status 15 or an empty handle; callers accept both.
   virtual boost::shared_ptr<ICIMClass> GetClass(const std::string& className,
                                                 TContext context) = 0;

   /// The instance at that path. Missing: an empty handle.
   virtual boost::shared_ptr<ICIMInstance> GetInstance(const TCIMReference& path,
                                                       TContext context) = 0;
};

/// The kind of a repository that holds several collections for comparison.
constexpr int kDeltaRepository = 1;

class QSX_API INamespaceProvider
{
public:
   virtual ~INamespaceProvider() = default;

   /// kDeltaRepository for several collected namespaces, any other number for a plain collection.
   virtual int GetProviderType(TContext context) = 0;
};

}  // namespace NZANQSX20
