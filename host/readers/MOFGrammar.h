#pragma once

#include <cstddef>
#include <string_view>

#include <tao/pegtl.hpp>

#include "readers/SkipPlainText.h"

/// The Managed Object Format as DSP0004 2.x writes it. Nothing in it nests, so no rule calls
/// itself.
///
/// Shape: a rule named TExpect... stands where nothing else may follow, and its line in the table
///        at the end is the message. Any other rule may fail, and another is tried.
namespace NZANQSX20::NMOFGrammar {

namespace peg = tao::pegtl;

constexpr bool IsNameStart(unsigned char byte)
{
   return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' ||
          byte >= 0x80;
}

constexpr bool IsNameByte(unsigned char byte)
{
   return IsNameStart(byte) || (byte >= '0' && byte <= '9');
}

constexpr bool IsNumberByte(unsigned char byte)
{
   return IsNameByte(byte) || byte == '.';
}

constexpr bool IsBlank(unsigned char byte)
{
   return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

constexpr bool IsLineByte(unsigned char byte)
{
   return byte != '\n';
}

constexpr bool IsCharacterByte(unsigned char byte)
{
   return byte != '\'' && byte != '\\' && byte != '\n';
}

/// One byte of which Test holds.
template <bool (*Test)(unsigned char)>
struct TByte
{
   using rule_t = TByte;
   using subs_t = peg::empty_list;

   template <typename ParseInput>
   static bool match(ParseInput& in)
   {
      if (in.empty() || !Test(static_cast<unsigned char>(*in.current())))
         return false;
      in.bump();
      return true;
   }
};

/// A byte of which First holds and all that follow of which Test holds.
template <bool (*First)(unsigned char), bool (*Test)(unsigned char)>
struct TRun
{
   using rule_t = TRun;
   using subs_t = peg::empty_list;

   template <typename ParseInput>
   static bool match(ParseInput& in)
   {
      const char* end = in.current();
      if (end == in.end() || !First(static_cast<unsigned char>(*end)))
         return false;
      ++end;
      while (end != in.end() && Test(static_cast<unsigned char>(*end)))
         ++end;
      in.bump(static_cast<std::size_t>(end - in.current()));
      return true;
   }
};

/// What stands for itself in a text.
struct TTextRun
{
   using rule_t = TTextRun;
   using subs_t = peg::empty_list;

   template <typename ParseInput>
   static bool match(ParseInput& in)
   {
      const char* const end = FindQuoteOrBackslash(in.current(), in.end());
      if (end == in.current())
         return false;
      in.bump(static_cast<std::size_t>(end - in.current()));
      return true;
   }
};

/// All from "/*" to "*/", nothing where it does not end.
struct TWholeComment
{
   using rule_t = TWholeComment;
   using subs_t = peg::empty_list;

   template <typename ParseInput>
   static bool match(ParseInput& in)
   {
      const std::string_view rest(in.current(), in.size());
      const std::size_t end = rest.find("*/", 2);
      if (end != std::string_view::npos)
         in.bump(end + 2);
      return end != std::string_view::npos;
   }
};

// clang-format off

// Blanks, comments, names and punctuation.

struct TExpectComment : TWholeComment {};
struct TBlockComment : peg::seq<peg::at<peg::string<'/', '*'>>, peg::must<TExpectComment>> {};
struct TLineComment : peg::seq<peg::two<'/'>, peg::opt<TRun<IsLineByte, IsLineByte>>> {};
struct TSkip : peg::star<peg::sor<TRun<IsBlank, IsBlank>, TLineComment, TBlockComment>> {};

struct TName : TRun<IsNameStart, IsNameByte> {};

template <char... Letters>
struct TKeyword : peg::seq<peg::istring<Letters...>, peg::not_at<TByte<IsNameByte>>> {};

template <char Mark>
struct TMark : peg::seq<peg::one<Mark>, TSkip> {};

struct TExpectOpenBrace : TMark<'{'> {};
struct TExpectOpenParenthesis : TMark<'('> {};
struct TExpectCloseParenthesis : TMark<')'> {};
struct TExpectCloseBracket : TMark<']'> {};
struct TExpectColon : TMark<':'> {};
struct TExpectEquals : TMark<'='> {};
struct TExpectSemicolon : TMark<';'> {};

// Values. A text is one or more literals side by side.

struct TExpectEscape : peg::sor<peg::one<'b', 't', 'n', 'f', 'r', '"', '\'', '\\'>,
                                peg::seq<peg::one<'x', 'X'>, peg::xdigit, peg::rep_opt<3, peg::xdigit>>> {};
struct TEscape : peg::seq<peg::one<'\\'>, peg::must<TExpectEscape>> {};

struct TTextContent : peg::star<peg::sor<TTextRun, TEscape>> {};
struct TOpenQuote : peg::one<'"'> {};
struct TExpectCloseQuote : peg::one<'"'> {};
struct TTextPart : peg::seq<TOpenQuote, TTextContent, peg::must<TExpectCloseQuote>> {};
struct TText : peg::seq<TTextPart, peg::star<TSkip, TTextPart>> {};

struct TCharacterContent : peg::star<peg::sor<TRun<IsCharacterByte, IsCharacterByte>, TEscape>> {};
struct TExpectCloseApostrophe : peg::one<'\''> {};
struct TCharacter : peg::seq<peg::one<'\''>, TCharacterContent, peg::must<TExpectCloseApostrophe>> {};

struct TSign : peg::opt<peg::one<'+', '-'>> {};
struct TNumberEnd : peg::not_at<TByte<IsNumberByte>> {};
struct THexadecimal : peg::seq<peg::one<'0'>, peg::one<'x', 'X'>, peg::plus<peg::xdigit>> {};
struct TBinary : peg::seq<peg::plus<peg::one<'0', '1'>>, peg::one<'b', 'B'>> {};
struct TOctal : peg::seq<peg::one<'0'>, peg::star<peg::range<'0', '7'>>> {};
struct TDecimal : peg::seq<peg::range<'1', '9'>, peg::star<peg::digit>> {};
struct TInteger : peg::seq<TSign, peg::sor<peg::seq<TDecimal, TNumberEnd>, peg::seq<THexadecimal, TNumberEnd>,
                                           peg::seq<TBinary, TNumberEnd>, peg::seq<TOctal, TNumberEnd>>> {};

struct TExponent : peg::seq<peg::one<'e', 'E'>, TSign, peg::plus<peg::digit>> {};
struct TFraction : peg::seq<peg::star<peg::digit>, peg::one<'.'>, peg::plus<peg::digit>, peg::opt<TExponent>> {};
struct TReal : peg::seq<TSign, peg::sor<TFraction, peg::seq<peg::plus<peg::digit>, TExponent>>, TNumberEnd> {};

struct TBoolean : peg::sor<TKeyword<'t', 'r', 'u', 'e'>, TKeyword<'f', 'a', 'l', 's', 'e'>> {};
struct TNull : TKeyword<'n', 'u', 'l', 'l'> {};
struct TExpectAliasName : TName {};
struct TAlias : peg::seq<peg::one<'$'>, peg::must<TExpectAliasName>> {};

struct TValue : peg::seq<peg::sor<TText, TInteger, TReal, TAlias, TBoolean, TNull, TCharacter>, TSkip> {};
struct TExpectValue : TValue {};

struct TOpenArray : TMark<'{'> {};
struct TExpectArrayEnd : TMark<'}'> {};
struct TArray : peg::seq<TOpenArray, peg::opt<TValue, peg::star<TMark<','>, peg::must<TExpectValue>>>,
                         peg::must<TExpectArrayEnd>> {};

struct TBeginInitializer : peg::success {};
struct TInitializer : peg::seq<TBeginInitializer, peg::sor<TArray, TValue>> {};
struct TExpectInitializer : TInitializer {};

// Qualifiers.

struct TQualifierName : TName {};
struct TQualifierValue : peg::sor<peg::seq<TMark<'('>, peg::must<TExpectInitializer, TExpectCloseParenthesis>>,
                                  peg::seq<peg::at<peg::one<'{'>>, TInitializer>> {};
struct TExpectFlavor : peg::plus<TName, TSkip> {};
struct TQualifier : peg::seq<TQualifierName, TSkip, peg::opt<TQualifierValue>,
                             peg::opt<TMark<':'>, peg::must<TExpectFlavor>>> {};
struct TExpectQualifier : TQualifier {};
struct TExpectQualifiersEnd : TMark<']'> {};
struct TQualifiers : peg::seq<TMark<'['>, peg::must<TExpectQualifier>,
                              peg::star<TMark<','>, peg::must<TExpectQualifier>>,
                              peg::must<TExpectQualifiersEnd>> {};

// Members of a class. "ref" is a keyword only before a name, so that a property may be called so.

struct TTypeName : TName {};
struct TReferenceMark : peg::seq<TKeyword<'r', 'e', 'f'>, TSkip, peg::at<TName>> {};
struct TArrayMark : peg::seq<TMark<'['>, peg::star<peg::digit>, TSkip, peg::must<TExpectCloseBracket>> {};
struct TParameterName : TName {};
struct TExpectParameterName : TParameterName {};
struct TParameter : peg::seq<peg::opt<TQualifiers>, TName, TSkip, peg::opt<TReferenceMark>,
                             peg::must<TExpectParameterName>, TSkip, peg::opt<TArrayMark>> {};
struct TExpectParameter : TParameter {};
struct TParameters : peg::opt<TParameter, peg::star<TMark<','>, peg::must<TExpectParameter>>> {};
struct TExpectParametersEnd : TMark<')'> {};
struct TMethod : peg::seq<TMark<'('>, peg::disable<TParameters>, peg::must<TExpectParametersEnd>> {};
struct TDefault : peg::seq<TMark<'='>, peg::must<TExpectInitializer>> {};
struct TProperty : peg::seq<peg::opt<TArrayMark>, peg::opt<TDefault>> {};
struct TExpectMemberName : TName {};
struct TMember : peg::seq<peg::opt<TQualifiers>, TTypeName, TSkip, peg::opt<TReferenceMark>,
                          peg::must<TExpectMemberName>, TSkip, peg::sor<TMethod, TProperty>,
                          peg::must<TExpectSemicolon>> {};
struct TExpectMember : TMember {};

// What stands at the top level of a file.

struct TExpectDollar : peg::one<'$'> {};
struct TExpectAliasOfObject : TName {};
struct TAliasOfObject : peg::seq<TKeyword<'a', 's'>, TSkip, peg::must<TExpectDollar, TExpectAliasOfObject>, TSkip> {};

struct TExpectClassName : TName {};
struct TExpectSuperclass : TName {};
struct TSuperclass : peg::seq<TMark<':'>, peg::must<TExpectSuperclass>, TSkip> {};
struct TClass : peg::seq<TKeyword<'c', 'l', 'a', 's', 's'>, TSkip, peg::must<TExpectClassName>, TSkip,
                         peg::opt<peg::disable<TAliasOfObject>>, peg::opt<TSuperclass>,
                         peg::must<TExpectOpenBrace>, peg::until<TMark<'}'>, peg::must<TExpectMember>>,
                         peg::must<TExpectSemicolon>> {};

struct TExpectOf : TKeyword<'o', 'f'> {};
struct TExpectInstanceClass : TName {};
struct TInstancePropertyName : TName {};
struct TInstanceProperty : peg::seq<peg::opt<peg::disable<TQualifiers>>, TInstancePropertyName, TSkip,
                                    peg::must<TExpectEquals, TExpectInitializer>, peg::must<TExpectSemicolon>> {};
struct TExpectInstanceProperty : TInstanceProperty {};
struct TInstance : peg::seq<TKeyword<'i', 'n', 's', 't', 'a', 'n', 'c', 'e'>, TSkip, peg::must<TExpectOf>, TSkip,
                            peg::must<TExpectInstanceClass>, TSkip, peg::opt<TAliasOfObject>,
                            peg::must<TExpectOpenBrace>,
                            peg::until<TMark<'}'>, peg::must<TExpectInstanceProperty>>,
                            peg::must<TExpectSemicolon>> {};

struct TExpectQualifierToDeclare : TName {};
struct TExpectQualifierType : TName {};
struct TExpectScopeOrFlavor : peg::seq<peg::sor<TKeyword<'s', 'c', 'o', 'p', 'e'>, TKeyword<'f', 'l', 'a', 'v', 'o', 'r'>>, TSkip> {};
struct TExpectScopeName : peg::seq<TName, TSkip> {};
struct TScopeOrFlavor : peg::seq<peg::must<TExpectScopeOrFlavor, TExpectOpenParenthesis, TExpectScopeName>,
                                 peg::star<TMark<','>, peg::must<TExpectScopeName>>,
                                 peg::must<TExpectCloseParenthesis>> {};
struct TQualifierDeclaration : peg::seq<TKeyword<'q', 'u', 'a', 'l', 'i', 'f', 'i', 'e', 'r'>, TSkip,
                                        peg::must<TExpectQualifierToDeclare>, TSkip, peg::must<TExpectColon>,
                                        peg::must<TExpectQualifierType>, TSkip, peg::opt<TArrayMark>,
                                        peg::disable<peg::opt<TDefault>>, peg::star<TMark<','>, TScopeOrFlavor>,
                                        peg::must<TExpectSemicolon>> {};

struct TExpectPragma : TKeyword<'p', 'r', 'a', 'g', 'm', 'a'> {};
struct TExpectPragmaName : TName {};
struct TExpectPragmaText : peg::seq<TBeginInitializer, TText, TSkip> {};
struct TPragma : peg::seq<TMark<'#'>, peg::must<TExpectPragma>, TSkip, peg::must<TExpectPragmaName>, TSkip,
                          peg::must<TExpectOpenParenthesis, TExpectPragmaText, TExpectCloseParenthesis>> {};

struct TDeclaration : peg::sor<TInstance, TClass> {};
struct TExpectDeclaration : TDeclaration {};
struct TExpectProduction : peg::sor<TDeclaration, peg::seq<TQualifiers, peg::must<TExpectDeclaration>>, TPragma,
                                    TQualifierDeclaration> {};
struct TProduction : peg::must<TExpectProduction> {};

// What was expected where a rule failed.

template <typename Rule> inline constexpr const char* kExpected = nullptr;

template <> inline constexpr const char* kExpected<TExpectComment> = "'*/' at the end of the comment that begins here";
template <> inline constexpr const char* kExpected<TExpectOpenBrace> = "'{'";
template <> inline constexpr const char* kExpected<TExpectOpenParenthesis> = "'('";
template <> inline constexpr const char* kExpected<TExpectCloseParenthesis> = "')'";
template <> inline constexpr const char* kExpected<TExpectCloseBracket> = "']'";
template <> inline constexpr const char* kExpected<TExpectColon> = "':'";
template <> inline constexpr const char* kExpected<TExpectEquals> = "'=' after the property name";
template <> inline constexpr const char* kExpected<TExpectSemicolon> = "';'";
template <> inline constexpr const char* kExpected<TExpectEscape> = "one of b t n f r \" ' \\ or x and up to four hexadecimal digits after '\\'";
template <> inline constexpr const char* kExpected<TExpectCloseQuote> = "'\"' at the end of the text that begins here";
template <> inline constexpr const char* kExpected<TExpectCloseApostrophe> = "one character and \"'\"";
template <> inline constexpr const char* kExpected<TExpectAliasName> = "the name of an alias after '$'";
template <> inline constexpr const char* kExpected<TExpectValue> = "a value";
template <> inline constexpr const char* kExpected<TExpectArrayEnd> = "a value, ',' or '}'";
template <> inline constexpr const char* kExpected<TExpectInitializer> = "a value or '{'";
template <> inline constexpr const char* kExpected<TExpectFlavor> = "a flavor";
template <> inline constexpr const char* kExpected<TExpectQualifier> = "a qualifier";
template <> inline constexpr const char* kExpected<TExpectQualifiersEnd> = "',' or ']' after the qualifier";
template <> inline constexpr const char* kExpected<TExpectParameterName> = "the name of a parameter";
template <> inline constexpr const char* kExpected<TExpectParameter> = "a parameter";
template <> inline constexpr const char* kExpected<TExpectParametersEnd> = "a parameter, ',' or ')'";
template <> inline constexpr const char* kExpected<TExpectMemberName> = "the name of a property or method";
template <> inline constexpr const char* kExpected<TExpectMember> = "a property, a method or '}'";
template <> inline constexpr const char* kExpected<TExpectDollar> = "'$' and the name of an alias";
template <> inline constexpr const char* kExpected<TExpectAliasOfObject> = "the name of an alias after '$'";
template <> inline constexpr const char* kExpected<TExpectClassName> = "the name of a class";
template <> inline constexpr const char* kExpected<TExpectSuperclass> = "the name of the superclass";
template <> inline constexpr const char* kExpected<TExpectOf> = "'of' after 'instance'";
template <> inline constexpr const char* kExpected<TExpectInstanceClass> = "the name of the instance's class";
template <> inline constexpr const char* kExpected<TExpectInstanceProperty> = "a property or '}'";
template <> inline constexpr const char* kExpected<TExpectQualifierToDeclare> = "the name of a qualifier";
template <> inline constexpr const char* kExpected<TExpectQualifierType> = "the type of the qualifier";
template <> inline constexpr const char* kExpected<TExpectScopeOrFlavor> = "'scope' or 'flavor'";
template <> inline constexpr const char* kExpected<TExpectScopeName> = "the name of a scope or flavor";
template <> inline constexpr const char* kExpected<TExpectPragma> = "'pragma' after '#'";
template <> inline constexpr const char* kExpected<TExpectPragmaName> = "the name of a pragma";
template <> inline constexpr const char* kExpected<TExpectPragmaText> = "a text in quotes";
template <> inline constexpr const char* kExpected<TExpectDeclaration> = "'class' or 'instance of' after the qualifiers";
template <> inline constexpr const char* kExpected<TExpectProduction> = "'class', 'instance of', 'qualifier' or '#pragma'";

// clang-format on

struct TExpectations
{
   template <typename Rule>
   static constexpr const char* message = kExpected<Rule>;
};

template <typename Rule>
using TControl = typename peg::must_if<TExpectations>::template control<Rule>;

}  // namespace NZANQSX20::NMOFGrammar
