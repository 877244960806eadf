#include "readers/MOFReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/DescribeStore.h"
#include "support/MakeStore.h"

namespace NZANQSX20 {

namespace {

using testing::HasSubstr;

/// The message of the error that reading the text ends with, "" when there is none.
std::string GetError(const std::string& mof, const TReadLimits& limits = {})
{
   try {
      LoadCollectionText("a.mof", mof, limits);
      return {};
   } catch (const TReadError& error) {
      return error.what();
   }
}

const char* const kEveryType = R"(
   class T {
      boolean B; char16 C; uint8 U8; sint8 S8; uint16 U16; sint16 S16; uint32 U32; sint32 S32;
      uint64 U64; sint64 S64; real32 R32; real64 R64; string S; datetime D; T ref Link;
      uint8 U8s[]; string Ss[3]; T ref Links[];
   };
)";

/// The property of the one instance of T that sets it to the literal: "type {text}".
std::string ReadLiteral(const std::string& name, const std::string& literal)
{
   const auto store =
      MakeStore(kEveryType + ("instance of T { " + name + " = " + literal + "; };"));
   const std::string text = DescribeInstances(store);
   const std::size_t start = text.find("   " + name + " ") + name.size() + 4;
   return text.substr(start, text.find("\n   ", start) - start);
}

TEST(MOFReader, ReadsLiterals)
{
   const struct
   {
      const char* fName;
      const char* fLiteral;
      const char* fExpected;
   } cases[] = {
      {"U8", "255", "3 {255}"},
      {"U8", "0xfF", "3 {255}"},
      {"U8", "0377", "3 {255}"},
      {"U8", "11111111b", "3 {255}"},
      {"U8", "+0", "3 {0}"},
      {"S8", "-128", "4 {-128}"},
      {"S8", "-10000000B", "4 {-128}"},
      {"U64", "18446744073709551615", "9 {18446744073709551615}"},
      {"S64", "-9223372036854775808", "10 {-9223372036854775808}"},
      {"S64", "-0x8000000000000000", "10 {-9223372036854775808}"},
      {"R64", "-1.5E3", "12 {-1500}"},
      {"R64", ".25", "12 {0.25}"},
      {"R32", "3", "11 {3}"},
      {"B", "True", "1 {TRUE}"},
      {"B", "NULL", "1 null"},
      {"C", "'a'", "2 {a}"},
      {"C", R"('\x20AC')", "2 {\u20AC}"},
      {"C", R"('\'')", "2 {'}"},
      {"C", "65", "2 {A}"},
      {"S", R"("a\"b\\c\n\x41\X263A")", "13 {a\"b\\c\nA\u263A}"},
      {"S", R"("\xD83D\xDE00")", "13 {\U0001F600}"},
      {"S", "\"one \" // a comment\n \"two\" /* and */ \" three\"", "13 {one two three}"},
      {"S", "\"\"", "13 {}"},
      {"S", "\"//no comment /* either\"", "13 {//no comment /* either}"},
      {"D", R"("20090102030405.000006+060")", "14 {20090102030405.000006+060}"},
      {"D", R"("00000003040506.000007:000")", "14 {00000003040506.000007:000}"},
      {"U8s", "{}", "3[] {}"},
      {"U8s", "{ 1, 0x2,3 }", "3[] {1,2,3}"},
      {"U8s", "null", "3[] null"},
      {"Ss", R"({"a" "b", "c"})", "13[] {ab,c}"},
      {"Link", R"("//h/root/cimv2:T.B=\"2\",A=1")", "15 {T.A=1,B=\"2\"}"},
   };

   for (const auto& each : cases)
      EXPECT_EQ(ReadLiteral(each.fName, each.fLiteral), each.fExpected)
         << each.fName << " = " << each.fLiteral;
}

TEST(MOFReader, NamesPlaceAndExpectation)
{
   const struct
   {
      const char* fMof;
      const char* fError;
   } cases[] = {
      {"class A {", "a.mof:1:10: expected a property, a method or '}', found the end of the file"},
      {"class A { string S }", "a.mof:1:20: expected ';', found '}'"},
      {"class A {}\ninstance of A {};", "a.mof:2:1: expected ';', found 'instance'"},
      {"class A { A S; };", "a.mof:1:11: expected a type or a class before 'ref', found 'A'"},
      {"class { };", "a.mof:1:7: expected the name of a class, found '{'"},
      {"clas",
       "a.mof:1:1: expected 'class', 'instance of', 'qualifier' or '#pragma', found 'clas'"},
      {"[Key] string A;",
       "a.mof:1:7: expected 'class' or 'instance of' after the qualifiers, found 'string'"},
      {"class A { string S = ; };", "a.mof:1:22: expected a value or '{', found ';'"},
      {"class A { string S[ = 1; };", "a.mof:1:21: expected ']', found '='"},
      {"class A { uint8 S = 08; };", "a.mof:1:21: expected a value or '{', found '08'"},
      {"class A { string S = \"\u00e4\n\\q\"; };",
       "a.mof:2:2: expected one of b t n f r \" ' \\ or x and up to four hexadecimal digits after "
       "'\\', found 'q'"},
      {"class A { string S =\n  \"abc; };",
       "a.mof:2:3: expected '\"' at the end of the text that begins here, found the end of the "
       "file"},
      {"/* open",
       "a.mof:1:1: expected '*/' at the end of the comment that begins here, found the end of the "
       "file"},
      {"\xEF\xBB\xBFinstance A {};", "a.mof:1:10: expected 'of' after 'instance', found 'A'"},
      {"// \u00e4\xFF", "a.mof:1:5: expected UTF-8, found the byte 0xFF"},
      {"class A { string S = \"\\xD800\"; };",
       "a.mof:1:23: expected both halves of a surrogate pair, found '\\xD800'"},
      {"instance of B { S = 1; };", "a.mof:1:13: expected a declared class, found 'B'"},
      {"class A { }; instance of A { S = 1; };", "a.mof:1:30: expected a property of A, found 'S'"},
      {"class A { string S; }; instance of A { S = \"a\"; S = \"b\"; };",
       "a.mof:1:49: expected each property once, found 'S' again"},
      {"class A { string S; }; instance of A as $x { }; instance of A as $x { };",
       "a.mof:1:67: expected an alias that is free, found $x, which names another instance"},
      {"class A { A ref R; }; instance of A { R = $x; };",
       "a.mof:1:44: expected the alias of an instance, found $x, which none has"},
      {"class A : B { }; class B : A { };",
       "a.mof:1:24: expected a superclass of B that does not derive from it, found 'A'"},
      {"#pragma include (\"b.mof\")",
       "a.mof:1:18: expected no include in a text that lies in no folder, found one"},
   };

   for (const auto& each : cases)
      EXPECT_EQ(GetError(each.fMof), each.fError) << each.fMof;
}

TEST(MOFReader, RefusesValuesThatAreNotOfTheType)
{
   const struct
   {
      const char* fName;
      const char* fLiteral;
      const char* fError;
   } cases[] = {
      {"U8", "256", "expected a uint8 (0 to 255), found the number '256'"},
      {"U8", "-1", "expected a uint8 (0 to 255), found the number '-1'"},
      {"S8", "128", "expected a sint8 (-128 to 127), found the number '128'"},
      {"U64", "18446744073709551616", "found the number '18446744073709551616'"},
      {"U16", "1.0", "found the number '1.0'"},
      {"U16", "\"1\"", "found the text '1'"},
      {"S", "1", "expected a text, found the number '1'"},
      {"B", "1", "expected a boolean (true or false), found the number '1'"},
      {"R32", "1e39", "expected a real32, found the number '1e39'"},
      {"C", "'ab'", "expected a char16 (one character), found the character 'ab'"},
      {"D", "\"20090230000000.000000+000\"", "expected a datetime"},
      {"Link", "\"nonsense\"", "expected a reference (an alias or an object path), found the text"},
      {"U8s", "1", "expected a list for U8s, found one value"},
      {"U8", "{1}", "expected one value for U8, found a list"},
   };

   for (const auto& each : cases) {
      const std::string text = std::string("instance of T { ") + each.fName + " = " + each.fLiteral;
      EXPECT_THAT(GetError(kEveryType + text + "; };"), HasSubstr(each.fError)) << text;
   }
}

TEST(MOFReader, ReadsDeclarations)
{
   const auto store = MakeStore(R"(
      #pragma locale ("en_US")
      Qualifier MaxLen : uint32 = null, Scope(property, method), Flavor(EnableOverride);
      Qualifier Tags : string[], Scope(any);
      [Description("An " "A"), Version("1.0"): Translatable ToSubclass, Tags{"x", "y"}]
      class A : B {
         [Key, MaxLen(5), Override] string Name = "none";
         uint32 ref;                // no keyword before ';'
         A REF Ref;
         uint32 Reset([In, Tags{"z"}] string Why[], B ref Who);
         uint16 List[] = {1, 2};
      };
      CLASS B { };)");
   EXPECT_EQ(DescribeStore(store),
             "class A : B [Description 13 {An A}] [Version 13 {1.0}] [Tags 13[] {x,y}]\n"
             "   Name 13 = 13 {none} [Key 1 {TRUE}] [MaxLen 7 {5}] [Override 1 {TRUE}]\n"
             "   ref 7 = 7 null\n"
             "   Ref 15 A= 15 null\n"
             "   List 5[] = 5[] {1,2}\n"
             "class B\n");
}

TEST(MOFReader, OrderOfDeclarationsAndAliasesDoesNotMatter)
{
   const std::string classes =
      "class Base { [Key] string Name; }; class Disk : Base { uint64 Size; };"
      "class Uses { Disk ref One; Disk ref More[]; };";
   const std::string instances = R"(
      instance of Uses { One = $b; More = {$a, "Disk.Name=\"b\"", $b}; };
      instance of Disk as $a { Name = "a"; Size = 1; };
      instance of Disk as $b { Size = 2; Name = "b"; };)";
   const std::string expected = DescribeStore(MakeStore(classes + instances));
   EXPECT_THAT(expected,
               HasSubstr("   One 15 {Disk.Name=\"b\"}\n"
                         "   More 15[] {Disk.Name=\"a\",Disk.Name=\"b\",Disk.Name=\"b\"}\n"));
   EXPECT_EQ(DescribeStore(MakeStore(instances + classes)), expected);
}

TEST(MOFReader, WarnsOfWhatIsOddAndReadsOn)
{
   const TCollection collection = LoadCollectionText("a.mof", R"(
      class A : Missing { [Key] string Name; };
      class A { };
      instance of A { Name = "n"; };
      instance of A { Name = "n"; };
   )");
   EXPECT_THAT(
      collection.fWarnings,
      testing::ElementsAre(
         "a.mof:3:13: warning: the class A is declared again; the first declaration counts",
         "a.mof:2:13: warning: the superclass Missing is not declared; it counts as an empty class",
         HasSubstr("several instances of A have one path, such as A.Name=\"n\"")));
   const TReadCounts& counts = collection.fCounts;
   EXPECT_EQ(counts.fClassesRead, counts.fClassesStored + counts.fClassesRejected);
   EXPECT_EQ(counts.fInstancesRead, 2U);
   EXPECT_EQ(collection.fStore->CountInstances(), counts.fInstancesStored);
}

TEST(MOFReader, HoldsItsLimits)
{
   const struct
   {
      std::size_t TReadLimits::*fLimit;
      const char* fName;
   } cases[] = {
      {&TReadLimits::fTextBytes, "bytes in one text"},
      {&TReadLimits::fNameBytes, "bytes in one name"},
      {&TReadLimits::fProperties, "properties of one class or instance"},
      {&TReadLimits::fArrayItems, "items in one array"},
      {&TReadLimits::fClasses, "classes"},
      {&TReadLimits::fInstances, "instances"},
      {&TReadLimits::fDepth, "classes above each other"},
   };

   const std::string mof = R"(
      class Abcd { string Efgh; uint8 B[]; uint8 C; uint8 D; };
      class B : Abcd { }; class C : B { }; class D : C { };
      instance of Abcd { Efgh = "1234"; B = {1, 2, 3, 4}; }; instance of B { };
      instance of B { }; instance of B { };)";
   for (const auto& each : cases) {
      TReadLimits limits;
      limits.*each.fLimit = 4;
      EXPECT_EQ(GetError(mof, limits), "") << each.fName;
      limits.*each.fLimit = 3;
      EXPECT_THAT(GetError(mof, limits),
                  HasSubstr(std::string("expected at most 3 ") + each.fName + ", found more"));
   }
   TReadLimits flat;
   flat.fDepth = 3;
   EXPECT_THAT(GetError("class A : B { }; class B : C { };\nclass C : D { }; class D { };", flat),
               HasSubstr(":1:7: expected at most 3 classes above"))
      << "before their superclasses";
}

}  // namespace

}  // namespace NZANQSX20
