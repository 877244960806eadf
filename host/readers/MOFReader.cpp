#include "readers/MOFReader.h"

#include <optional>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "readers/MOFGrammar.h"
#include "readers/MOFText.h"
#include "readers/ReadValue.h"

namespace NZANQSX20 {

namespace {

namespace NGrammar = NMOFGrammar;
namespace peg = tao::pegtl;

using TInput = peg::memory_input<peg::tracking_mode::lazy, peg::eol::lf, std::string>;
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

   // The last initializer, kept until the rule that it belongs to is complete.
   TValuesDraft TakeInitializer()
   {
      TValuesDraft values = std::exchange(fInitializer, {});
      return values;
   }

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
ECIMType RequireType(const TSource& source, std::size_t mark, std::string_view name)
{
   ECIMType type = TCIMValue::TCIMType::kNull;
   if (!FindCIMType(name, type) || type == TCIMValue::TCIMType::kReference)
      source.Fail(mark, fmt::format("expected a type or a class before 'ref', found {}",
                                    QuoteForMessage(name)));
   return type;
}

// Values.

template <>
struct TAction<NGrammar::TOpenQuote>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fTextMark = state.GetMark(in.begin());
   }
};

template <>
struct TAction<NGrammar::TBeginInitializer>
{
   static void apply0(TState& state)
   {
      state.fIsArray = false;
      state.fDraft.BeginValues();
   }
};

template <>
struct TAction<NGrammar::TOpenArray>
{
   static void apply0(TState& state) { state.fIsArray = true; }
};

template <>
struct TAction<NGrammar::TInitializer>
{
   static void apply0(TState& state)
   {
      state.fInitializer = state.fDraft.EndValues(state.fIsArray);
   }
};

template <>
struct TAction<NGrammar::TExpectInitializer> : TAction<NGrammar::TInitializer>
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
struct TAction<NGrammar::TInteger> : TLiteralAction<TValueDraft::kInteger>
{};

template <>
struct TAction<NGrammar::TReal> : TLiteralAction<TValueDraft::kReal>
{};

template <>
struct TAction<NGrammar::TBoolean> : TLiteralAction<TValueDraft::kBoolean>
{};

template <>
struct TAction<NGrammar::TNull> : TLiteralAction<TValueDraft::kNull>
{};

template <>
struct TAction<NGrammar::TExpectAliasName> : TLiteralAction<TValueDraft::kAlias>
{};

template <>
struct TAction<NGrammar::TText>
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
struct TAction<NGrammar::TCharacter>
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
struct TAction<NGrammar::TQualifierName>
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
struct TAction<NGrammar::TQualifier>
{
   static void apply0(TState& state)
   {
      state.fDraft.fQualifiers.back().fValues = state.TakeInitializer();
   }
};

template <>
struct TAction<NGrammar::TExpectQualifier> : TAction<NGrammar::TQualifier>
{};

// Members.

template <>
struct TAction<NGrammar::TTypeName>
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
struct TAction<NGrammar::TReferenceMark>
{
   static void apply0(TState& state) { state.fIsReference = true; }
};

template <>
struct TAction<NGrammar::TArrayMark>
{
   static void apply0(TState& state) { state.fIsArrayType = true; }
};

template <>
struct TAction<NGrammar::TExpectMemberName>
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
struct TAction<NGrammar::TMethod>
{
   static void apply0(TState& state)
   {
      state.fDraft.fQualifiers.resize(state.fFirstQualifier);
      state.fDraft.fValues.resize(state.fFirstValue);
   }
};

template <>
struct TAction<NGrammar::TProperty>
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
      if (state.fIsReference)
         property.fReferenceClass = state.fTypeName;
      property.fValues = state.TakeInitializer();
      property.fFirstQualifier = state.fFirstQualifier;
      const std::size_t qualifiers = state.fDraft.fQualifiers.size();
      property.fQualifierCount = static_cast<std::uint32_t>(qualifiers) - state.fFirstQualifier;
      state.fDraft.AddProperty(state.fSource, property);
   }
};

void BeginMembers(TState& state)
{
   state.fFirstQualifier = static_cast<std::uint32_t>(state.fDraft.fQualifiers.size());
   state.fFirstValue = static_cast<std::uint32_t>(state.fDraft.fValues.size());
}

template <>
struct TAction<NGrammar::TMember>
{
   static void apply0(TState& state) { BeginMembers(state); }
};

template <>
struct TAction<NGrammar::TExpectMember> : TAction<NGrammar::TMember>
{};

// The top level.

template <>
struct TAction<NGrammar::TExpectClassName>
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
struct TAction<NGrammar::TExpectSuperclass>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fDraft.fSuperclass = {in.begin(), in.size()};
   }
};

template <>
struct TAction<NGrammar::TExpectAliasOfObject>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fDraft.fAlias = {in.begin(), in.size()};
      state.fDraft.fAliasMark = state.GetMark(in.begin());
   }
};

template <>
struct TAction<NGrammar::TExpectInstanceClass>
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
struct TAction<NGrammar::TInstancePropertyName>
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
struct TAction<NGrammar::TInstanceProperty>
{
   static void apply0(TState& state)
   {
      state.fDraft.fProperties.back().fValues = state.TakeInitializer();
   }
};

template <>
struct TAction<NGrammar::TExpectInstanceProperty> : TAction<NGrammar::TInstanceProperty>
{};

template <>
struct TAction<NGrammar::TExpectQualifierToDeclare>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fKind = TState::kQualifier;
      state.fMemberName = {in.begin(), in.size()};
   }
};

template <>
struct TAction<NGrammar::TExpectQualifierType>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fTypeName = {in.begin(), in.size()};
      state.fTypeMark = state.GetMark(in.begin());
   }
};

template <>
struct TAction<NGrammar::TExpectPragmaName>
{
   template <typename Input>
   static void apply(const Input& in, TState& state)
   {
      state.fPragmaName = {in.begin(), in.size()};
   }
};

template <>
struct TAction<NGrammar::TPragma>
{
   static void apply0(TState& state)
   {
      if (state.fPragmaName == "include")
         state.fKind = TState::kInclude;
   }
};

/// What stands at the offset, for "found ...": a name or number whole, else one character.
std::string DescribeFound(std::string_view text, std::size_t offset)
{
   if (offset >= text.size())
      return "the end of the file";
   const std::string_view rest = text.substr(offset);
   std::size_t length = 0;
   while (length < rest.size() && NGrammar::IsNumberByte(static_cast<unsigned char>(rest[length])))
      ++length;
   if (length == 0 && rest[0] == '"')
      return "a text";
   return QuoteForMessage(rest.substr(0, length == 0 ? 1 : length));
}

/// One open file: its text, where the parser stands in it, and what it is parsed into.
class TOpenFile
{
public:
   TOpenFile(std::shared_ptr<TSourceText> source, TObjectDraft& draft)
      : fSource(std::move(source)),
        fInput(fSource->GetText().data(), fSource->GetText().data() + fSource->GetText().size(),
               fSource->GetName()),
        fState(*fSource, draft)
   {
      if (fSource->GetText().substr(0, kByteOrderMark.size()) == kByteOrderMark)
         fInput.bump(kByteOrderMark.size());
   }

   /// Parses up to the end of the next production. Missing: false at the end of the file.
   bool ParseProduction()
   {
      fState.Begin();
      try {
         peg::parse<NGrammar::TSkip, peg::nothing, NGrammar::TControl>(fInput);
         if (fInput.empty())
            return false;
         peg::parse<NGrammar::TProduction, TAction, NGrammar::TControl>(fInput, fState);
      } catch (const peg::parse_error& error) {
         FailAt(error);
      }
      return true;
   }

   const TState& GetState() const { return fState; }

   const std::shared_ptr<TSourceText>& GetSource() const { return fSource; }

private:
   [[noreturn]] void FailAt(const peg::parse_error& error) const
   {
      const std::string expected(error.message());
      const std::size_t offset = error.positions().front().byte;
      // An open text or comment swallows all that follows: what helps is where it begins.
      const bool isOpenText = expected == NGrammar::kExpected<NGrammar::TExpectCloseQuote>;
      const bool isOpen = isOpenText || expected == NGrammar::kExpected<NGrammar::TExpectComment>;
      const std::size_t end = fSource->GetText().size();
      fSource->Fail(isOpenText ? fState.fTextMark : offset,
                    fmt::format("expected {}, found {}", expected,
                                DescribeFound(fSource->GetText(), isOpen ? end : offset)));
   }

   std::shared_ptr<TSourceText> fSource;
   TInput fInput;
   TState fState;
};

/// The stack of open files: an included file is read where it is included.
class TMOFReading
{
public:
   TMOFReading(TCollectionBuilder& builder, const TIncludeOpener& openInclude)
      : fBuilder(builder), fOpenInclude(openInclude), fDraft(builder.GetLimits())
   {}

   void Read(std::shared_ptr<TSourceText> source)
   {
      Open(std::move(source));
      while (!fFiles.empty()) {
         TOpenFile& file = *fFiles.back();
         if (file.ParseProduction())
            Take(file);
         else
            fFiles.pop_back();
      }
   }

private:
   void Open(std::shared_ptr<TSourceText> source)
   {
      source->RequireUtf8();
      fFiles.push_back(std::make_unique<TOpenFile>(std::move(source), fDraft));
   }

   void Take(const TOpenFile& file)
   {
      const TState& state = file.GetState();
      const TSourceText& source = *file.GetSource();
      switch (state.fKind) {
         case TState::kClass:
            fBuilder.AddClass(fDraft, source);
            break;
         case TState::kInstance:
            fDraft.fSharedText = file.GetSource();
            fBuilder.AddInstance(fDraft, source);
            break;
         case TState::kQualifier:
            fBuilder.DeclareQualifier(state.fMemberName,
                                      RequireType(source, state.fTypeMark, state.fTypeName));
            break;
         case TState::kInclude:
            Include(source);
            break;
         case TState::kNothing:
            break;
      }
   }

   void Include(const TSource& including)
   {
      const TValueDraft name = fDraft.fValues.front();
      const std::size_t limit = fBuilder.GetLimits().fIncludeDepth;
      if (fFiles.size() > limit)
         including.Fail(
            name.fMark,
            fmt::format("expected at most {} files inside each other, found more", limit));
      std::shared_ptr<TSourceText> included = fOpenInclude(including, name.fMark, name.fText);
      if (included)
         Open(std::move(included));
   }

   TCollectionBuilder& fBuilder;
   const TIncludeOpener& fOpenInclude;
   TObjectDraft fDraft;
   std::vector<std::unique_ptr<TOpenFile>> fFiles;
};

}  // namespace

void ReadMOF(std::shared_ptr<TSourceText> source, TCollectionBuilder& builder,
             const TIncludeOpener& openInclude)
{
   TMOFReading(builder, openInclude).Read(std::move(source));
}

}  // namespace NZANQSX20
