#include "readers/MOFReader.h"

#include <utility>
#include <vector>

#include <fmt/format.h>

#include "readers/MOFActions.h"

namespace NZANQSX20 {

namespace {

namespace NGrammar = NMOFGrammar;
namespace peg = tao::pegtl;

using TInput = peg::memory_input<peg::tracking_mode::lazy, peg::eol::lf, std::string>;

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
         peg::parse<NGrammar::TProduction, NGrammar::TAction, NGrammar::TControl>(fInput, fState);
      } catch (const peg::parse_error& error) {
         FailAt(error);
      }
      return true;
   }

   const NGrammar::TState& GetState() const { return fState; }

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
   NGrammar::TState fState;
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
      const NGrammar::TState& state = file.GetState();
      const TSourceText& source = *file.GetSource();
      switch (state.fKind) {
         case NGrammar::TState::kClass:
            fBuilder.AddClass(fDraft, source);
            break;
         case NGrammar::TState::kInstance:
            fDraft.fSharedText = file.GetSource();
            fBuilder.AddInstance(fDraft, source);
            break;
         case NGrammar::TState::kQualifier:
            fBuilder.DeclareQualifier(
               state.fMemberName, NGrammar::RequireType(source, state.fTypeMark, state.fTypeName));
            break;
         case NGrammar::TState::kInclude:
            Include(source);
            break;
         case NGrammar::TState::kNothing:
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
