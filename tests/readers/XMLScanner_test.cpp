#include "readers/XMLScanner.h"

#include <algorithm>
#include <memory>
#include <vector>

#include <gtest/gtest.h>

#include "readers/FindPlainRoot.h"
#include "readers/LibXMLScanner.h"
#include "readers/PlainXMLScanner.h"
#include "readers/TReadError.h"

namespace NZANQSX20 {

namespace {

/// Writes down what a scanner tells; the pieces of a text are joined.
class TEvents : public TXMLHandler
{
public:
   /// The number of a name is its sum: enough to see that the same name was asked for.
   TXMLName FindName(std::string_view name) const override
   {
      TXMLName sum = 0;
      for (const char byte : name)
         sum = sum * 31 + static_cast<unsigned char>(byte);
      return sum;
   }

   void StartElement(TXMLName name, std::string_view text,
                     const std::vector<TXMLAttribute>& attributes, TPlace) override
   {
      EXPECT_EQ(name, FindName(text));
      fEvents += "\n<" + std::string(text);
      for (const TXMLAttribute& attribute : attributes)
         fEvents +=
            ' ' + std::to_string(attribute.fName) + '=' + std::string(attribute.fValue) + '|';
      fEvents += ">";
   }

   void EndElement() override { fEvents += "</>"; }

   void Text(std::string_view text, TPlace) override { fEvents += text; }

   std::string fEvents;
};

/// Gives a text in pieces of a few bytes, so that every token lies on a border somewhere.
class TDrops : public TByteSource
{
public:
   TDrops(std::string_view text, std::size_t size) : fText(text), fSize(size) {}

   std::size_t Read(char* buffer, std::size_t size) override
   {
      const std::size_t count = fText.copy(buffer, std::min(size, fSize));
      fText.remove_prefix(count);
      return count;
   }

private:
   std::string_view fText;
   std::size_t fSize;
};

constexpr std::size_t kWhole = 1 << 20;

std::string ScanAsLibXML(const std::string& text)
{
   TDrops bytes(text, kWhole);
   TEvents events;
   try {
      ScanWithLibXML(bytes, "a.xml", events);
      return events.fEvents;
   } catch (const TReadError&) {
      return "refused";
   }
}

/// Missing: the empty text where the document is not one for this scanner.
std::string ScanInPlace(const std::string& text, std::size_t step)
{
   TDrops bytes(text, step);
   TByteWindow window(bytes);
   std::size_t root = std::string_view::npos;
   while ((root = FindPlainRoot(window.GetText())) == std::string_view::npos && window.Extend()) {
   }
   if (root == std::string_view::npos)
      return {};
   TEvents events;
   try {
      ScanPlainXML(window, "a.xml", events);
      return events.fEvents;
   } catch (const TReadError&) {
      return "refused";
   }
}

const std::string kDocument =
   "\xEF\xBB\xBF<?xml version='1.0' encoding=\"utf-8\"?>\n<!-- a --><C:a x='1' xmlns='u' "
   "y:z=\"a&lt;&#x41;\t'\r\n\xC3\xA9\">\r\n t\xE2\x82\xAC]] &amp;&#66;\r<b/><b  c = '>' /><!-- - "
   "--><![CDATA[<&]]\r\n]]><?p q?><b>one</b><b>two]</b><\xC3\xA9/>&quot;</C:a >\n<?p?><!--e-->\r\n";

TEST(XMLScanner, BothScannersTellTheSame)
{
   const std::string expected = ScanAsLibXML(kDocument);
   ASSERT_NE(expected, "refused");
   for (const std::size_t step : {std::size_t{1}, std::size_t{2}, std::size_t{7}, kWhole})
      EXPECT_EQ(ScanInPlace(kDocument, step), expected) << step;
}

TEST(XMLScanner, BothScannersRefuseTheSame)
{
   const std::string pieces[] = {
      "",     "<",    ">",    "/",  "&", "&#0;", "&x;",     "&#x;",      "]]>",  "--",
      "\x01", "\xFF", "\xC3", "\"", "'", "=",    "<?xml?>", "<![CDATA[", "<!--", "\xEF\xBF\xBF",
      "\r",   "a",    " ",

      "<a>",  "</b>", "-",    "<!"};
   std::size_t compared = 0;
   for (std::size_t place = 0; place <= kDocument.size(); ++place) {
      for (const std::string& piece : pieces) {
         std::string text = kDocument;
         text.replace(place, std::min(place % 2, text.size() - place), piece);
         const std::string plain = ScanInPlace(text, kWhole);
         if (plain.empty())
            continue;
         ++compared;
         ASSERT_EQ(plain, ScanAsLibXML(text)) << text;
         ASSERT_EQ(ScanInPlace(text, 3), plain) << text;
      }
      const std::string cut = kDocument.substr(0, place);
      const std::string plain = ScanInPlace(cut, 5);
      ASSERT_TRUE(plain.empty() || plain == ScanAsLibXML(cut)) << cut;
   }
   EXPECT_GT(compared, kDocument.size() * std::size(pieces) / 2);
}

TEST(XMLScanner, TagsThatRepeatAreReadAnew)
{
   const std::string text =
      "<r><p n='A'><v>1</v></p><p n='B'><v>2</v></p><p n='A'><v>3</v></p><p n='A' "
      "m='&amp;'><v>4</v></p><p n='A' m='&amp;'/>\n<p n='A'><v>5</v></p><p n='AB'/><p n='A'/></r>";
   EXPECT_EQ(ScanInPlace(text, kWhole), ScanAsLibXML(text));
}

TEST(XMLScanner, ErrorsAreThrownAndNeverPrinted)
{
   testing::internal::CaptureStderr();
   const std::string found = ScanAsLibXML("<?xml version='1.0' encoding='EBCDIC-US'?><a/>");
   EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
   EXPECT_EQ(found, "refused");
}

TEST(XMLScanner, OtherDocumentsAreLeftToTheOtherScanner)
{
   for (const char* text :
        {"<?xml version='1.0' encoding='ISO-8859-1'?><a/>", "<?xml version='1.1'?><a/>",
         "<!DOCTYPE a><a/>", "<!DOCTYPE a [<!ENTITY b 'c'>]><a>&b;</a>", "<?p?><a/>", " text"})
      EXPECT_EQ(FindPlainRoot(text), std::string_view::npos) << text;
}

}  // namespace

}  // namespace NZANQSX20
