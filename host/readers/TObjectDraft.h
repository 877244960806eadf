#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <memory_resource>
#include <string_view>
#include <vector>

#include "TCIMValue.h"
#include "readers/TReadLimits.h"
#include "readers/TSourceText.h"

namespace NZANQSX20 {

/// One value as a file writes it, before the type is known that it will have.
struct TValueDraft
{
   enum EForm : std::uint8_t
   {
      kNull,
      /// MOF forms: the text is the literal itself, or the content of the quotes with escapes done.
      kBoolean,
      kInteger,
      kReal,
      kText,
      kCharacter,
      /// The name of an alias, without "$".
      kAlias,
      /// CIM-XML: the type alone tells how the text is read.
      kUntyped
   };

   EForm fForm = kNull;
   std::string_view fText;
   std::size_t fMark = 0;
};

/// Values that belong to one name: they lie together in TObjectDraft::fValues.
struct TValuesDraft
{
   std::uint32_t fFirst = 0;
   std::uint32_t fCount = 0;
   bool fIsArray = false;
   /// Whether any value is written at all; an array without items is one, an explicit null is one.
   bool fIsGiven = false;
};

struct TQualifierDraft
{
   std::string_view fName;
   std::size_t fMark = 0;
   /// kNull where the file does not tell the type.
   TCIMValue::ECIMType fType = TCIMValue::TCIMType::kNull;
   TValuesDraft fValues;
};

/// A property with its declaration, its value, or both.
struct TPropertyDraft
{
   std::string_view fName;
   std::size_t fMark = 0;
   /// kNull where the file does not tell the type: an instance in MOF.
   TCIMValue::ECIMType fType = TCIMValue::TCIMType::kNull;
   bool fIsArray = false;
   /// Whether the path of the instance names it; tells the keys where no declaration does.
   bool fIsKey = false;
   /// The class that a reference is declared with, empty where the file does not tell it.
   std::string_view fReferenceClass;
   TValuesDraft fValues;
   /// Its own qualifiers in TObjectDraft::fQualifiers.
   std::uint32_t fFirstQualifier = 0;
   std::uint32_t fQualifierCount = 0;
};

/// One class or instance as a file writes it: what both readers hand to TCollectionBuilder.
///
/// Owner: views point into the file's text or into this draft's memory; Clear ends them all. A
///        reader uses one draft over and over, so that reading a further object allocates nothing.
class TObjectDraft
{
public:
   explicit TObjectDraft(const TReadLimits& limits)
      : fLimits(limits), fMemory(fFirstBlock.data(), fFirstBlock.size())
   {}

   void Clear();

   /// A copy of the text that lives as long as the draft's content.
   std::string_view Keep(std::string_view text);

   /// Each adds one item at the end. Throws: TReadError where a limit is passed.
   TPropertyDraft& AddProperty(const TSource& source, const TPropertyDraft& property);
   TQualifierDraft& AddQualifier(const TSource& source, const TQualifierDraft& qualifier);
   void AddValue(const TSource& source, const TValueDraft& value);

   /// Starts a list of values: those that are added from here on.
   void BeginValues();

   /// The values added since BeginValues.
   TValuesDraft EndValues(bool isArray) const;

   /// Throws: TReadError where the name is longer than the limit.
   void CheckName(const TSource& source, std::size_t mark, std::string_view name) const;

   std::string_view fClassName;
   std::string_view fSuperclass;
   std::string_view fAlias;
   std::size_t fMark = 0;
   std::size_t fAliasMark = 0;
   /// An instance that may hold what its class does not declare, and whose class may be undeclared:
   /// CIM-XML.
   bool fIsOpen = false;
   /// The text that views may be kept of, once the store shares it. Missing: empty, all is copied.
   std::shared_ptr<const TSourceText> fSharedText;
   /// The class's own qualifiers are the first ones of fQualifiers.
   std::uint32_t fQualifierCount = 0;
   std::vector<TPropertyDraft> fProperties;
   std::vector<TQualifierDraft> fQualifiers;
   std::vector<TValueDraft> fValues;

private:
   const TReadLimits& fLimits;
   std::uint32_t fValuesStart = 0;
   std::array<char, 16384> fFirstBlock;
   std::pmr::monotonic_buffer_resource fMemory;
};

}  // namespace NZANQSX20
