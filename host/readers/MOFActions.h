#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "readers/MOFGrammar.h"
#include "readers/MOFReader.h"
#include "readers/MOFText.h"
#include "readers/ReadValue.h"
#include "readers/TObjectDraft.h"
#include "readers/TSourceText.h"

/// What the rules of the grammar do when they match: they fill the draft of one production.
///
/// Shape: a rule that is derived from another runs its own action only, so a TExpect... repeats the
///        action of what it expects.
namespace NZANQSX20::NMOFGrammar {

using ECIMType = TCIMValue::ECIMType;

/// What the actions fill while one production is parsed.
class TProductionState
{
public:
   TProductionState(TSourceText& source, TObjectDraft& draft) : fSource(source), fDraft(draft) {}

   enum EKind
   {
      kNothing,
      kClass,
      kInstance,
      kQualifier,
      kInclude
   };

   void Begin()
   {
      fKind = kNothing;
      fDraft.Clear();
      fIsArray = fIsArrayType = fIsReference = false;
      fPragmaName = {};
   }

   std::size_t GetMark(const char* at) const
   {
      return static_cast<std::size_t>(at - fSource.GetText().data());
   }

   void AddValue(TValueDraft::EForm form, std::string_view text, const char* at)
   {
      fDraft.AddValue(fSource, {form, text, GetMark(at)});
   }

   /// The last initializer, kept until the rule that it belongs to is complete.
   TValuesDraft TakeInitializer() { return std::exchange(fInitializer, {}); }

   TSourceText& fSource;
   TObjectDraft& fDraft;
   EKind fKind = kNothing;
   bool fIsArray = false;
   TValuesDraft fInitializer;
   std::size_t fTextMark = 0;

   // The member that is being read.
   std::string_view fTypeName;
   std::size_t fTypeMark = 0;
   std::string_view fMemberName;
   std::size_t fMemberMark = 0;
   bool fIsReference = false;
   bool fIsArrayType = false;
   std::uint32_t fFirstQualifier = 0;
   std::uint32_t fFirstValue = 0;

   std::string_view fPragmaName;
};

using TState = TProductionState;

template <typename Rule>
struct TAction : peg::nothing<Rule>
{};

/// The type that a name stands for. Throws: TReadError for a name that is no type.
inline ECIMType RequireType(const TSource& source, std::size_t mark, std::string_view name)
{
   ECIMType type = TCIMValue::TCIMType::kNull;
   if (!FindCIMType(name, type) || type == TCIMValue::TCIMType::kReference)
      source.Fail(mark, fmt::format("expected a type or a class before 'ref', found {}",
                                    QuoteForMessage(name)));
   return type;
}

// Values.

template <>
struct TAction<TOpenQuote>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fTextMark = state.GetMark(in.begin());
   }
};

template <>
struct TAction<TBeginInitializer>
{
   static void apply0(TState& state)
   {
      state.fIsArray = false;
      state.fDraft.BeginValues();
   }
};

template <>
struct TAction<TOpenArray>
{
   static void apply0(TState& state) { state.fIsArray = true; }
};

template <>
struct TAction<TInitializer>
{
   static void apply0(TState& state)
   {
      state.fInitializer = state.fDraft.EndValues(state.fIsArray);
   }
};

template <>
struct TAction<TExpectInitializer> : TAction<TInitializer>
{};

template <TValueDraft::EForm Form>
struct TLiteralAction
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.AddValue(Form, {in.begin(), in.size()}, in.begin());
   }
};

template <>
struct TAction<TInteger> : TLiteralAction<TValueDraft::kInteger>
{};

template <>
struct TAction<TReal> : TLiteralAction<TValueDraft::kReal>
{};

template <>
struct TAction<TBoolean> : TLiteralAction<TValueDraft::kBoolean>
{};

template <>
struct TAction<TNull> : TLiteralAction<TValueDraft::kNull>
{};

template <>
struct TAction<TExpectAliasName> : TLiteralAction<TValueDraft::kAlias>
{};

template <>
struct TAction<TText>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      const std::string_view literals(in.begin(), in.size());
      state.AddValue(TValueDraft::kText,
                     ReadMOFText(literals, state.fSource, state.GetMark(in.begin()), state.fDraft),
                     in.begin());
   }
};

template <>
struct TAction<TCharacter>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      const std::string_view literal(in.begin(), in.size());
      state.AddValue(TValueDraft::kCharacter,
                     ReadMOFText(literal, state.fSource, state.GetMark(in.begin()), state.fDraft),
                     in.begin());
   }
};

// Qualifiers.

template <>
struct TAction<TQualifierName>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      TQualifierDraft qualifier;
      qualifier.fName = {in.begin(), in.size()};
      qualifier.fMark = state.GetMark(in.begin());
      state.fDraft.AddQualifier(state.fSource, qualifier);
      state.fInitializer = {};
   }
};

template <>
struct TAction<TQualifier>
{
   static void apply0(TState& state)
   {
      state.fDraft.fQualifiers.back().fValues = state.TakeInitializer();
   }
};

template <>
struct TAction<TExpectQualifier> : TAction<TQualifier>
{};

// Members.

template <>
struct TAction<TTypeName>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fTypeName = {in.begin(), in.size()};
      state.fTypeMark = state.GetMark(in.begin());
      state.fIsReference = state.fIsArrayType = false;
      state.fInitializer = {};
   }
};

template <>
struct TAction<TReferenceMark>
{
   static void apply0(TState& state) { state.fIsReference = true; }
};

template <>
struct TAction<TArrayMark>
{
   static void apply0(TState& state) { state.fIsArrayType = true; }
};

template <>
struct TAction<TExpectMemberName>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fMemberName = {in.begin(), in.size()};
      state.fMemberMark = state.GetMark(in.begin());
   }
};

/// A method leaves nothing behind, its qualifiers included.
template <>
struct TAction<TMethod>
{
   static void apply0(TState& state)
   {
      state.fDraft.fQualifiers.resize(state.fFirstQualifier);
      state.fDraft.fValues.resize(state.fFirstValue);
   }
};

template <>
struct TAction<TProperty>
{
   static void apply0(TState& state)
   {
      TPropertyDraft property;
      property.fName = state.fMemberName;
      property.fMark = state.fMemberMark;
      property.fType = state.fIsReference
                          ? ECIMType(TCIMValue::TCIMType::kReference)
                          : RequireType(state.fSource, state.fTypeMark, state.fTypeName);
      property.fIsArray = state.fIsArrayType;
      if (state.fIsReference && state.fTypeName != kAnyClass)
         property.fReferenceClass = state.fTypeName;
      property.fValues = state.TakeInitializer();
      property.fFirstQualifier = state.fFirstQualifier;
      const std::size_t qualifiers = state.fDraft.fQualifiers.size();
      property.fQualifierCount = static_cast<std::uint32_t>(qualifiers) - state.fFirstQualifier;
      state.fDraft.AddProperty(state.fSource, property);
   }
};

inline void BeginMembers(TState& state)
{
   state.fFirstQualifier = static_cast<std::uint32_t>(state.fDraft.fQualifiers.size());
   state.fFirstValue = static_cast<std::uint32_t>(state.fDraft.fValues.size());
}

template <>
struct TAction<TMember>
{
   static void apply0(TState& state) { BeginMembers(state); }
};

template <>
struct TAction<TExpectMember> : TAction<TMember>
{};

// The top level.

template <>
struct TAction<TExpectClassName>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fKind = TState::kClass;
      state.fDraft.fClassName = {in.begin(), in.size()};
      state.fDraft.fMark = state.GetMark(in.begin());
      state.fDraft.fQualifierCount = static_cast<std::uint32_t>(state.fDraft.fQualifiers.size());
      BeginMembers(state);
   }
};

template <>
struct TAction<TExpectSuperclass>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fDraft.fSuperclass = {in.begin(), in.size()};
   }
};

template <>
struct TAction<TExpectAliasOfObject>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fDraft.fAlias = {in.begin(), in.size()};
      state.fDraft.fAliasMark = state.GetMark(in.begin());
   }
};

template <>
struct TAction<TExpectInstanceClass>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fKind = TState::kInstance;
      state.fDraft.fClassName = {in.begin(), in.size()};
      state.fDraft.fMark = state.GetMark(in.begin());
   }
};

template <>
struct TAction<TInstancePropertyName>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      TPropertyDraft property;
      property.fName = {in.begin(), in.size()};
      property.fMark = state.GetMark(in.begin());
      state.fDraft.AddProperty(state.fSource, property);
   }
};

template <>
struct TAction<TInstanceProperty>
{
   static void apply0(TState& state)
   {
      state.fDraft.fProperties.back().fValues = state.TakeInitializer();
   }
};

template <>
struct TAction<TExpectInstanceProperty> : TAction<TInstanceProperty>
{};

template <>
struct TAction<TExpectQualifierToDeclare>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fKind = TState::kQualifier;
      state.fMemberName = {in.begin(), in.size()};
   }
};

template <>
struct TAction<TExpectQualifierType>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fTypeName = {in.begin(), in.size()};
      state.fTypeMark = state.GetMark(in.begin());
   }
};

template <>
struct TAction<TExpectPragmaName>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fPragmaName = {in.begin(), in.size()};
   }
};

template <>
struct TAction<TPragma>
{
   static void apply0(TState& state)
   {
      if (state.fPragmaName == "include")
         state.fKind = TState::kInclude;
   }
};

}  // namespace NZANQSX20::NMOFGrammar
