#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "CIMStore.h"

/// The walks of the store that all reports share. Each first collects, then hands out the vector;
/// the order is the store's.
///
/// Throws: what the store throws; an empty handle ends in the host's assertion hook.

using TInstances = std::vector<boost::shared_ptr<ICIMInstance>>;
using TProperties = std::vector<boost::shared_ptr<ICIMProperty>>;
using TClasses = std::vector<boost::shared_ptr<ICIMClass>>;

/// The class of that name. Missing: an empty handle, whichever of the two ways the store has of
/// saying so. Throws: a fresh TQSXException of the same status for any but "not found".
boost::shared_ptr<ICIMClass> FindClass(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                                       const std::string& className, const TContext& context = {});

/// The same with the status logged as LogStatus does where the store throws "not found".
boost::shared_ptr<ICIMClass> FindClassOrLogStatus(
   const boost::shared_ptr<ICIMNamespace>& cimNamespace, const std::string& className,
   std::string_view statusText);

bool IsNotFound(const TQSXException& failure);

/// For the catch branch of whoever can live without the thing looked for: returns for "not found"
/// and throws a fresh TQSXException of the same status for any other.
void RethrowUnlessNotFound(const TQSXException& failure);

/// The instances of the class and of its subclasses.
TInstances EnumerateInstances(const boost::shared_ptr<ICIMClass>& cimClass,
                              const TContext& context = {});

/// The instances of exactly this class.
TInstances EnumerateOwnInstances(const boost::shared_ptr<ICIMClass>& cimClass,
                                 const TContext& context = {});

/// The instances of a class and of its subclasses. Missing: none where the class is missing.
TInstances FindInstances(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                         const std::string& className, const TContext& context = {});

/// The instances that associations join to this one; an empty text is no filter.
TInstances EnumerateAssociators(const boost::shared_ptr<ICIMInstance>& instance,
                                const std::string& assocClass, const std::string& resultClass,
                                const std::string& role = {}, const std::string& resultRole = {},
                                const TContext& context = {});

TProperties EnumerateProperties(const boost::shared_ptr<ICIMInstance>& instance,
                                const TContext& context = {});

/// The subclasses of the class, and theirs.
TClasses EnumerateSubclasses(const boost::shared_ptr<ICIMClass>& cimClass,
                             const TContext& context = {});

/// The classes that the associations of this class lead to; an empty text is no filter.
TClasses EnumerateAssociatedClasses(const boost::shared_ptr<ICIMClass>& cimClass,
                                    const std::string& assocClass, const std::string& resultClass,
                                    const std::string& role = {},
                                    const std::string& resultRole = {},
                                    const TContext& context = {});

/// A property that holds one text. Throws: TQSXException where it can't be read.
std::string ReadText(const boost::shared_ptr<ICIMInstance>& instance, const std::string& name);
