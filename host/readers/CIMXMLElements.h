#pragma once

#include <cstdint>
#include <string_view>

#include "readers/XMLScanner.h"

namespace NZANQSX20 {

/// What an element of CIM-XML means to the reader.
enum class ECIMXMLElement : std::uint8_t
{
   kDocument,  // what the root element stands in
   kCIM,
   kWrapper,      // groups other elements and says nothing of its own
   kNamedObject,  // a wrapper around one instance and its path
   kClass,
   kInstance,
   kProperty,
   kPropertyArray,
   kPropertyReference,
   kPropertyReferenceArray,
   kQualifier,
   kQualifierDeclaration,
   kValue,
   kValueNull,
   kValueArray,
   kValueReference,
   kValueReferenceArray,
   kPath,  // a wrapper around a name
   kInstanceName,
   kKeyBinding,
   kKeyValue,
   kClassName,
   kError,
   kSkipped,  // with all that is in it
   kUnknown
};

/// The attributes that the reader looks at.
enum class ECIMXMLAttribute : std::uint8_t
{
   kName,
   kType,
   kClassName,
   kSuperclass,
   kReferenceClass,
   kValueType,
   kCode,
   kDescription,
   kOther
};

/// What a name means as an element and as an attribute, in one number.
TXMLName FindCIMXMLName(std::string_view name);

ECIMXMLElement GetCIMXMLElement(TXMLName name);

ECIMXMLAttribute GetCIMXMLAttribute(TXMLName name);

/// Whether the element may stand directly in the other one.
bool MayHold(ECIMXMLElement parent, ECIMXMLElement child);

}  // namespace NZANQSX20
