#include "readers/CIMXMLReader.h"

#include <charconv>
#include <cstdint>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "readers/CIMXMLElements.h"
#include "readers/ReadValue.h"
#include "readers/TInstanceNames.h"
#include "readers/XMLScanner.h"

namespace NZANQSX20 {

namespace {

using A = ECIMXMLAttribute;
using E = ECIMXMLElement;
using TType = TCIMValue::TCIMType;
using TAttributes = std::vector<TXMLAttribute>;

bool FindAttribute(const TAttributes& attributes, A name, std::string_view& value)
{
   for (const TXMLAttribute& attribute : attributes) {
      if (GetCIMXMLAttribute(attribute.fName) == name) {
         value = attribute.fValue;
         return true;
      }
   }
   return false;
}

/// The state of one document: the open elements and the class or instance that is being read.
class TReading : public TXMLHandler
{
public:
   TReading(const std::string& name, TCollectionBuilder& builder)
      : fSource(name),
        fBuilder(builder),
        fLimits(builder.GetLimits()),
        fDraft(builder.GetLimits()),
        fNames(fSource, fLimits)
   {}

   TXMLName FindName(std::string_view name) const override { return FindCIMXMLName(name); }

   void StartElement(TXMLName name, std::string_view text, const TAttributes& attributes,
                     TPlace place) override
   {
      const std::size_t mark = TPlacedSource::MakeMark(place);
      CheckDepth(mark);
      const E parent = fOpen.empty() ? E::kDocument : fOpen.back();
      if (parent == E::kSkipped) {
         fOpen.push_back(E::kSkipped);
         return;
      }
      const E element = GetCIMXMLElement(name);
      if (!MayHold(parent, element))
         FailAtElement(mark, parent, text);
      fOpen.push_back(element);
      Begin(element, attributes, mark);
   }

   void EndElement() override
   {
      const E element = fOpen.back();
      fOpen.pop_back();
      End(element);
   }

   void Text(std::string_view text, TPlace place) override
   {
      const E element = fOpen.empty() ? E::kDocument : fOpen.back();
      if (element == E::kSkipped)
         return;
      const std::size_t mark = TPlacedSource::MakeMark(place);
      if (element != E::kValue && element != E::kKeyValue) {
         if (!TrimBlanks(text).empty())
            fSource.Fail(mark, fmt::format("expected an element, found the text {}",
                                           QuoteForMessage(TrimBlanks(text))));
         return;
      }
      if (GetText().size() + text.size() > fLimits.fTextBytes)
         fSource.Fail(mark, fmt::format("expected at most {} bytes in one text, found more",
                                        fLimits.fTextBytes));
      AddText(text, element);
   }

   /// A character of a text that XML has no form for.
   void Instruction(std::string_view target, std::string_view content, TPlace place) override
   {
      if (target != kCharacterInstruction)
         return;
      std::uint32_t code = 0;
      const char* const end = content.data() + content.size();
      const auto read = std::from_chars(content.data(), end, code, 16);
      const bool isNumber = read.ec == std::errc() && read.ptr == end;
      if (!isNumber || (code >= 0x20 && code != 0xFFFE && code != 0xFFFF))
         fSource.Fail(TPlacedSource::MakeMark(place),
                      fmt::format("expected the number of a character that XML has no form for, "
                                  "found {}",
                                  QuoteForMessage(content)));
      std::string character;
      AppendUtf8(character, code);
      Text(character, place);
   }

private:
   // The text of the value that is open. Most come in one piece, which needs no putting together.

   void ClearText()
   {
      fPiece = {};
      fJoined.clear();
      fIsJoined = false;
   }

   void AddText(std::string_view text, E element)
   {
      if (!fIsJoined && fPiece.empty() && element == E::kValue) {
         fPiece = fDraft.Keep(text);
         return;
      }
      if (!fIsJoined)
         fJoined = fPiece;
      fIsJoined = true;
      fJoined += text;
   }

   std::string_view GetText() const { return fIsJoined ? std::string_view(fJoined) : fPiece; }

   void CheckDepth(std::size_t mark) const
   {
      if (fOpen.size() >= fLimits.fDepth)
         fSource.Fail(mark,
                      fmt::format("expected at most {} elements inside each other, found more",
                                  fLimits.fDepth));
   }

   [[noreturn]] void FailAtElement(std::size_t mark, E parent, std::string_view name) const
   {
      const char* const where =
         parent == E::kDocument ? "the element CIM" : "an element that may stand here";
      fSource.Fail(mark, fmt::format("expected {}, found {}", where, QuoteForMessage(name)));
   }

   /// Throws: TReadError where the tag lacks the attribute.
   std::string_view Require(const TAttributes& attributes, A name, const char* text,
                            std::size_t mark) const
   {
      std::string_view value;
      if (!FindAttribute(attributes, name, value))
         fSource.Fail(mark, fmt::format("expected the attribute {}, found none", text));
      return value;
   }

   std::string_view RequireName(const TAttributes& attributes, std::size_t mark) const
   {
      return Require(attributes, A::kName, "NAME", mark);
   }

   std::string_view RequireClassName(const TAttributes& attributes, std::size_t mark) const
   {
      return Require(attributes, A::kClassName, "CLASSNAME", mark);
   }

   TCIMValue::ECIMType RequireType(const TAttributes& attributes, std::size_t mark) const
   {
      const std::string_view name = Require(attributes, A::kType, "TYPE", mark);
      TCIMValue::ECIMType type = TType::kNull;
      if (!FindCIMType(name, type))
         fSource.Fail(mark, fmt::format("expected a type, found {}", QuoteForMessage(name)));
      return type;
   }

   void Begin(E element, const TAttributes& attributes, std::size_t mark)
   {
      switch (element) {
         case E::kNamedObject:
            fNames.Clear();
            break;
         case E::kClass:
         case E::kInstance:
            BeginObject(element, attributes, mark);
            break;
         case E::kProperty:
         case E::kPropertyArray:
            BeginProperty(attributes, mark, RequireType(attributes, mark),
                          element == E::kPropertyArray);
            break;
         case E::kPropertyReference:
         case E::kPropertyReferenceArray:
            BeginProperty(attributes, mark, TType::kReference,
                          element == E::kPropertyReferenceArray);
            break;
         case E::kQualifier:
            BeginQualifier(attributes, mark);
            break;
         case E::kQualifierDeclaration:
            fBuilder.DeclareQualifier(RequireName(attributes, mark), RequireType(attributes, mark));
            fOpen.back() = E::kSkipped;
            break;
         case E::kValueArray:
         case E::kValueReferenceArray:
            BeginValues(mark);
            break;
         case E::kValue:
         case E::kValueReference:
            ClearText();
            fValueMark = mark;
            if (!IsInArray() && GetParent() != E::kKeyBinding)
               BeginValues(mark);
            break;
         case E::kValueNull:
            fDraft.AddValue(fSource, {TValueDraft::kNull, {}, mark});
            break;
         case E::kInstanceName:
            fNames.Begin(RequireClassName(attributes, mark), mark);
            break;
         case E::kKeyBinding:
            fNames.BeginKey(RequireName(attributes, mark));
            break;
         case E::kKeyValue:
            BeginKeyValue(attributes, mark);
            break;
         case E::kClassName:
            fNames.SetClassName(RequireName(attributes, mark));
            fOpen.back() = E::kSkipped;
            break;
         case E::kError:
            FailAtError(attributes, mark);
         default:
            break;
      }
   }

   void End(E element)
   {
      switch (element) {
         case E::kClass:
            fBuilder.AddClass(fDraft, fSource);
            break;
         case E::kInstance:
            AddPathKeys();
            fBuilder.AddInstance(fDraft, fSource);
            break;
         case E::kValue:
            EndValue(fIsJoined ? fDraft.Keep(fJoined) : fPiece);
            break;
         case E::kValueReference:
            EndReference();
            break;
         case E::kValueArray:
         case E::kValueReferenceArray:
            GetValues() = fDraft.EndValues(true);
            break;
         case E::kQualifier:
            fIsInQualifier = false;
            break;
         case E::kKeyValue:
            fNames.SetKeyValue(GetText(), fKeyType);
            break;
         case E::kInstanceName:
            fNames.End();
            break;
         default:
            break;
      }
   }

   void BeginObject(E element, const TAttributes& attributes, std::size_t mark)
   {
      fDraft.Clear();
      fDraft.fMark = mark;
      fDraft.fIsOpen = element == E::kInstance;
      fDraft.fClassName = fDraft.Keep(fDraft.fIsOpen ? RequireClassName(attributes, mark)
                                                     : RequireName(attributes, mark));
      std::string_view superclass;
      if (!fDraft.fIsOpen && FindAttribute(attributes, A::kSuperclass, superclass))
         fDraft.fSuperclass = fDraft.Keep(superclass);
      fIsInQualifier = false;
      fPathKeys.clear();
      if (GetParent() == E::kNamedObject)
         fPathKeys = fNames.TakeKeys();
   }

   void BeginProperty(const TAttributes& attributes, std::size_t mark, TCIMValue::ECIMType type,
                      bool isArray)
   {
      TPropertyDraft property;
      property.fName = fDraft.Keep(RequireName(attributes, mark));
      property.fMark = mark;
      property.fType = type;
      property.fIsArray = isArray;
      std::string_view referenceClass;
      if (FindAttribute(attributes, A::kReferenceClass, referenceClass))
         property.fReferenceClass = fDraft.Keep(referenceClass);
      property.fFirstQualifier = static_cast<std::uint32_t>(fDraft.fQualifiers.size());
      fDraft.AddProperty(fSource, property);
   }

   void BeginQualifier(const TAttributes& attributes, std::size_t mark)
   {
      TQualifierDraft qualifier;
      qualifier.fName = fDraft.Keep(RequireName(attributes, mark));
      qualifier.fMark = mark;
      qualifier.fType = RequireType(attributes, mark);
      fDraft.AddQualifier(fSource, qualifier);
      fIsInQualifier = true;
      const bool isOfProperty = GetParent() != E::kClass && GetParent() != E::kInstance;
      if (!isOfProperty && !fDraft.fProperties.empty())
         fSource.Fail(mark, "expected the qualifiers before the properties, found one behind them");
      ++(isOfProperty ? fDraft.fProperties.back().fQualifierCount : fDraft.fQualifierCount);
   }

   /// The element that holds the one opened last.
   E GetParent() const { return fOpen.size() < 2 ? E::kDocument : fOpen[fOpen.size() - 2]; }

   bool IsInArray() const
   {
      return GetParent() == E::kValueArray || GetParent() == E::kValueReferenceArray;
   }

   /// The values of the qualifier or property that is open.
   TValuesDraft& GetValues()
   {
      return fIsInQualifier ? fDraft.fQualifiers.back().fValues : fDraft.fProperties.back().fValues;
   }

   void BeginValues(std::size_t mark)
   {
      if (GetValues().fIsGiven)
         fSource.Fail(mark, "expected one value, found a second one");
      fDraft.BeginValues();
   }

   /// Called when the element of the value is closed: the one opened last is its parent.
   /// Owner: the text is the draft's.
   void EndValue(std::string_view text)
   {
      fDraft.AddValue(fSource, {TValueDraft::kUntyped, text, fValueMark});
      const bool isInArray =
         fOpen.back() == E::kValueArray || fOpen.back() == E::kValueReferenceArray;
      if (!isInArray)
         GetValues() = fDraft.EndValues(false);
   }

   void EndReference()
   {
      const std::string path = fNames.TakePath();
      if (path.empty())
         fSource.Fail(fValueMark, "expected the name of an instance, found none");
      if (fOpen.back() == E::kKeyBinding)
         fNames.SetKeyValue(path, TType::kReference);
      else
         EndValue(fDraft.Keep(path));
   }

   void BeginKeyValue(const TAttributes& attributes, std::size_t mark)
   {
      ClearText();
      std::string_view form = "string";
      FindAttribute(attributes, A::kValueType, form);
      fKeyType = form == "boolean" ? TType::kBoolean
                                   : (form == "numeric" ? TType::kSInt64 : TType::kString);
      std::string_view type;
      if (FindAttribute(attributes, A::kType, type))
         fKeyType = RequireType(attributes, mark);
   }

   /// The path in front of an instance tells which properties are keys, and their values where the
   /// instance does not repeat them.
   void AddPathKeys()
   {
      const std::size_t held = fDraft.fProperties.size();
      for (const TInstanceKey& key : fPathKeys) {
         std::size_t index = 0;
         while (index < held && fDraft.fProperties[index].fName != key.fName)
            ++index;
         if (index < held)
            fDraft.fProperties[index].fIsKey = true;
         else
            AddKeyProperty(key);
      }
   }

   void AddKeyProperty(const TInstanceKey& key)
   {
      TPropertyDraft property;
      property.fName = fDraft.Keep(key.fName);
      property.fMark = fDraft.fMark;
      property.fType = key.fType;
      property.fIsKey = true;
      property.fFirstQualifier = static_cast<std::uint32_t>(fDraft.fQualifiers.size());
      fDraft.BeginValues();
      fDraft.AddValue(fSource, {TValueDraft::kUntyped, fDraft.Keep(key.fText), fDraft.fMark});
      property.fValues = fDraft.EndValues(false);
      fDraft.AddProperty(fSource, property);
   }

   [[noreturn]] void FailAtError(const TAttributes& attributes, std::size_t mark) const
   {
      std::string_view code = "?";
      std::string_view description;
      FindAttribute(attributes, A::kCode, code);
      FindAttribute(attributes, A::kDescription, description);
      fSource.Fail(mark, fmt::format("expected data, found the response of an error, code {}: {}",
                                     code, QuoteForMessage(description)));
   }

   TPlacedSource fSource;
   TCollectionBuilder& fBuilder;
   const TReadLimits& fLimits;
   TObjectDraft fDraft;
   TInstanceNames fNames;
   /// Of the path in front of the instance that is being read.
   std::vector<TInstanceKey> fPathKeys;
   std::vector<E> fOpen;
   std::string_view fPiece;
   std::string fJoined;
   bool fIsJoined = false;
   std::size_t fValueMark = 0;
   TCIMValue::ECIMType fKeyType = TType::kString;
   bool fIsInQualifier = false;
};

}  // namespace

void ReadCIMXML(TByteSource& bytes, const std::string& name, TCollectionBuilder& builder)
{
   TReading reading(name, builder);
   ScanXML(bytes, name, reading);
}

}  // namespace NZANQSX20
