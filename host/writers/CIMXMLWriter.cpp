#include "writers/CIMXMLWriter.h"

#include <fmt/format.h>

#include "store/ValueText.h"
#include "writers/CIMXMLText.h"
#include "writers/InstancesInOrder.h"
#include "writers/TScalar.h"
#include "writers/TWriteError.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

constexpr std::size_t kFlushBytes = 256 * 1024;

constexpr std::string_view kHead =
   "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
   "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\">\n<DECLARATION>\n<DECLGROUP>\n";
constexpr std::string_view kFoot = "</DECLGROUP>\n</DECLARATION>\n</CIM>\n";

/// PROPERTY, PROPERTY.ARRAY, PROPERTY.REFERENCE or PROPERTY.REFARRAY.
const char* GetElement(TCIMValue::ECIMType type, bool isArray)
{
   if (type == TType::kReference)
      return isArray ? "PROPERTY.REFARRAY" : "PROPERTY.REFERENCE";
   return isArray ? "PROPERTY.ARRAY" : "PROPERTY";
}

class TCIMXMLWriting
{
public:
   TCIMXMLWriting(const TMemoryStore& store, TByteSink& sink) : fStore(store), fSink(sink) {}

   void Write()
   {
      fXML += kHead;
      for (const TStoredClass* storedClass : fStore.GetSchema().GetClasses())
         WriteClass(*storedClass);
      for (const TStoredInstance* instance : GetInstancesInOrder(fStore))
         WriteInstance(*instance);
      fXML += kFoot;
      Flush();
   }

private:
   void Flush()
   {
      fSink.Write(fXML);
      fXML.clear();
   }

   void FlushIfLong()
   {
      if (fXML.size() >= kFlushBytes)
         Flush();
   }

   // Classes.

   void WriteClass(const TStoredClass& storedClass)
   {
      fXML += "<VALUE.OBJECT><CLASS";
      AppendXMLAttribute(fXML, "NAME", storedClass.GetName());
      if (storedClass.GetSuperclass() != nullptr)
         AppendXMLAttribute(fXML, "SUPERCLASS", storedClass.GetSuperclass()->GetName());
      fXML += ">\n";
      WriteQualifiers(storedClass.GetQualifiers(), storedClass);
      for (const TStoredProperty* property : storedClass.GetOwnProperties()) {
         const TPropertyDecl& declaration = property->GetDeclaration();
         BeginProperty(declaration.fName, declaration.fType, declaration.fIsArray,
                       declaration.fReferenceClass);
         fXML += '>';
         WriteQualifiers(declaration.fQualifiers, storedClass);
         WriteValue(declaration.fDefault);
         EndProperty(declaration.fType, declaration.fIsArray);
      }
      fXML += "</CLASS></VALUE.OBJECT>\n";
      FlushIfLong();
   }

   void WriteQualifiers(const std::vector<TQualifierDecl>& qualifiers,
                        const TStoredClass& storedClass)
   {
      for (const TQualifierDecl& qualifier : qualifiers) {
         const TCIMValue& value = qualifier.fValue;
         // Without a value it would be true.
         if (value.IsNull() && value.GetType() == TType::kBoolean)
            throw TWriteError(
               fmt::format("the qualifier {} of {} is a boolean null, which CIM-XML "
                           "cannot say; MOF can",
                           qualifier.fName, storedClass.GetName()));
         fXML += "<QUALIFIER";
         AppendXMLAttribute(fXML, "NAME", qualifier.fName);
         AppendXMLAttribute(fXML, "TYPE", GetTypeName(value.GetType()));
         fXML += '>';
         WriteValue(value);
         fXML += "</QUALIFIER>\n";
      }
   }

   void BeginProperty(const std::string& name, TCIMValue::ECIMType type, bool isArray,
                      const std::string& referenceClass)
   {
      fXML += '<';
      fXML += GetElement(type, isArray);
      AppendXMLAttribute(fXML, "NAME", name);
      if (type != TType::kReference)
         AppendXMLAttribute(fXML, "TYPE", GetTypeName(type));
      else if (!referenceClass.empty())
         AppendXMLAttribute(fXML, "REFERENCECLASS", referenceClass);
   }

   void EndProperty(TCIMValue::ECIMType type, bool isArray)
   {
      fXML += "</";
      fXML += GetElement(type, isArray);
      fXML += ">\n";
   }

   // Instances.

   void WriteInstance(const TStoredInstance& instance)
   {
      const TStoredClass& storedClass = instance.GetClass();
      fXML += "<VALUE.OBJECT><INSTANCE";
      AppendXMLAttribute(fXML, "CLASSNAME", storedClass.GetName());
      fXML += ">\n";
      const TShape& shape = instance.GetShape();
      for (std::uint32_t i = 0; i < shape.fCount; ++i)
         WriteProperty(storedClass, shape.fSlots[i], instance.GetValues()[i]);
      fXML += "</INSTANCE></VALUE.OBJECT>\n";
      FlushIfLong();
   }

   void WriteProperty(const TStoredClass& storedClass, TSlot slot, const TStoredValue& value)
   {
      const TStoredProperty* const property = storedClass.FindProperty(slot);
      TCIMValue::ECIMType type = value.GetType();
      bool isArray = value.IsArray();
      if (property != nullptr) {
         RequireDeclaredType(storedClass, property->GetDeclaration(), value);
         type = property->GetDeclaration().fType;
         isArray = property->GetDeclaration().fIsArray;
      }
      BeginProperty(storedClass.GetSlotName(slot), type, isArray, "");
      if (value.IsNull()) {
         fXML += "/>\n";
         return;
      }
      fXML += '>';
      WriteValue(value);
      EndProperty(type, isArray);
   }

   // Values. A null has none.

   template <typename TValue>
   void WriteValue(const TValue& value)
   {
      if (value.IsNull())
         return;
      const bool isReference = value.GetType() == TType::kReference;
      if (value.IsArray())
         fXML += isReference ? "<VALUE.REFARRAY>" : "<VALUE.ARRAY>";
      ForEachScalar(value, [this](const TScalar& scalar) { WriteScalar(scalar); });
      if (value.IsArray())
         fXML += isReference ? "</VALUE.REFARRAY>" : "</VALUE.ARRAY>";
   }

   void WriteScalar(const TScalar& scalar)
   {
      if (scalar.fIsNull) {
         fXML += "<VALUE.NULL/>";
         return;
      }
      if (scalar.fType == TType::kReference) {
         fXML += "<VALUE.REFERENCE>";
         AppendInstanceName(fXML, scalar.fText, fStore.GetSchema());
         fXML += "</VALUE.REFERENCE>";
         return;
      }
      fXML += "<VALUE>";
      if (scalar.fType == TType::kBoolean)
         fXML += GetBooleanText(scalar.fUnsigned != 0);
      else if (scalar.fType == TType::kChar16)
         AppendXMLCharacter(fXML, scalar.fUnsigned);
      else if (scalar.fType >= TType::kString)
         AppendXMLText(fXML, scalar.fText);
      else
         AppendNumber(fXML, scalar);
      fXML += "</VALUE>";
   }

   const TMemoryStore& fStore;
   TByteSink& fSink;
   std::string fXML;
};

}  // namespace

void WriteCIMXML(const TMemoryStore& store, TByteSink& sink)
{
   TCIMXMLWriting(store, sink).Write();
}

}  // namespace NZANQSX20
