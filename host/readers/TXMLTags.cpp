#include "readers/TXMLTags.h"

#include <algorithm>

namespace NZANQSX20 {

namespace {

/// Whether the attributes and the place of what follows can be told from the text alone.
bool IsPlain(std::string_view text, const std::vector<TXMLAttribute>& attributes)
{
   const auto isOdd = [](char byte) { return byte < ' ' || byte == 0x7F || byte == '&'; };
   return std::none_of(text.begin(), text.end(), isOdd) &&
          std::all_of(attributes.begin(), attributes.end(), [text](const TXMLAttribute& each) {
             return each.fValue.data() >= text.data() &&
                    each.fValue.data() <= text.data() + text.size();
          });
}

}  // namespace

void TXMLTags::Learn(std::string_view text, TXMLName number, std::string_view name,
                     std::string_view localName, const std::vector<TXMLAttribute>& attributes,
                     bool isEmpty)
{
   const auto known = fByText.find(text);
   if (known != fByText.end()) {
      Follow(*known->second);
      return;
   }
   if (text.size() > kLongestText || fTags.size() == kMostTags || !IsPlain(text, attributes))
      return;
   TXMLTag& tag = fTags.emplace_back();
   tag.fText = text;
   const auto keep = [&tag, text](std::string_view view) {
      return std::string_view(tag.fText).substr(static_cast<std::size_t>(view.data() - text.data()),
                                                view.size());
   };
   tag.fNumber = number;
   tag.fName = keep(name);
   tag.fLocalName = keep(localName);
   for (const TXMLAttribute& attribute : attributes)
      tag.fAttributes.push_back({attribute.fName, keep(attribute.fValue)});
   tag.fIsEmpty = isEmpty;
   fByText.emplace(tag.fText, &tag);
   Follow(tag);
}

}  // namespace NZANQSX20
