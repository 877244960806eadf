#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "readers/TByteSource.h"
#include "readers/TReadError.h"

namespace NZANQSX20 {

/// What a name of an element or attribute means, in numbers of the handler's own.
using TXMLName = unsigned;

struct TXMLAttribute
{
   TXMLName fName;
   std::string_view fValue;
};

/// What a reader of XML is told, in document order.
///
/// Owner:  every view is valid during the call only.
/// Throws: what a call throws ends the scan and leaves ScanXML.
class TXMLHandler
{
public:
   virtual ~TXMLHandler() = default;

   /// Asked once for each name of elements and attributes, prefix left out.
   virtual TXMLName FindName(std::string_view name) const = 0;

   /// The text is that of the name; the place is that of the tag.
   virtual void StartElement(TXMLName name, std::string_view text,
                             const std::vector<TXMLAttribute>& attributes, TPlace place) = 0;
   virtual void EndElement() = 0;
   /// A piece of text, entity references and CDATA done; one text may come in several pieces. The
   /// place is one in the text.
   virtual void Text(std::string_view text, TPlace place) = 0;

   /// A processing instruction `<?target content?>`; passed over unless a handler cares.
   virtual void Instruction(std::string_view /*target*/, std::string_view /*content*/,
                            TPlace /*place*/)
   {}
};

/// How far into a document its root element is looked for before the slower scanner takes it.
constexpr std::size_t kPrologBytes = 4096;

/// Reads a document in constant memory, in any encoding that it declares. Plain UTF-8 without a
/// document type is read in place, anything else by libxml2.
///
/// Shape:  no file but the given bytes is opened; the external identifier of a DOCTYPE is passed
///         over; an internal subset and a reference to an entity of one are refused at their first
///         byte, so that nothing is ever expanded.
/// Throws: TReadError where the document is not well formed or cannot be read.
void ScanXML(TByteSource& bytes, const std::string& name, TXMLHandler& handler);

}  // namespace NZANQSX20
