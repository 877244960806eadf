#include "writers/MOFWriter.h"

#include <cmath>
#include <unordered_map>

#include <fmt/format.h>

#include "readers/MOFReader.h"
#include "store/ValueText.h"
#include "writers/InstancesInOrder.h"
#include "writers/MOFSurvey.h"
#include "writers/TScalar.h"
#include "writers/TWriteError.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

constexpr std::size_t kFlushBytes = 256 * 1024;

bool IsMOFName(std::string_view name)
{
   const auto isLetter = [](char c) {
      return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
             static_cast<unsigned char>(c) >= 0x80;
   };
   if (name.empty() || !isLetter(name[0]))
      return false;
   for (const char c : name)
      if (!isLetter(c) && (c < '0' || c > '9'))
         return false;
   return true;
}

bool NeedsEscape(char byte)
{
   return byte == '"' || byte == '\\' || static_cast<unsigned char>(byte) < 0x20;
}

void AppendEscape(std::string& text, char byte)
{
   switch (byte) {
      case '"':
      case '\\':
         text += '\\';
         text += byte;
         break;
      case '\n':
         text += "\\n";
         break;
      case '\r':
         text += "\\r";
         break;
      case '\t':
         text += "\\t";
         break;
      default:
         // All four digits: a digit of the text may follow.
         text += fmt::format("\\x{:04X}", static_cast<unsigned char>(byte));
   }
}

void AppendQuoted(std::string& text, std::string_view content)
{
   std::string room;
   content = MakeUtf8(content, room);
   text += '"';
   std::size_t start = 0;
   for (std::size_t i = 0; i < content.size(); ++i) {
      if (!NeedsEscape(content[i]))
         continue;
      text += content.substr(start, i - start);
      AppendEscape(text, content[i]);
      start = i + 1;
   }
   text += content.substr(start);
   text += '"';
}

std::string MakeAlias(const TStoredInstance& instance)
{
   return fmt::format("${}_{}", instance.GetClass().GetName(), instance.GetNumber());
}

class TMOFWriting
{
public:
   TMOFWriting(const TMemoryStore& store, TByteSink& sink) : fStore(store), fSink(sink) {}

   std::vector<std::string> Write()
   {
      const std::vector<const TStoredInstance*> instances = GetInstancesInOrder(fStore);
      fSurvey = MakeMOFSurvey(instances);
      WriteQualifierTypes();
      for (const TStoredClass* storedClass : fStore.GetSchema().GetClasses())
         WriteClass(*storedClass);
      for (const TStoredInstance* instance : instances)
         WriteInstance(*instance);
      Flush();
      return GetNotes();
   }

private:
   void Flush()
   {
      fSink.Write(fText);
      fText.clear();
   }

   void FlushIfLong()
   {
      if (fText.size() >= kFlushBytes)
         Flush();
   }

   /// where is the class that the name belongs to, or empty.
   const std::string& RequireName(const std::string& name, const std::string& where) const
   {
      if (!IsMOFName(name))
         throw TWriteError(fmt::format("MOF has no form for the name \"{}\"{}{}; CIM-XML has", name,
                                       where.empty() ? "" : " in ", where));
      return name;
   }

   // Qualifiers. MOF tells their types apart from their values, so each is declared first.

   void WriteQualifierTypes()
   {
      for (const TStoredClass* storedClass : fStore.GetSchema().GetClasses()) {
         NoteTypes(storedClass->GetQualifiers(), *storedClass);
         for (const TStoredProperty* property : storedClass->GetOwnProperties())
            NoteTypes(property->GetDeclaration().fQualifiers, *storedClass);
      }
   }

   void NoteTypes(const std::vector<TQualifierDecl>& qualifiers, const TStoredClass& storedClass)
   {
      for (const TQualifierDecl& qualifier : qualifiers) {
         const TCIMValue::ECIMType type = qualifier.fValue.GetType();
         const auto known = fQualifierTypes.emplace(qualifier.fName, type);
         if (known.second)
            WriteQualifierType(qualifier, storedClass);
         else if (known.first->second != type)
            throw TWriteError(
               fmt::format("the qualifier {} of {} has two types, which MOF cannot "
                           "say; CIM-XML can",
                           qualifier.fName, storedClass.GetName()));
      }
   }

   void WriteQualifierType(const TQualifierDecl& qualifier, const TStoredClass& storedClass)
   {
      const TCIMValue::ECIMType type = qualifier.fValue.GetType();
      if (type == TType::kReference)
         throw TWriteError(
            fmt::format("the qualifier {} of {} is a reference, which MOF cannot say",
                        qualifier.fName, storedClass.GetName()));
      fText += "Qualifier ";
      fText += RequireName(qualifier.fName, storedClass.GetName());
      fText += " : ";
      fText += GetTypeName(type);
      fText += qualifier.fValue.IsArray() ? "[], Scope(any);\n" : ", Scope(any);\n";
   }

   void WriteQualifiers(const std::vector<TQualifierDecl>& qualifiers, const char* indent,
                        const std::string& owner)
   {
      if (qualifiers.empty())
         return;
      fText += indent;
      const char* before = "[";
      for (const TQualifierDecl& qualifier : qualifiers) {
         fText += before;
         fText += qualifier.fName;
         const TCIMValue& value = qualifier.fValue;
         const bool isTrue = value.GetType() == TType::kBoolean && !value.IsArray() &&
                             !value.IsNull() && static_cast<bool>(value);
         if (!isTrue) {
            fText += '(';
            WriteValue(value, owner);
            fText += ')';
         }
         before = ", ";
      }
      fText += "]\n";
   }

   // Classes.

   void WriteClass(const TStoredClass& storedClass)
   {
      const std::string& name = storedClass.GetName();
      fText += '\n';
      WriteQualifiers(storedClass.GetQualifiers(), "", name);
      fText += "class ";
      fText += RequireName(name, "");
      if (storedClass.GetSuperclass() != nullptr) {
         fText += " : ";
         fText += RequireName(storedClass.GetSuperclass()->GetName(), name);
      }
      fText += "\n{\n";
      for (const TStoredProperty* property : storedClass.GetOwnProperties())
         WriteProperty(property->GetDeclaration(), name);
      const auto added = fSurvey.fAdded.find(&storedClass);
      if (added != fSurvey.fAdded.end())
         for (const TPropertyDecl& property : added->second)
            WriteProperty(property, name);
      fText += "};\n";
      FlushIfLong();
   }

   void WriteProperty(const TPropertyDecl& property, const std::string& className)
   {
      WriteQualifiers(property.fQualifiers, "   ", className);
      fText += "   ";
      if (property.fType == TType::kReference) {
         // A reference to instances of any class.
         const bool isTyped = !property.fReferenceClass.empty();
         fText += isTyped ? RequireName(property.fReferenceClass, className) : kAnyClass;
         fText += " ref";
      } else {
         fText += GetTypeName(property.fType);
      }
      fText += ' ';
      fText += RequireName(property.fName, className);
      fText += property.fIsArray ? "[]" : "";
      if (!property.fDefault.IsNull()) {
         fText += " = ";
         WriteValue(property.fDefault, className);
      }
      fText += ";\n";
   }

   // Instances.

   void WriteInstance(const TStoredInstance& instance)
   {
      const TStoredClass& storedClass = instance.GetClass();
      fText += "\ninstance of ";
      fText += storedClass.GetName();
      if (fSurvey.fAliased.count(&instance) > 0) {
         fText += " as ";
         fText += MakeAlias(instance);
      }
      fText += "\n{\n";
      const TShape& shape = instance.GetShape();
      for (std::uint32_t i = 0; i < shape.fCount; ++i) {
         const TStoredValue& value = instance.GetValues()[i];
         const TStoredProperty* const property = storedClass.FindProperty(shape.fSlots[i]);
         if (property != nullptr)
            RequireDeclaredType(storedClass, property->GetDeclaration(), value);
         fText += "   ";
         fText += storedClass.GetSlotName(shape.fSlots[i]);
         fText += " = ";
         WriteValue(value, storedClass.GetName());
         fText += ";\n";
      }
      fText += "};\n";
      FlushIfLong();
   }

   // Values.

   template <typename TValue>
   void WriteValue(const TValue& value, const std::string& owner)
   {
      if (!value.IsArray() || value.IsNull())
         return ForOne(value, owner);
      const char* before = "{";
      ForEachScalar(value, [&](const TScalar& scalar) {
         fText += before;
         WriteScalar(scalar, owner);
         before = ", ";
      });
      fText += *before == '{' ? "{}" : "}";
   }

   template <typename TValue>
   void ForOne(const TValue& value, const std::string& owner)
   {
      if (value.IsNull())
         fText += "NULL";
      else
         ForEachScalar(value, [&](const TScalar& scalar) { WriteScalar(scalar, owner); });
   }

   void WriteScalar(const TScalar& scalar, const std::string& owner)
   {
      if (scalar.fIsNull)
         fText += "NULL";
      else if (scalar.fType == TType::kBoolean)
         fText += GetBooleanText(scalar.fUnsigned != 0);
      else if (scalar.fTarget != nullptr && scalar.fTarget->IsListed())
         fText += MakeAlias(*scalar.fTarget);
      else if (scalar.fType >= TType::kString)
         AppendQuoted(fText, scalar.fText);
      else if (IsRealType(scalar.fType) && !std::isfinite(scalar.fReal))
         throw TWriteError(fmt::format(
            "{} holds a real that is no finite number, which MOF cannot say; CIM-XML can", owner));
      else
         AppendNumber(fText, scalar);
   }

   std::vector<std::string> GetNotes() const
   {
      std::size_t count = 0;
      std::string first;
      for (const TStoredClass* storedClass : fStore.GetSchema().GetClasses()) {
         const auto added = fSurvey.fAdded.find(storedClass);
         if (added == fSurvey.fAdded.end() || added->second.empty())
            continue;
         if (count == 0)
            first = storedClass->GetName() + '.' + added->second.front().fName;
         count += added->second.size();
      }
      if (count == 0)
         return {};
      return {fmt::format(
         "{} {} that only instances have {} declared by their classes, such as "
         "{}: MOF has no others",
         count, count == 1 ? "property" : "properties", count == 1 ? "is" : "are", first)};
   }

   const TMemoryStore& fStore;
   TByteSink& fSink;
   TMOFSurvey fSurvey;
   std::unordered_map<std::string, TCIMValue::ECIMType> fQualifierTypes;
   std::string fText;
};

}  // namespace

std::vector<std::string> WriteMOF(const TMemoryStore& store, TByteSink& sink)
{
   return TMOFWriting(store, sink).Write();
}

}  // namespace NZANQSX20
