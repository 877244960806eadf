#include "readers/CIMXMLReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/DescribeStore.h"
#include "support/MakeStore.h"

namespace NZANQSX20 {

namespace {

using testing::HasSubstr;

std::string Declare(const std::string& objects)
{
   return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" "
          "DTDVERSION=\"2.0\"><DECLARATION><DECLGROUP>" +
          objects + "</DECLGROUP></DECLARATION></CIM>";
}

std::string GetError(const std::string& xml, const TReadLimits& limits = {})
{
   try {
      LoadCollectionText("a.xml", xml, limits);
      return {};
   } catch (const TReadError& error) {
      return error.what();
   }
}

TEST(CIMXMLReader, ReadsTheSameAsMOF)
{
   const std::string mof = R"(
      Qualifier MaxLen : uint32 = null, Scope(property);
      class Base { [Key] string Name; };
      [Association] class Link { [Key] Base ref From; [Key] Base ref To; };
      [Description("a & b")] class Disk : Base {
         [MaxLen(5), Values{"x", "<y>"}, Volatile] uint16 Kind = 3;
         uint64 Sizes[]; sint8 Low; real32 Ratio; char16 Letter; boolean On; datetime Since;
         string Text = "none"; string Texts[] = {"a", "b"};
      };
      instance of Disk as $d { Name = "d\"1\\"; Kind = null; Sizes = {0x10, null, 3}; Low = -128; Ratio = 1.5;
         Letter = 'a'; On = TRUE; Since = "20090102030405.000006+060"; Text = "<a>&\n"; };
      instance of Disk { Name = "2"; Sizes = {}; Text = ""; };
      instance of Link { From = $d; To = "Disk.Name=\"2\""; };)";
   const std::string xml = R"(
      <QUALIFIER.DECLARATION NAME="MaxLen" TYPE="uint32"><SCOPE PROPERTY="true"/></QUALIFIER.DECLARATION>
      <VALUE.OBJECT><CLASS NAME="Base"><PROPERTY NAME="Name" TYPE="string">
         <QUALIFIER NAME="Key" TYPE="boolean"><VALUE>TRUE</VALUE></QUALIFIER></PROPERTY></CLASS></VALUE.OBJECT>
      <VALUE.OBJECT><CLASS NAME="Link"><QUALIFIER NAME="Association" TYPE="boolean"><VALUE>true</VALUE></QUALIFIER>
         <PROPERTY.REFERENCE NAME="From" REFERENCECLASS="Base"><QUALIFIER NAME="Key" TYPE="boolean"><VALUE>TRUE</VALUE></QUALIFIER></PROPERTY.REFERENCE>
         <PROPERTY.REFERENCE NAME="To" REFERENCECLASS="Base"><QUALIFIER NAME="Key" TYPE="boolean"><VALUE>TRUE</VALUE></QUALIFIER></PROPERTY.REFERENCE>
      </CLASS></VALUE.OBJECT>
      <VALUE.OBJECT><CLASS NAME="Disk" SUPERCLASS="Base"><QUALIFIER NAME="Description" TYPE="string"><VALUE>a &amp; b</VALUE></QUALIFIER>
         <PROPERTY NAME="Kind" TYPE="uint16"><QUALIFIER NAME="MaxLen" TYPE="uint32"><VALUE>5</VALUE></QUALIFIER>
            <QUALIFIER NAME="Values" TYPE="string"><VALUE.ARRAY><VALUE>x</VALUE><VALUE><![CDATA[<y>]]></VALUE></VALUE.ARRAY></QUALIFIER>
            <QUALIFIER NAME="Volatile" TYPE="boolean"><VALUE>TRUE</VALUE></QUALIFIER><VALUE>3</VALUE></PROPERTY>
         <PROPERTY.ARRAY NAME="Sizes" TYPE="uint64"/><PROPERTY NAME="Low" TYPE="sint8"/><PROPERTY NAME="Ratio" TYPE="real32"/>
         <PROPERTY NAME="Letter" TYPE="char16"/><PROPERTY NAME="On" TYPE="boolean"/><PROPERTY NAME="Since" TYPE="datetime"/>
         <PROPERTY NAME="Text" TYPE="string"><VALUE>none</VALUE></PROPERTY>
         <PROPERTY.ARRAY NAME="Texts" TYPE="string"><VALUE.ARRAY><VALUE>a</VALUE><VALUE>b</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>
         <METHOD NAME="Format" TYPE="uint32"><QUALIFIER NAME="Key" TYPE="boolean"/><PARAMETER NAME="How" TYPE="string"/></METHOD>
      </CLASS></VALUE.OBJECT>
      <VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME="Disk"><KEYBINDING NAME="Name"><KEYVALUE>ignored: the instance says it</KEYVALUE></KEYBINDING></INSTANCENAME>
      <INSTANCE CLASSNAME="Disk"><PROPERTY NAME="Name" TYPE="string"><VALUE>d"1\</VALUE></PROPERTY><PROPERTY NAME="Kind" TYPE="uint16"/>
         <PROPERTY.ARRAY NAME="Sizes" TYPE="uint64"><VALUE.ARRAY><VALUE>0x10</VALUE><VALUE.NULL/><VALUE> 3 </VALUE></VALUE.ARRAY></PROPERTY.ARRAY>
         <PROPERTY NAME="Low" TYPE="sint8"><VALUE>-128</VALUE></PROPERTY><PROPERTY NAME="Ratio" TYPE="real32"><VALUE>1.5</VALUE></PROPERTY>
         <PROPERTY NAME="Letter" TYPE="char16"><VALUE>a</VALUE></PROPERTY><PROPERTY NAME="On" TYPE="boolean"><VALUE>true</VALUE></PROPERTY>
         <PROPERTY NAME="Since" TYPE="datetime"><VALUE>20090102030405.000006+060</VALUE></PROPERTY>
         <PROPERTY NAME="Text" TYPE="string"><VALUE>&lt;a&gt;&#38;&#xA;</VALUE></PROPERTY></INSTANCE></VALUE.NAMEDINSTANCE>
      <VALUE.OBJECT><INSTANCE CLASSNAME="Disk"><PROPERTY NAME="Name" TYPE="string"><VALUE>2</VALUE></PROPERTY>
         <PROPERTY.ARRAY NAME="Sizes" TYPE="uint64"><VALUE.ARRAY/></PROPERTY.ARRAY><PROPERTY NAME="Text" TYPE="string"><VALUE/></PROPERTY></INSTANCE></VALUE.OBJECT>
      <VALUE.OBJECT><INSTANCE CLASSNAME="Link">
         <PROPERTY.REFERENCE NAME="From"><VALUE.REFERENCE><INSTANCEPATH><NAMESPACEPATH><HOST>h</HOST><LOCALNAMESPACEPATH><NAMESPACE NAME="root"/></LOCALNAMESPACEPATH></NAMESPACEPATH>
            <INSTANCENAME CLASSNAME="Disk"><KEYBINDING NAME="Name"><KEYVALUE VALUETYPE="string">d"1\</KEYVALUE></KEYBINDING></INSTANCENAME></INSTANCEPATH></VALUE.REFERENCE></PROPERTY.REFERENCE>
         <PROPERTY.REFERENCE NAME="To"><VALUE.REFERENCE><INSTANCENAME CLASSNAME="Disk"><KEYBINDING NAME="Name"><KEYVALUE>2</KEYVALUE></KEYBINDING></INSTANCENAME></VALUE.REFERENCE></PROPERTY.REFERENCE>
      </INSTANCE></VALUE.OBJECT>)";
   const std::string expected = DescribeStore(MakeStore(mof));
   EXPECT_THAT(expected, HasSubstr("   Sizes 9[] {16,,3}\n"));
   EXPECT_EQ(DescribeStore(LoadCollectionText("a.xml", Declare(xml)).fStore), expected);
}

const char* const kCapturedResponse = R"(<?xml version="1.0" encoding="utf-8"?>
   <!DOCTYPE CIM SYSTEM "http://127.0.0.1:1/CIM_DTD_V22.dtd">
   <CIM CIMVERSION="2.0" DTDVERSION="2.0"><MESSAGE ID="1" PROTOCOLVERSION="1.0"><SIMPLERSP>
   <IMETHODRESPONSE NAME="EnumerateInstances"><IRETURNVALUE>
      <VALUE.NAMEDINSTANCE>
         <INSTANCENAME CLASSNAME="Use"><KEYBINDING NAME="Disk"><VALUE.REFERENCE>
            <INSTANCENAME CLASSNAME="Disk"><KEYBINDING NAME="Slot"><KEYVALUE VALUETYPE="numeric">07</KEYVALUE></KEYBINDING></INSTANCENAME>
         </VALUE.REFERENCE></KEYBINDING></INSTANCENAME>
         <INSTANCE CLASSNAME="Use"/>
      </VALUE.NAMEDINSTANCE>
      <VALUE.NAMEDINSTANCE>
         <INSTANCENAME CLASSNAME="Disk"><KEYBINDING NAME="Slot"><KEYVALUE VALUETYPE="numeric">7</KEYVALUE></KEYBINDING></INSTANCENAME>
         <INSTANCE CLASSNAME="Disk"><PROPERTY NAME="Slot" TYPE="uint8"><VALUE>7</VALUE></PROPERTY>
            <PROPERTY NAME="Settings" TYPE="string" EmbeddedObject="instance"><VALUE>&lt;INSTANCE CLASSNAME="S&amp;amp;T"/&gt;</VALUE></PROPERTY></INSTANCE>
      </VALUE.NAMEDINSTANCE>
      <VALUE.NAMEDINSTANCE>
         <INSTANCENAME CLASSNAME="Disk"><KEYBINDING NAME="Slot"><KEYVALUE VALUETYPE="numeric">8</KEYVALUE></KEYBINDING></INSTANCENAME>
         <INSTANCE CLASSNAME="Disk"><PROPERTY NAME="Slot" TYPE="uint8"><VALUE>8</VALUE></PROPERTY>
            <PROPERTY NAME="Own" TYPE="sint16"><VALUE>-1</VALUE></PROPERTY></INSTANCE>
      </VALUE.NAMEDINSTANCE>
   </IRETURNVALUE></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>)";

TEST(CIMXMLReader, CapturedResponseDeclaresItsClassesByWhatTheInstancesHold)
{
   const TCollection collection = LoadCollectionText("a.xml", kCapturedResponse);
   EXPECT_EQ(DescribeInstances(collection.fStore),
             "Use.Disk=\"Disk.Slot=7\"\n"
             "   Disk 15 {Disk.Slot=7}\n"
             "Disk.Slot=7\n"
             "   Slot 3 {7}\n"
             "   Settings 13 {<INSTANCE CLASSNAME=\"S&amp;T\"/>}\n"
             "Disk.Slot=8\n"
             "   Slot 3 {8}\n"
             "   Settings 13 null\n"
             "   Own 6 {-1}\n");
   EXPECT_EQ(collection.fCounts.fClassesImplied, 2U);
   EXPECT_EQ(collection.fCounts.fClassesRead, 0U);
}

TEST(CIMXMLReader, DeclarationHoldsHoweverLateItComes)
{
   const std::string declaration =
      "<VALUE.OBJECT><CLASS NAME=\"A\"><PROPERTY NAME=\"N\" "
      "TYPE=\"uint8\"/></CLASS></VALUE.OBJECT>";
   const std::string instance =
      "<VALUE.OBJECT><INSTANCE CLASSNAME=\"A\"><PROPERTY NAME=\"N\" "
      "TYPE=\"uint32\"><VALUE>5</VALUE>"
      "</PROPERTY><PROPERTY NAME=\"M\" "
      "TYPE=\"string\"><VALUE>m</VALUE></PROPERTY></INSTANCE></VALUE.OBJECT>";
   const std::string expected = "A.@=0\n   N 3 {5}\n   M 13 {m}\n";
   for (const std::string& xml : {declaration + instance, instance + declaration})
      EXPECT_EQ(DescribeInstances(LoadCollectionText("a.xml", Declare(xml)).fStore), expected);
}

TEST(CIMXMLReader, NamesPlaceAndExpectation)
{
   const std::string open = "<CIM>\n<DECLARATION>";
   const std::string instance = open + "<VALUE.OBJECT>\n <INSTANCE CLASSNAME=\"A\">";

   const struct
   {
      std::string fXml;
      const char* fError;
   } cases[] = {
      {"<HTML/>", "a.xml:1:1: expected the element CIM, found 'HTML'"},
      {"<CIM>\n  <INSTANCE CLASSNAME='A'><VALUE/>",
       "a.xml:2:27: expected an element that may stand here, found 'VALUE'"},
      {"<CIM>\n words", "a.xml:2:2: expected an element, found the text 'words'"},
      {"<CIM><CLASS/></CIM>", "a.xml:1:6: expected the attribute NAME, found none"},
      {instance + "<PROPERTY NAME='P' TYPE='int'/>", "a.xml:3:26: expected a type, found 'int'"},
      {instance + "<PROPERTY NAME='P' TYPE='uint8'><VALUE>\n256</VALUE></PROPERTY></INSTANCE>"
                  "</VALUE.OBJECT></DECLARATION></CIM>",
       "a.xml:3:58: expected a uint8 (0 to 255), found the text '\\x0A256'"},
      {instance + "<PROPERTY NAME='P' TYPE='uint8'><VALUE>1</VALUE><VALUE>2</VALUE>",
       "a.xml:3:74: expected one value, found a second one"},
      {instance + "<PROPERTY NAME='P' TYPE='uint8'></INSTANCE>",
       "a.xml:3:58: expected the end of 'PROPERTY', found that of 'INSTANCE'"},
      {instance +
          "<PROPERTY.REFERENCE NAME='R'><VALUE.REFERENCE><CLASSNAME NAME='C'/>"
          "</VALUE.REFERENCE></PROPERTY.REFERENCE></INSTANCE></VALUE.OBJECT></DECLARATION></CIM>",
       "expected a reference (an alias or an object path), found the text 'C'"},
      {instance, "a.xml:3:26: expected more XML, found the end of the file"},
      {"<CIM>\n\xFF</CIM>", "a.xml:2:1: expected UTF-8, found the byte 0xFF"},
      {"<!DOCTYPE CIM [<!ENTITY a 'aaaa'>]><CIM>&a;</CIM>",
       "a.xml:1:15: expected '>' at the end of the document type, found an internal subset"},
      {"<!DOCTYPE CIM SYSTEM 'file:///etc/passwd'><CIM>&a;</CIM>",
       "a.xml:1:51: expected a predefined entity, found 'a'"},
      {"<CIM><DECLARATION x='&a;'/></CIM>", "a.xml:1:22: expected a predefined entity, found 'a'"},
      {"<CIM><MESSAGE><SIMPLERSP><IMETHODRESPONSE><ERROR CODE='5' DESCRIPTION='no class'/>",
       "expected data, found the response of an error, code 5: 'no class'"},
   };

   for (const auto& each : cases)
      EXPECT_THAT(GetError(each.fXml), HasSubstr(each.fError)) << each.fXml;
}

TEST(CIMXMLReader, HoldsItsLimits)
{
   std::string deep = "<CIM>";
   for (int level = 0; level < 200'000; ++level)
      deep += "<MESSAGE>";
   EXPECT_EQ(GetError(deep),
             "a.xml:1:897: expected at most 100 elements inside each other, found more");

   const auto nest = [](int depth) {
      std::string name = "<KEYVALUE>\"</KEYVALUE>";
      for (int level = 0; level < depth; ++level)
         name = "<VALUE.REFERENCE><INSTANCENAME CLASSNAME='A'><KEYBINDING NAME='K'>" + name +
                "</KEYBINDING></INSTANCENAME></VALUE.REFERENCE>";
      return Declare("<INSTANCE CLASSNAME='B'><PROPERTY.REFERENCE NAME='R'>" + name +
                     "</PROPERTY.REFERENCE></INSTANCE>");
   };
   EXPECT_EQ(GetError(nest(4)), "");
   EXPECT_THAT(GetError(nest(5)),
               HasSubstr("expected at most 4 instance names inside each other, found more"));

   TReadLimits limits;
   limits.fTextBytes = 3;
   const auto text = [](const std::string& content) {
      return Declare("<INSTANCE CLASSNAME='B'><PROPERTY NAME='P' TYPE='string'><VALUE>" + content +
                     "</VALUE></PROPERTY></INSTANCE>");
   };
   EXPECT_EQ(GetError(text("ab<![CDATA[c]]>"), limits), "");
   EXPECT_THAT(GetError(text("ab<![CDATA[c]]>d"), limits),
               HasSubstr("expected at most 3 bytes in one text, found more"));
}

}  // namespace

}  // namespace NZANQSX20
