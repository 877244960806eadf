#pragma once

#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "QSXExport.h"
#include "TCIMValue.h"

namespace NZANQSX20 {

/// A qualifier of a declaration.
class QSX_API ICIMQualifier
{
public:
   virtual ~ICIMQualifier() = default;

   virtual const TCIMValue& GetValue(TContext context) const = 0;
};

/// What a class declares of a property.
class QSX_API ICIMPropertyDecl
{
public:
   virtual ~ICIMPropertyDecl() = default;

   /// The qualifier of that name; found tells whether there is one. Throws: status 15 when there is
   /// none.
   virtual boost::shared_ptr<const ICIMQualifier> GetQualifier(const std::string& name, bool& found,
                                                               TContext context) const = 0;

   virtual const std::string& GetName(TContext context) const = 0;
};

/// One property value of one instance. References are valid as long as the handle is.
class QSX_API ICIMProperty
{
public:
   virtual ~ICIMProperty() = default;

   /// The declared type.
   virtual TCIMValue::TCIMType GetType(TContext context) = 0;

   /// Whether the property is declared as an array.
   virtual bool IsArray(TContext context) = 0;

   /// The value, as the context addresses it.
   virtual const TCIMValue& GetValue(TContext context) = 0;

   /// Replaces the value in the store; every later read sees it.
   virtual void SetValue(const TCIMValue& value, TContext context) = 0;

   virtual boost::shared_ptr<const ICIMPropertyDecl> GetDecl(TContext context) = 0;

   /// The value in its raw form. Missing: null where the property has no raw form of its own.
   virtual const TCIMValue& GetValue() = 0;

   /// Whether there is a value that a table cell can show.
   virtual bool HasValue() = 0;

   /// The value as report text, the form shown in a cell.
   virtual std::string GetValueString() = 0;

   /// The untranslated value, the second text of a cell. Missing: empty where there is no
   /// translation.
   virtual std::string GetRawValueString() = 0;

   /// The report text of each element of an array, in order.
   virtual std::vector<std::string> GetValueStrings() = 0;
};

}  // namespace NZANQSX20
