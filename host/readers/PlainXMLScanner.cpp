#include "readers/PlainXMLScanner.h"

#include <algorithm>
#include <cstring>
#include <deque>
#include <vector>

#include <fmt/format.h>

#include "readers/FindPlainRoot.h"
#include "readers/SkipPlainText.h"
#include "readers/TSourceText.h"
#include "readers/TXMLCursor.h"
#include "readers/TXMLNames.h"
#include "readers/TXMLTags.h"

namespace NZANQSX20 {

namespace {

constexpr std::size_t kLongestMarkup = std::size_t{64} << 20;
/// The handlers look for attributes one by one; CIM-XML knows a dozen.
constexpr std::size_t kMostAttributes = 256;
constexpr std::size_t kMostWideBytes = 4;

class TPlainScan : private TXMLCursor
{
public:
   TPlainScan(TByteWindow& window, const std::string& name, TXMLHandler& handler)
      : TXMLCursor(window, name), fHandler(handler), fNames(handler)
   {}

   void Run(std::size_t root)
   {
      const char* const end = fCursor + root;
      if (StartsWith({fCursor, GetLeft(fCursor)}, kByteOrderMark))
         fCursor += fLineStart = kByteOrderMark.size();
      Pass(end);
      do {
         ReadMarkup();
         if (!fOpenSizes.empty())
            ReadText();
      } while (!fOpenSizes.empty());
      ReadEnd();
   }

private:
   // Markup. Each Read moves the cursor and tells the handler as its last step, so that it can be
   // done again.

   void ReadMarkup()
   {
      while (true) {
         const std::size_t line = fLine;
         const std::size_t lineStart = fLineStart;
         try {
            ReadOneMarkup();
            return;
         } catch (const TNeedsMoreXML&) {
            fLine = line;
            fLineStart = lineStart;
         }
         if (GetLeft(fCursor) > kLongestMarkup)
            Fail(fCursor,
                 fmt::format("expected at most {} bytes in one piece of markup, found more",
                             kLongestMarkup));
         Extend();
      }
   }

   void ReadOneMarkup()
   {
      switch (fCursor[1]) {
         case '/':
            ReadEndTag();
            break;
         case '!':
            ReadDeclaration();
            break;
         case '?':
            ReadInstruction();
            break;
         default:
            ReadStartTag();
      }
   }

   void ReadStartTag()
   {
      const TPlace place = GetPlace(fCursor);
      if (const TXMLTag* const tag = fTags.Guess(fCursor, GetLeft(fCursor))) {
         fCursor += tag->fText.size();
         Start(tag->fNumber, tag->fName, tag->fLocalName, tag->fAttributes, tag->fIsEmpty, place);
         return;
      }
      const char* cursor = fCursor + 1;
      const std::string_view name = ReadName(cursor);
      ReadAttributes(cursor);
      const bool isEmpty = *cursor == '/';
      if (isEmpty && *++cursor != '>')
         FailAt(cursor, "'>' behind '/'");
      const TXMLNames::TEntry& entry = fNames.Find(name);
      const std::string_view text(fCursor, static_cast<std::size_t>(++cursor - fCursor));
      const std::string_view localName = name.substr(entry.fLocal);
      fTags.Learn(text, entry.fNumber, name, localName, fAttributes, isEmpty);
      fCursor = cursor;
      Start(entry.fNumber, name, localName, fAttributes, isEmpty, place);
   }

   void Start(TXMLName number, std::string_view name, std::string_view localName,
              const std::vector<TXMLAttribute>& attributes, bool isEmpty, TPlace place)
   {
      fHandler.StartElement(number, localName, attributes, place);
      if (isEmpty) {
         fHandler.EndElement();
         return;
      }
      fOpenNames.append(name);
      fOpenSizes.push_back(name.size());
   }

   /// Up to the end of the tag.
   void ReadAttributes(const char*& cursor)
   {
      fAttributes.clear();
      fAttributeNames.clear();
      fDecoded.clear();
      while (true) {
         const char* const before = cursor;
         SkipBlanks(cursor);
         if (*cursor == '>' || *cursor == '/')
            return;
         if (cursor == before)
            FailAt(cursor, "a blank or '>'");
         ReadAttribute(cursor);
      }
   }

   void ReadEndTag()
   {
      const std::size_t size = fOpenSizes.back();
      const std::string_view open = std::string_view(fOpenNames).substr(fOpenNames.size() - size);
      const char* cursor = fCursor + 2;
      const bool isPlain = GetLeft(cursor) > size && std::memcmp(cursor, open.data(), size) == 0 &&
                           cursor[size] == '>';
      if (isPlain)
         cursor += size;
      else
         ReadEndName(cursor, open);
      fCursor = cursor + 1;
      fOpenNames.resize(fOpenNames.size() - size);
      fOpenSizes.pop_back();
      fHandler.EndElement();
   }

   /// Up to the end of the tag.
   void ReadEndName(const char*& cursor, std::string_view open)
   {
      const std::string_view name = ReadName(cursor);
      if (name != open)
         Fail(fCursor, fmt::format("expected the end of {}, found that of {}",
                                   QuoteForMessage(open), QuoteForMessage(name)));
      SkipBlanks(cursor);
      if (*cursor != '>')
         FailAt(cursor, "'>'");
   }

   /// A comment or a CDATA section.
   void ReadDeclaration()
   {
      constexpr std::string_view kCData = "<![CDATA[";
      if (GoesOn(fCursor, "<!--")) {
         const char* const dashes = Find(fCursor + 4, "--");
         if (!GoesOn(dashes, "-->"))
            Fail(dashes, "expected no '--' inside a comment, found one");
         Pass(dashes + 3);
         return;
      }
      if (fOpenSizes.empty() || !GoesOn(fCursor, kCData))
         FailAt(fCursor + 1, "an element, a comment or a text");
      const char* const end = Find(fCursor + kCData.size(), "]]>");
      const TPlace place = GetPlace(fCursor);
      const std::string_view text(fCursor + kCData.size(),
                                  static_cast<std::size_t>(end - fCursor) - kCData.size());
      Pass(end + 3);
      if (text.empty())
         return;
      if (text.find('\r') == std::string_view::npos)
         fHandler.Text(text, place);
      else
         fHandler.Text(MakeLineEnds(text), place);
   }

   void ReadInstruction()
   {
      const char* cursor = fCursor + 2;
      const std::string_view target = ReadName(cursor);
      if (target == "xml")
         Fail(fCursor, "expected an XML declaration at the start of the file, found one here");
      if (!IsXMLByte(*cursor, kXMLBlank) && *cursor != '?')
         FailAt(cursor, "a blank or '?>'");
      if (*cursor == '?' && !GoesOn(cursor, "?>"))
         FailAt(cursor, "'?>'");
      const TPlace place = GetPlace(fCursor);
      const char* const end = Find(cursor, "?>");
      while (cursor < end && IsXMLByte(*cursor, kXMLBlank))
         ++cursor;
      const std::string_view content(cursor, static_cast<std::size_t>(end - cursor));
      Pass(end + 2);
      fHandler.Instruction(target, content, place);
   }

   /// A line ends with "\n", however it is written.
   static std::string MakeLineEnds(std::string_view text)
   {
      std::string made;
      made.reserve(text.size());
      for (std::size_t index = 0; index < text.size(); ++index) {
         if (text[index] != '\r')
            made += text[index];
         else if (index + 1 == text.size() || text[index + 1] != '\n')
            made += '\n';
      }
      return made;
   }

   void ReadAttribute(const char*& cursor)
   {
      const char* const start = cursor;
      const std::string_view name = ReadName(cursor);
      SkipBlanks(cursor);
      if (*cursor != '=')
         FailAt(cursor, "'=' behind the name of an attribute");
      SkipBlanks(++cursor);
      const std::string_view value = ReadAttributeValue(cursor);

      if (std::find(fAttributeNames.begin(), fAttributeNames.end(), name) != fAttributeNames.end())
         Fail(start,
              fmt::format("expected each attribute once, found {} again", QuoteForMessage(name)));
      if (fAttributeNames.size() == kMostAttributes)
         Fail(start, fmt::format("expected at most {} attributes, found more", kMostAttributes));
      fAttributeNames.push_back(name);
      const TXMLNames::TEntry& entry = fNames.Find(name);
      if (!entry.fIsNamespace)
         fAttributes.push_back({entry.fNumber, value});
   }

   std::string_view ReadAttributeValue(const char*& cursor)
   {
      const char quote = *cursor;
      if (quote != '"' && quote != '\'')
         FailAt(cursor, "a quotation mark");
      const char* const start = ++cursor;
      while (IsXMLByte(*cursor, kXMLAttribute))
         ++cursor;
      if (*cursor == quote)
         return {start, static_cast<std::size_t>(cursor++ - start)};
      std::string& text = fDecoded.emplace_back(start, static_cast<std::size_t>(cursor - start));
      ReadRestOfAttribute(cursor, quote, text);
      return text;
   }

   /// From the first character on that does not stand for itself.
   void ReadRestOfAttribute(const char*& cursor, char quote, std::string& text)
   {
      while (*cursor != quote) {
         const char* const start = cursor;
         if (*cursor == '&') {
            text += ReadReference(cursor);
         } else if (*cursor == '<') {
            FailAt(cursor, "no '<' in an attribute");
         } else if (IsXMLByte(*cursor, kXMLBlank)) {
            // Line ends and tabs count as blanks, "\r\n" as one.
            if (*cursor == '\r' && GoesOn(cursor, "\r\n"))
               ++cursor;
            SkipBlank(cursor);
            text += ' ';
         } else if (IsXMLByte(*cursor, kXMLAttribute) || *cursor == '"' || *cursor == '\'') {
            text += *cursor++;
         } else {
            cursor = PassWide(cursor);
            text.append(start, cursor);
         }
      }
      ++cursor;
   }

   // Text, from the cursor to the next markup, in pieces: what stands for itself is one.

   void ReadText()
   {
      SkipBlanksOfText();
      const TPlace place = GetPlace(fCursor);
      const char* cursor = fCursor;
      while (true) {
         cursor = SkipPlainText(cursor);
         if (*cursor == '\n') {
            CountLine(cursor++);
         } else if (*cursor == '<') {
            Give(cursor, place);
            return;
         } else if (*cursor == ']' && GetLeft(cursor) >= 3 && !GoesOn(cursor, "]]>")) {
            ++cursor;
         } else if (static_cast<unsigned char>(*cursor) >= 0x80 &&
                    GetLeft(cursor) >= kMostWideBytes) {
            cursor = PassWide(cursor);
         } else {
            Give(cursor, place);
            ReadOddText(place);
            cursor = fCursor;
         }
      }
   }

   /// The blanks belong to the text, the place of the text is that of what follows them.
   void SkipBlanksOfText()
   {
      const char* cursor = fCursor;
      while (*cursor == ' ' || *cursor == '\n')
         SkipBlank(cursor);
      Give(cursor, GetPlace(cursor));
   }

   void Give(const char* end, TPlace place)
   {
      const std::string_view text(fCursor, static_cast<std::size_t>(end - fCursor));
      fCursor = end;
      if (!text.empty())
         fHandler.Text(text, place);
   }

   /// What does not stand for itself at the cursor, or more of the file where it ends there.
   void ReadOddText(TPlace place)
   {
      const std::size_t lineStart = fLineStart;
      try {
         ReadOneOddText(place);
      } catch (const TNeedsMoreXML&) {
         fLineStart = lineStart;
         Extend();
      }
   }

   void ReadOneOddText(TPlace place)
   {
      const char* cursor = fCursor;
      if (*cursor == '&') {
         const std::string text = ReadReference(cursor);
         fCursor = cursor;
         fHandler.Text(text, place);
      } else if (*cursor == '\r') {
         if (cursor + 1 == fEnd && !fIsAtEnd)
            throw TNeedsMoreXML();
         ++fCursor;
         if (*fCursor != '\n')
            fHandler.Text("\n", place);
      } else if (*cursor == ']') {
         if (GoesOn(cursor, "]]>"))
            Fail(cursor, "expected no ']]>' in a text, found one");
         Give(cursor + 1, place);
      } else {
         Give(PassWide(cursor), place);
      }
   }

   /// Behind the root element only blanks, comments and instructions may follow.
   void ReadEnd()
   {
      while (true) {
         SkipBlanks(fCursor);
         while (GetLeft(fCursor) < kMostWideBytes && TryExtend()) {
         }
         if (fCursor == fEnd)
            return;
         if (IsXMLByte(*fCursor, kXMLBlank))
            continue;
         if (*fCursor != '<' || (fCursor[1] != '!' && fCursor[1] != '?'))
            FailAt(fCursor, "nothing behind the root element");
         ReadMarkup();
      }
   }

   TXMLHandler& fHandler;
   TXMLNames fNames;
   TXMLTags fTags;
   /// The names of the open elements, one behind the other, and the size of each.
   std::string fOpenNames;
   std::vector<std::size_t> fOpenSizes;
   std::vector<TXMLAttribute> fAttributes;
   std::vector<std::string_view> fAttributeNames;
   /// Values of attributes that are not written as they are meant.
   std::deque<std::string> fDecoded;
};

}  // namespace

void ScanPlainXML(TByteWindow& window, const std::string& name, TXMLHandler& handler)
{
   TPlainScan(window, name, handler).Run(FindPlainRoot(window.GetText()));
}

}  // namespace NZANQSX20
