#include "readers/CIMXMLElements.h"

#include <unordered_map>

namespace NZANQSX20 {

namespace {

using E = ECIMXMLElement;

constexpr unsigned kAttributeShift = 8;

const std::unordered_map<std::string_view, ECIMXMLAttribute>& GetAttributes()
{
   using A = ECIMXMLAttribute;
   static const std::unordered_map<std::string_view, A> attributes = {
      {"NAME", A::kName},
      {"TYPE", A::kType},
      {"CLASSNAME", A::kClassName},
      {"SUPERCLASS", A::kSuperclass},
      {"REFERENCECLASS", A::kReferenceClass},
      {"VALUETYPE", A::kValueType},
      {"CODE", A::kCode},
      {"DESCRIPTION", A::kDescription},
   };
   return attributes;
}

const std::unordered_map<std::string_view, E>& GetElements()
{
   static const std::unordered_map<std::string_view, E> elements = {
      {"CIM", E::kCIM},
      {"MESSAGE", E::kWrapper},
      {"SIMPLERSP", E::kWrapper},
      {"MULTIRSP", E::kWrapper},
      {"IMETHODRESPONSE", E::kWrapper},
      {"IRETURNVALUE", E::kWrapper},
      {"DECLARATION", E::kWrapper},
      {"DECLGROUP", E::kWrapper},
      {"DECLGROUP.WITHNAME", E::kWrapper},
      {"DECLGROUP.WITHPATH", E::kWrapper},
      {"VALUE.OBJECT", E::kNamedObject},
      {"VALUE.NAMEDINSTANCE", E::kNamedObject},
      {"VALUE.NAMEDOBJECT", E::kNamedObject},
      {"VALUE.OBJECTWITHPATH", E::kNamedObject},
      {"VALUE.OBJECTWITHLOCALPATH", E::kNamedObject},
      {"VALUE.INSTANCEWITHPATH", E::kNamedObject},
      {"CLASS", E::kClass},
      {"INSTANCE", E::kInstance},
      {"PROPERTY", E::kProperty},
      {"PROPERTY.ARRAY", E::kPropertyArray},
      {"PROPERTY.REFERENCE", E::kPropertyReference},
      {"PROPERTY.REFARRAY", E::kPropertyReferenceArray},
      {"QUALIFIER", E::kQualifier},
      {"QUALIFIER.DECLARATION", E::kQualifierDeclaration},
      {"VALUE", E::kValue},
      {"VALUE.NULL", E::kValueNull},
      {"VALUE.ARRAY", E::kValueArray},
      {"VALUE.REFERENCE", E::kValueReference},
      {"VALUE.REFARRAY", E::kValueReferenceArray},
      {"INSTANCEPATH", E::kPath},
      {"LOCALINSTANCEPATH", E::kPath},
      {"CLASSPATH", E::kPath},
      {"LOCALCLASSPATH", E::kPath},
      {"INSTANCENAME", E::kInstanceName},
      {"KEYBINDING", E::kKeyBinding},
      {"KEYVALUE", E::kKeyValue},
      {"CLASSNAME", E::kClassName},
      {"ERROR", E::kError},
      {"METHOD", E::kSkipped},
      {"SCOPE", E::kSkipped},
      {"NAMESPACEPATH", E::kSkipped},
      {"LOCALNAMESPACEPATH", E::kSkipped},
      {"PARAMVALUE", E::kSkipped},
      {"IPARAMVALUE", E::kSkipped},
      {"CORRELATOR", E::kSkipped},
   };
   return elements;
}

constexpr std::uint64_t Mask(E element)
{
   return std::uint64_t{1} << static_cast<unsigned>(element);
}

constexpr std::uint64_t kGroups = Mask(E::kCIM) | Mask(E::kWrapper);
constexpr std::uint64_t kObjects = kGroups | Mask(E::kNamedObject);
constexpr std::uint64_t kProperties = Mask(E::kProperty) | Mask(E::kPropertyArray) |
                                      Mask(E::kPropertyReference) |
                                      Mask(E::kPropertyReferenceArray);

/// The elements that may hold this one.
constexpr std::uint64_t GetParents(E element)
{
   switch (element) {
      case E::kCIM:
         return Mask(E::kDocument);
      case E::kWrapper:
      case E::kNamedObject:
      case E::kQualifierDeclaration:
      case E::kError:
         return kGroups;
      case E::kClass:
      case E::kInstance:
         return kObjects;
      case E::kProperty:
      case E::kPropertyArray:
      case E::kPropertyReference:
      case E::kPropertyReferenceArray:
         return Mask(E::kClass) | Mask(E::kInstance);
      case E::kQualifier:
         return Mask(E::kClass) | Mask(E::kInstance) | kProperties;
      case E::kValue:
         return Mask(E::kProperty) | Mask(E::kQualifier) | Mask(E::kValueArray);
      case E::kValueNull:
         return Mask(E::kValueArray) | Mask(E::kValueReferenceArray);
      case E::kValueArray:
         return Mask(E::kPropertyArray) | Mask(E::kQualifier);
      case E::kValueReference:
         return Mask(E::kPropertyReference) | Mask(E::kValueReferenceArray) | Mask(E::kKeyBinding);
      case E::kValueReferenceArray:
         return Mask(E::kPropertyReferenceArray);
      case E::kPath:
      case E::kInstanceName:
      case E::kClassName:
         return kObjects | Mask(E::kPath) | Mask(E::kValueReference);
      case E::kKeyBinding:
         return Mask(E::kInstanceName);
      case E::kKeyValue:
         return Mask(E::kKeyBinding);
      case E::kSkipped:
         return ~Mask(E::kDocument);
      case E::kDocument:
      case E::kUnknown:
         return 0;
   }
   return 0;
}

}  // namespace

TXMLName FindCIMXMLName(std::string_view name)
{
   const auto element = GetElements().find(name);
   const auto attribute = GetAttributes().find(name);
   const E foundElement = element == GetElements().end() ? E::kUnknown : element->second;
   const ECIMXMLAttribute foundAttribute =
      attribute == GetAttributes().end() ? ECIMXMLAttribute::kOther : attribute->second;
   return static_cast<TXMLName>(foundElement) | static_cast<TXMLName>(foundAttribute)
                                                   << kAttributeShift;
}

ECIMXMLElement GetCIMXMLElement(TXMLName name)
{
   constexpr TXMLName kElementMask = (1U << kAttributeShift) - 1;
   return static_cast<E>(name & kElementMask);
}

ECIMXMLAttribute GetCIMXMLAttribute(TXMLName name)
{
   return static_cast<ECIMXMLAttribute>(name >> kAttributeShift);
}

bool MayHold(ECIMXMLElement parent, ECIMXMLElement child)
{
   return (GetParents(child) & Mask(parent)) != 0;
}

}  // namespace NZANQSX20
