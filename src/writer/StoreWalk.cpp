#include "writer/StoreWalk.h"

#include "writer/WriterLog.h"

boost::shared_ptr<ICIMClass> FindClass(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                                       const std::string& className, const TContext& context)
{
   try {
      return cimNamespace->GetClass(className, context);
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      return {};
   }
}

boost::shared_ptr<ICIMClass> FindClassOrLogStatus(
   const boost::shared_ptr<ICIMNamespace>& cimNamespace, const std::string& className,
   std::string_view statusText)
{
   try {
      return cimNamespace->GetClass(className, {});
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
      LogStatus(statusText, failure);
      return {};
   }
}

bool IsNotFound(const TQSXException& failure)
{
   return failure.fStatusCode.fStatusCode == kStatusNotFound;
}

void RethrowUnlessNotFound(const TQSXException& failure)
{
   if (!IsNotFound(failure))
      throw TQSXException(failure.fStatusCode);
}

TInstances EnumerateInstances(const boost::shared_ptr<ICIMClass>& cimClass, const TContext& context)
{
   TInstances instances;
   cimClass->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(instances), true, context);
   return instances;
}

TInstances EnumerateOwnInstances(const boost::shared_ptr<ICIMClass>& cimClass,
                                 const TContext& context)
{
   TInstances instances;
   cimClass->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(instances), false, context);
   return instances;
}

TInstances FindInstances(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                         const std::string& className, const TContext& context)
{
   const boost::shared_ptr<ICIMClass> cimClass = FindClass(cimNamespace, className, context);
   return cimClass ? EnumerateInstances(cimClass, context) : TInstances();
}

TInstances EnumerateAssociators(const boost::shared_ptr<ICIMInstance>& instance,
                                const std::string& assocClass, const std::string& resultClass,
                                const std::string& role, const std::string& resultRole,
                                const TContext& context)
{
   TInstances instances;
   instance->EnumerateAssociators(TAddToVectorCallback<ICIMInstance>(instances), assocClass,
                                  resultClass, role, resultRole, context);
   return instances;
}

TProperties EnumerateProperties(const boost::shared_ptr<ICIMInstance>& instance,
                                const TContext& context)
{
   TProperties properties;
   instance->EnumerateProperties(TAddToVectorCallback<ICIMProperty>(properties), context);
   return properties;
}

TClasses EnumerateSubclasses(const boost::shared_ptr<ICIMClass>& cimClass, const TContext& context)
{
   TClasses classes;
   cimClass->EnumerateSubclasses(TAddToVectorCallback<ICIMClass>(classes), true, context);
   return classes;
}

TClasses EnumerateAssociatedClasses(const boost::shared_ptr<ICIMClass>& cimClass,
                                    const std::string& assocClass, const std::string& resultClass,
                                    const std::string& role, const std::string& resultRole,
                                    const TContext& context)
{
   TClasses classes;
   cimClass->EnumerateAssociatedClasses(TAddToVectorCallback<ICIMClass>(classes), assocClass,
                                        resultClass, role, resultRole, context);
   return classes;
}

std::string ReadText(const boost::shared_ptr<ICIMInstance>& instance, const std::string& name)
{
   return static_cast<std::string>(instance->GetProperty(name, {})->GetValue(TContext()));
}
