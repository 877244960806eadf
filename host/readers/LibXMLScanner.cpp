#include "readers/LibXMLScanner.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <exception>
#include <memory>
#include <new>

#include <fmt/format.h>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include "readers/ReadValue.h"

namespace NZANQSX20 {

namespace {

std::string_view ToView(const xmlChar* text)
{
   return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

/// The numbers of names by their address: libxml2 keeps each name once for the length of a scan.
class TNameCache
{
public:
   explicit TNameCache(const TXMLHandler& handler) : fHandler(handler) {}

   TXMLName Find(const xmlChar* name)
   {
      const auto address = reinterpret_cast<std::uintptr_t>(name);
      TEntry& entry = fEntries[(address ^ (address >> 8)) % fEntries.size()];
      if (entry.fName != name) {
         entry.fName = name;
         entry.fNumber = fHandler.FindName(ToView(name));
      }
      return entry.fNumber;
   }

private:
   struct TEntry
   {
      const xmlChar* fName = nullptr;
      TXMLName fNumber = 0;
   };

   const TXMLHandler& fHandler;
   std::array<TEntry, 256> fEntries;
};

/// What libxml2 tells outside of a parser, such as a failed conversion of an encoding, would appear
/// on standard error. The parser's own error follows it.
class TSilence
{
public:
   TSilence() : fFormer(xmlStructuredError), fFormerContext(xmlStructuredErrorContext)
   {
      xmlSetStructuredErrorFunc(nullptr, [](void*, xmlErrorPtr) {});
   }

   ~TSilence() { xmlSetStructuredErrorFunc(fFormerContext, fFormer); }

   TSilence(const TSilence&) = delete;
   TSilence& operator=(const TSilence&) = delete;

private:
   const xmlStructuredErrorFunc fFormer;
   void* const fFormerContext;
};

/// One scan: what libxml2 calls back, handed on. No exception may pass through libxml2, so each
/// waits here until the parser has stopped.
class TScan
{
public:
   TScan(TByteSource& bytes, const std::string& name, TXMLHandler& handler)
      : fBytes(bytes), fName(name), fHandler(handler), fNames(handler)
   {}

   void Run()
   {
      const TSilence silence;
      xmlSAXHandler callbacks = MakeCallbacks();
      fParser.reset(
         xmlCreateIOParserCtxt(&callbacks, this, ReadBytes, nullptr, this, XML_CHAR_ENCODING_NONE));
      if (!fParser)
         throw std::bad_alloc();
      xmlCtxtUseOptions(fParser.get(), XML_PARSE_NONET | XML_PARSE_NOWARNING);
      xmlParseDocument(fParser.get());
      if (fFailure)
         std::rethrow_exception(fFailure);
      if (fParser->wellFormed == 0)
         throw TReadError(fName, GetPlace(), "expected well-formed XML, found an error in it");
   }

private:
   struct TFreeParser
   {
      void operator()(xmlParserCtxt* parser) const
      {
         xmlFreeDoc(parser->myDoc);
         xmlFreeParserCtxt(parser);
      }
   };

   static TScan& Self(void* self) { return *static_cast<TScan*>(self); }

   static xmlSAXHandler MakeCallbacks()
   {
      xmlSAXHandler callbacks;
      std::memset(&callbacks, 0, sizeof callbacks);
      callbacks.initialized = XML_SAX2_MAGIC;
      callbacks.startElementNs = StartElement;
      callbacks.endElementNs = EndElement;
      callbacks.characters = Characters;
      // The same function: libxml2 then does not ask whether blanks may be left out.
      callbacks.ignorableWhitespace = Characters;
      callbacks.cdataBlock = Characters;
      callbacks.processingInstruction = Instruction;
      callbacks.internalSubset = DocumentType;
      callbacks.reference = Reference;
      callbacks.serror = Error;
      return callbacks;
   }

   TPlace GetPlace() const
   {
      const xmlParserInput* const input = fParser->input;
      if (input == nullptr)
         return {};
      return {static_cast<std::size_t>(std::max(input->line, 1)),
              static_cast<std::size_t>(std::max(input->col, 1))};
   }

   /// Where the tag begins that the parser has just read, when it stands in one line.
   TPlace GetPlaceOfTag() const
   {
      TPlace place = GetPlace();
      const xmlParserInput& input = *fParser->input;
      const auto size = static_cast<std::size_t>(input.cur - input.base);
      const void* const start = ::memrchr(input.base, '<', size);
      if (start != nullptr) {
         const auto length =
            static_cast<std::size_t>(input.cur - static_cast<const xmlChar*>(start));
         place.fColumn = place.fColumn > length ? place.fColumn - length : 1;
      }
      return place;
   }

   /// Runs what may throw; a first failure stops the parser.
   template <typename TAction>
   void Guard(TAction action)
   {
      if (fFailure)
         return;
      try {
         action();
      } catch (...) {
         Stop(std::current_exception());
      }
   }

   void Stop(std::exception_ptr failure)
   {
      if (!fFailure)
         fFailure = std::move(failure);
      if (fParser)
         xmlStopParser(fParser.get());
   }

   [[noreturn]] void Fail(const std::string& text) const
   {
      throw TReadError(fName, GetPlace(), text);
   }

   static int ReadBytes(void* self, char* buffer, int size)
   {
      try {
         return static_cast<int>(Self(self).Take(buffer, static_cast<std::size_t>(size)));
      } catch (...) {
         // The parser is in the middle of its own buffer here: it ends by itself on -1.
         if (!Self(self).fFailure)
            Self(self).fFailure = std::current_exception();
         return -1;
      }
   }

   /// libxml2 asks for some 4,000 bytes at a time: one system call serves many of them.
   std::size_t Take(char* buffer, std::size_t size)
   {
      if (fTaken == fRead) {
         fBlock.resize(kBlockBytes);
         fRead = fBytes.Read(fBlock.data(), fBlock.size());
         fTaken = 0;
      }
      const std::size_t count = std::min(size, fRead - fTaken);
      std::memcpy(buffer, fBlock.data() + fTaken, count);
      fTaken += count;
      return count;
   }

   static void StartElement(void* self, const xmlChar* name, const xmlChar*, const xmlChar*, int,
                            const xmlChar**, int attributeCount, int, const xmlChar** attributes)
   {
      TScan& scan = Self(self);
      scan.Guard([&] {
         scan.ReadAttributes(attributes, attributeCount);
         scan.fHandler.StartElement(scan.fNames.Find(name), ToView(name), scan.fAttributes,
                                    scan.GetPlaceOfTag());
      });
   }

   /// libxml2 hands over name, prefix, namespace, start and end of the value.
   void ReadAttributes(const xmlChar** attributes, int count)
   {
      fAttributes.clear();
      fUnescaped.clear();
      for (int index = 0; index < count; ++index, attributes += 5) {
         const auto* const start = reinterpret_cast<const char*>(attributes[3]);
         const auto size = static_cast<std::size_t>(attributes[4] - attributes[3]);
         fAttributes.push_back({fNames.Find(attributes[0]), Unescape({start, size})});
      }
   }

   /// Ampersands stay written as "&#38;" in attributes of a parser that replaces no entities.
   std::string_view Unescape(std::string_view value)
   {
      constexpr std::string_view kAmpersand = "&#38;";
      std::size_t found = value.find(kAmpersand);
      if (found == std::string_view::npos)
         return value;
      auto text = std::make_unique<std::string>(value);
      for (; found != std::string::npos; found = text->find(kAmpersand, found + 1))
         text->replace(found, kAmpersand.size(), "&");
      fUnescaped.push_back(std::move(text));
      return *fUnescaped.back();
   }

   static void EndElement(void* self, const xmlChar*, const xmlChar*, const xmlChar*)
   {
      TScan& scan = Self(self);
      scan.Guard([&] { scan.fHandler.EndElement(); });
   }

   static void Characters(void* self, const xmlChar* text, int size)
   {
      TScan& scan = Self(self);
      scan.Guard([&] {
         scan.fHandler.Text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)},
                            scan.GetPlace());
      });
   }

   static void Instruction(void* self, const xmlChar* target, const xmlChar* content)
   {
      TScan& scan = Self(self);
      scan.Guard(
         [&] { scan.fHandler.Instruction(ToView(target), ToView(content), scan.GetPlace()); });
   }

   static void DocumentType(void* self, const xmlChar*, const xmlChar*, const xmlChar*)
   {
      TScan& scan = Self(self);
      scan.Guard([&] {
         if (*scan.fParser->input->cur == '[')
            scan.Fail("expected '>' at the end of the document type, found an internal subset");
      });
   }

   static void Reference(void* self, const xmlChar* name)
   {
      TScan& scan = Self(self);
      scan.Guard([&] {
         scan.Fail(
            fmt::format("expected a predefined entity, found {}", QuoteForMessage(ToView(name))));
      });
   }

   static void Error(void* self, xmlErrorPtr error)
   {
      TScan& scan = Self(self);
      // Undeclared prefixes and the like: the document is still well formed.
      if (error == nullptr || error->level != XML_ERR_FATAL)
         return;
      scan.Guard([&] {
         const std::string_view message = error->message == nullptr ? "an error" : error->message;
         const TPlace place = {static_cast<std::size_t>(std::max(error->line, 1)),
                               static_cast<std::size_t>(std::max(error->int2, 1))};
         throw TReadError(scan.fName, place,
                          fmt::format("expected well-formed XML, found: {}", TrimBlanks(message)));
      });
   }

   static constexpr std::size_t kBlockBytes = 128 * 1024;

   TByteSource& fBytes;
   std::vector<char> fBlock;
   std::size_t fRead = 0;
   std::size_t fTaken = 0;
   const std::string& fName;
   TXMLHandler& fHandler;
   TNameCache fNames;
   std::unique_ptr<xmlParserCtxt, TFreeParser> fParser;
   std::exception_ptr fFailure;
   std::vector<TXMLAttribute> fAttributes;
   std::vector<std::unique_ptr<std::string>> fUnescaped;
};

}  // namespace

void ScanWithLibXML(TByteSource& bytes, const std::string& name, TXMLHandler& handler)
{
   TScan(bytes, name, handler).Run();
}

}  // namespace NZANQSX20
