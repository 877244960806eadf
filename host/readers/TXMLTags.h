#pragma once

#include <cstddef>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "readers/XMLScanner.h"

namespace NZANQSX20 {

/// A start tag, read.
struct TXMLTag
{
   /// From "<" to ">".
   std::string fText;
   TXMLName fNumber = 0;
   /// As written, and without its prefix.
   std::string_view fName;
   std::string_view fLocalName;
   std::vector<TXMLAttribute> fAttributes;
   bool fIsEmpty = false;
   /// The tags that came next and second next the last time.
   TXMLTag* fNext = nullptr;
   TXMLTag* fSecondNext = nullptr;
};

/// The start tags of a document: most are written again and again, in the same order.
///
/// Owner: a tag lasts as long as this.
class TXMLTags
{
public:
   /// The tag whose text the document goes on with, where it is one of those expected here.
   /// Missing: null, which says nothing about the document.
   const TXMLTag* Guess(const char* cursor, std::size_t left)
   {
      // Two tags ago tells more: values all have one tag, the properties around them do not.
      for (TXMLTag* const guess : {fSecondLast->fSecondNext, fLast->fNext}) {
         if (guess != nullptr && guess->fText.size() <= left &&
             std::memcmp(guess->fText.data(), cursor, guess->fText.size()) == 0) {
            Follow(*guess);
            return guess;
         }
      }
      return nullptr;
   }

   /// Keeps a tag that was no expected one. Its views point into the text or to what lasts longer.
   void Learn(std::string_view text, TXMLName number, std::string_view name,
              std::string_view localName, const std::vector<TXMLAttribute>& attributes,
              bool isEmpty);

private:
   void Follow(TXMLTag& tag)
   {
      fLast->fNext = &tag;
      fSecondLast->fSecondNext = &tag;
      fSecondLast = fLast;
      fLast = &tag;
   }

   static constexpr std::size_t kLongestText = 400;
   static constexpr std::size_t kMostTags = 4000;

   std::deque<TXMLTag> fTags = std::deque<TXMLTag>(1);
   std::unordered_map<std::string_view, TXMLTag*> fByText;
   /// Before the first tag stands one without a text.
   TXMLTag* fLast = &fTags.front();
   TXMLTag* fSecondLast = &fTags.front();
};

}  // namespace NZANQSX20
