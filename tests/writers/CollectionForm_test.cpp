#include "writers/CollectionForm.h"

#include <gmock/gmock.h>

#include <boost/make_shared.hpp>
#include <random>

#include "TCIMReference.h"
#include "readers/TReadError.h"
#include "support/DescribeStore.h"
#include "support/MakeStore.h"
#include "writers/TWriteError.h"

using namespace NZANQSX20;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using TType = TCIMValue::TCIMType;
using TStore = boost::shared_ptr<TMemoryStore>;

const std::vector<std::string> kEndings = {"x.mof", "x.xml", "x.mof.gz", "x.xml.zst"};

struct TWritten
{
   std::string fText;
   std::vector<std::string> fNotes;
};

TWritten WriteAs(const std::string& name, TMemoryStore& store)
{
   TCollectionForm form;
   EXPECT_TRUE(FindCollectionForm(name, form));
   TWritten written;
   TTextBytes bytes(written.fText);
   written.fNotes = WriteCollection(store, form, bytes);
   return written;
}

TStore WriteAndRead(const std::string& name, TMemoryStore& store)
{
   return LoadCollectionText("written", WriteAs(name, store).fText).fStore;
}

/// Makes a store that holds whatever a store can hold, the same for the same seed.
class TGenerator
{
public:
   explicit TGenerator(unsigned seed) : fRandom(seed), fStore(boost::make_shared<TMemoryStore>()) {}

   TStore Make()
   {
      const unsigned classes = 3 + Pick(5);
      for (unsigned i = 0; i < classes; ++i)
         Declare(i);
      const unsigned instances = 5 + Pick(30);
      for (unsigned i = 0; i < instances; ++i)
         Add();
      return fStore;
   }

private:
   unsigned Pick(unsigned count) { return static_cast<unsigned>(fRandom() % count); }

   std::string MakeText()
   {
      static const std::string kPieces[] = {
         "Fan", "\"",       "\\", "\n", "\r\n", "\t",  "<&>]]>", "ä€𝄞",  "'",           " ",
         "a9",  "\x01\x1F", "$x", "/*", "{};:", "\\n", "NUL",    "true", "\xEF\xBF\xBE"};
      std::string text;
      for (unsigned i = Pick(6); i > 0; --i)
         text += kPieces[Pick(std::size(kPieces))];
      if (Pick(20) == 0)
         text += std::string(1, '\0') + "7";
      return text;
   }

   TCIMValue MakeOne(TCIMValue::ECIMType type)
   {
      static const double kReals[] = {0.0, -0.0, 0.1, 1e300, -5.0, 1.0 / 3, 123456789.0};
      TCIMDateTime dateTime;
      switch (type) {
         case TType::kString:
            return TCIMValue(MakeText());
         case TType::kDateTime:
            TCIMDateTime::Parse(
               Pick(2) == 0 ? "20090102030405.00****-060" : "00000003040506.000000:000", dateTime);
            return TCIMValue(dateTime);
         case TType::kReal32:
         case TType::kReal64:
            return TCIMValue::Real(type, kReals[Pick(type == TType::kReal32 ? 3 : 7)]);
         case TType::kSInt8:
         case TType::kSInt16:
         case TType::kSInt32:
         case TType::kSInt64:
            return TCIMValue::Signed(type, static_cast<std::int64_t>(fRandom()));
         case TType::kReference:
            return TCIMValue(
               TCIMReference(nullptr, "C0.Key=\"" + std::to_string(Pick(9)) + "\"", {}));
         case TType::kChar16: {
            static const unsigned kCharacters[] = {0, 'a', '\r', 0x20AC, 0xD800, 0xFFFF, '"'};
            return TCIMValue::Unsigned(type, kCharacters[Pick(7)]);
         }
         default:
            return TCIMValue::Unsigned(type, fRandom());
      }
   }

   TCIMValue MakeValue(TCIMValue::ECIMType type, bool isArray)
   {
      if (Pick(5) == 0)
         return TCIMValue::Null(type, isArray);
      if (!isArray)
         return MakeOne(type);
      std::vector<TCIMValue> elements;
      for (unsigned i = Pick(4); i > 0; --i)
         elements.push_back(Pick(4) == 0 ? TCIMValue::Null(type) : MakeOne(type));
      return TCIMValue::Array(type, elements);
   }

   TCIMValue::ECIMType MakeType()
   {
      return static_cast<TCIMValue::ECIMType>(1 + Pick(TType::kReference));
   }

   void Declare(unsigned number)
   {
      TClassDecl declaration;
      declaration.fName = "C" + std::to_string(number);
      // Also one that is declared later, and one that never is.
      if (number > 0 && Pick(2) == 0)
         declaration.fSuperclass =
            Pick(6) == 0 ? "Absent" : "C" + std::to_string(number + Pick(2) - 1);
      if (declaration.fSuperclass == declaration.fName)
         declaration.fSuperclass.clear();
      declaration.fQualifiers = {{"Description", TCIMValue(MakeText())}};
      if (number == 0 || Pick(3) > 0) {
         TPropertyDecl key;
         key.fName = "Key";
         key.fQualifiers = {{"Key", TCIMValue::Boolean(true)}};
         declaration.fProperties.push_back(key);
      }
      for (unsigned i = Pick(8); i > 0; --i) {
         TPropertyDecl property;
         property.fName = "P" + std::to_string(number % 2) + "x" + std::to_string(i);
         property.fType = MakeType();
         property.fIsArray = Pick(3) == 0;
         if (property.fType == TType::kReference && Pick(2) == 0)
            property.fReferenceClass = "C0";
         property.fDefault = MakeValue(property.fType, property.fIsArray);
         property.fQualifiers = {{"Override", TCIMValue::Boolean(false)},
                                 {"Values", MakeValue(TType::kString, true)}};
         if (property.fType == TType::kReference && Pick(2) == 0)
            property.fQualifiers[0] = {"Key", TCIMValue::Boolean(true)};
         if (property.fQualifiers[1].fValue.IsNull())
            property.fQualifiers.pop_back();
         declaration.fProperties.push_back(property);
      }
      fStore->GetSchema().Declare(declaration);
   }

   void Add()
   {
      const auto& classes = fStore->GetSchema().GetClasses();
      TStoredClass& storedClass = *classes[Pick(static_cast<unsigned>(classes.size()))];
      TInstanceDraft draft(storedClass);
      for (const TSlot slot : storedClass.GetDeclaredSlots()) {
         const TPropertyDecl& property = storedClass.FindProperty(slot)->GetDeclaration();
         if (property.fName == "Key")
            draft.Set(slot, fStore->MakeString(std::to_string(fCount++)));
         else if (Pick(3) > 0)
            draft.Set(slot, MakeStored(property));
      }
      fInstances.push_back(&fStore->Add(draft));
   }

   TStoredValue MakeStored(const TPropertyDecl& property)
   {
      const bool isAlias =
         property.fType == TType::kReference && !property.fIsArray && !fInstances.empty();
      if (isAlias)
         return fStore->MakeReference(*fInstances[Pick(static_cast<unsigned>(fInstances.size()))]);
      return fStore->MakeValue(MakeValue(property.fType, property.fIsArray));
   }

   std::mt19937 fRandom;
   TStore fStore;
   std::vector<TStoredInstance*> fInstances;
   unsigned fCount = 0;
};

}  // namespace

TEST(CollectionForm, WhatIsWrittenIsReadAsTheSameStore)
{
   for (unsigned seed = 1; seed <= 150; ++seed) {
      const TStore store = TGenerator(seed).Make();
      const std::string expected = DescribeStoreAndOrder(store);
      for (const std::string& name : kEndings) {
         const TStore read = WriteAndRead(name, *store);
         ASSERT_EQ(expected, DescribeStoreAndOrder(read)) << name << ", seed " << seed;
         ASSERT_EQ(expected, DescribeStoreAndOrder(WriteAndRead("x.mof", *read)))
            << name << ", " << seed;
      }
      // A document type leads to another scanner.
      std::string xml = WriteAs("x.xml", *store).fText;
      xml.insert(xml.find('\n'), "<!DOCTYPE CIM SYSTEM \"CIM.dtd\">");
      ASSERT_EQ(expected, DescribeStoreAndOrder(LoadCollectionText("x.xml", xml).fStore)) << seed;
   }
}

TEST(CollectionForm, PropertiesThatOnlyAnInstanceHasAreDeclaredInMOF)
{
   constexpr const char* kXML = R"(<CIM><DECLARATION><DECLGROUP>
      <VALUE.OBJECT><CLASS NAME="A"/></VALUE.OBJECT>
      <VALUE.OBJECT><CLASS NAME="B" SUPERCLASS="A"/></VALUE.OBJECT>
      <VALUE.OBJECT><INSTANCE CLASSNAME="B"><PROPERTY NAME="X" TYPE="uint8"><VALUE>2</VALUE></PROPERTY>
         </INSTANCE></VALUE.OBJECT>
      <VALUE.OBJECT><INSTANCE CLASSNAME="A"><PROPERTY NAME="X" TYPE="uint8"><VALUE>1</VALUE></PROPERTY>
         <PROPERTY.REFERENCE NAME="Y"><VALUE.REFERENCE><INSTANCENAME CLASSNAME="A"/></VALUE.REFERENCE>
         </PROPERTY.REFERENCE></INSTANCE></VALUE.OBJECT>
      </DECLGROUP></DECLARATION></CIM>)";
   const TStore store = LoadCollectionText("open.xml", kXML).fStore;
   EXPECT_EQ(DescribeStoreAndOrder(store), DescribeStoreAndOrder(WriteAndRead("x.xml", *store)));

   const TWritten written = WriteAs("x.mof", *store);
   EXPECT_THAT(written.fNotes, ElementsAre(HasSubstr("2 properties that only instances have are "
                                                     "declared by their classes, such as A.X")));
   EXPECT_THAT(written.fText, HasSubstr("class A\n{\n   uint8 X;\n   object ref Y;\n};\n"));
   EXPECT_THAT(written.fText, HasSubstr("class B : A\n{\n};\n"));
   EXPECT_EQ(DescribeInstances(store).size() + std::string("   Y 15 null\n").size(),
             DescribeInstances(LoadCollectionText("x.mof", written.fText).fStore).size());
}

TEST(CollectionForm, WhatAFormCannotSayIsAnErrorAndNotLost)
{
   struct TCase
   {
      const char* fXML;
      const char* fReason;
   };

   const TCase cases[] = {
      {R"(<CLASS NAME="A"><PROPERTY NAME="X" TYPE="real64"><VALUE>inf</VALUE></PROPERTY></CLASS>)",
       "A holds a real that is no finite number"},
      {R"(<CLASS NAME="A B"></CLASS>)", "no form for the name \"A B\""},
      {R"(<CLASS NAME="A"><QUALIFIER NAME="Q" TYPE="uint8"><VALUE>1</VALUE></QUALIFIER>
          <PROPERTY NAME="X" TYPE="string"><QUALIFIER NAME="Q" TYPE="string"><VALUE>1</VALUE>
          </QUALIFIER></PROPERTY></CLASS>)",
       "the qualifier Q of A has two types"},
   };
   for (const TCase& each : cases) {
      const TStore store =
         LoadCollectionText("a.xml", "<CIM><DECLARATION><DECLGROUP><VALUE.OBJECT>" +
                                        std::string(each.fXML) +
                                        "</VALUE.OBJECT></DECLGROUP></DECLARATION></CIM>")
            .fStore;
      EXPECT_EQ(DescribeStoreAndOrder(store), DescribeStoreAndOrder(WriteAndRead("x.xml", *store)));
      try {
         WriteAs("x.mof", *store);
         FAIL() << each.fReason;
      } catch (const TWriteError& failure) {
         EXPECT_THAT(failure.what(), HasSubstr(each.fReason));
      }
   }
}

TEST(CollectionForm, BytesThatAreNoUtf8BecomeTheReplacementCharacter)
{
   const TStore store = MakeStore("class A { string X; }; instance of A { X = NULL; };");
   TStoredClass& a = *store->GetSchema().Find("A");
   store->Set(*a.GetInstances().front(), a.GetSlot("X"), store->MakeString("a\xFF\xC3z"));
   for (const std::string& name : kEndings)
      EXPECT_THAT(DescribeStoreAndOrder(WriteAndRead(name, *store)),
                  HasSubstr("   X 13 {a\xEF\xBF\xBD\xEF\xBF\xBDz}\n"));
}

TEST(CollectionForm, TheNumberOfACharacterInXMLIsOneThatXMLHasNoFormFor)
{
   for (const char* number : {"41", "D800", "zz", ""}) {
      const std::string xml = std::string(R"(<CIM><DECLARATION><DECLGROUP><VALUE.OBJECT><INSTANCE
         CLASSNAME="A"><PROPERTY NAME="X" TYPE="string"><VALUE><?qsx-char )") +
                              number +
                              "?></VALUE></PROPERTY></INSTANCE></VALUE.OBJECT></DECLGROUP>"
                              "</DECLARATION></CIM>";
      EXPECT_THROW(LoadCollectionText("a.xml", xml), TReadError) << number;
   }
}
