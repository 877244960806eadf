#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "readers/TReadError.h"

namespace NZANQSX20 {

/// A file that is being read: its name for messages and the place of a mark in it.
///
/// Shape: a mark is what the reader of the format can note at no cost; only a message turns it
/// into a line and a column.
class TSource
{
public:
   explicit TSource(std::string name) : fName(std::move(name)) {}

   virtual ~TSource() = default;

   const std::string& GetName() const { return fName; }

   virtual TPlace Locate(std::size_t mark) const = 0;

   /// Ends the reading with an error at the mark.
   [[noreturn]] void Fail(std::size_t mark, const std::string& text) const
   {
      throw TReadError(fName, Locate(mark), text);
   }

private:
   std::string fName;
};

/// A file whose marks are line and column themselves, for readers that are told both.
class TPlacedSource : public TSource
{
public:
   using TSource::TSource;

   TPlace Locate(std::size_t mark) const override
   {
      return {mark >> kColumnBits, mark & kColumnMask};
   }

   static std::size_t MakeMark(TPlace place)
   {
      const std::size_t column = place.fColumn < kColumnMask ? place.fColumn : kColumnMask;
      return (place.fLine << kColumnBits) | column;
   }

private:
   static constexpr unsigned kColumnBits = 28;
   static constexpr std::size_t kColumnMask = (std::size_t{1} << kColumnBits) - 1;
};

/// A whole text in memory, UTF-8; marks are byte offsets.
class TSourceText : public TSource
{
public:
   TSourceText(std::string name, std::string text)
      : TSource(std::move(name)), fText(std::move(text))
   {}

   std::string_view GetText() const { return fText; }

   /// Goes on from where it was asked last: marks in ascending order cost one walk together.
   TPlace Locate(std::size_t mark) const override;

   /// Throws: TReadError at the first byte that is no UTF-8.
   void RequireUtf8() const;

private:
   std::string fText;
   mutable std::size_t fLocatedMark = 0;
   mutable TPlace fLocatedPlace = {1, 1};
};

/// What a UTF-8 file may begin with.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The bytes of the character beyond ASCII that the text starts with. Missing: 0 when it is none.
std::size_t MatchUtf8Character(std::string_view text);

/// The offset of the first byte that is no part of a valid UTF-8 character, or npos.
std::size_t FindInvalidUtf8(std::string_view text);

/// A text that begins with the byte order mark of UTF-16 as UTF-8, any other as it is.
/// Throws: TReadError where it is no UTF-16 after all.
std::string ConvertToUtf8(const std::string& name, std::string text);

/// Appends one character as UTF-8. codePoint is no surrogate and at most 0x10FFFF.
void AppendUtf8(std::string& text, char32_t codePoint);

}  // namespace NZANQSX20
