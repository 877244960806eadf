#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "readers/TByteWindow.h"
#include "readers/TReadError.h"
#include "readers/XMLCharacters.h"

namespace NZANQSX20 {

/// Thrown where markup goes on behind the window: it is scanned again once more of it is there.
struct TNeedsMoreXML
{};

/// A place in an XML document, and the small things that can be read from there.
///
/// Shape:  the text of the window goes from fCursor to fEnd, where a 0 stands. A reading takes a
///         pointer of its own and moves that; fCursor moves once the thing read is complete.
/// Throws: TReadError with the place for what XML does not allow; TNeedsMoreXML where the window
///         ends too early to tell.
class TXMLCursor
{
protected:
   TXMLCursor(TByteWindow& window, const std::string& name);

   /// Brings more of the file behind what lies there; every pointer into the text ends.
   /// Throws: TReadError at the end of the file.
   void Extend();

   /// The same. Missing: false at the end of the file.
   bool TryExtend();

   std::size_t GetLeft(const char* cursor) const { return static_cast<std::size_t>(fEnd - cursor); }

   /// Whether the text goes on as told.
   bool GoesOn(const char* cursor, std::string_view expected) const;

   /// Where the text holds what is told, at the cursor or behind.
   const char* Find(const char* cursor, std::string_view what) const;

   TPlace GetPlace(const char* cursor) const { return {fLine, GetOffset(cursor) - fLineStart + 1}; }

   /// A line ends with the byte at the cursor.
   void CountLine(const char* cursor)
   {
      ++fLine;
      fLineStart = GetOffset(cursor) + 1;
   }

   [[noreturn]] void Fail(const char* cursor, const std::string& text) const;

   /// Fails at the character found instead of the thing expected.
   [[noreturn]] void FailAt(const char* cursor, std::string_view expected) const;

   /// Moves fCursor over characters of any kind that a document may hold.
   void Pass(const char* end);

   /// Moves over one character that is not ASCII.
   const char* PassWide(const char* cursor);

   void SkipBlank(const char*& cursor)
   {
      if (*cursor == '\n')
         CountLine(cursor);
      ++cursor;
   }

   void SkipBlanks(const char*& cursor)
   {
      while (IsXMLByte(*cursor, kXMLBlank))
         SkipBlank(cursor);
   }

   std::string_view ReadName(const char*& cursor)
   {
      const char* const start = cursor;
      if (IsXMLByte(*cursor, kXMLNameStart))
         while (IsXMLByte(*++cursor, kXMLName)) {
         }
      // No name is complete before what ends it.
      if (cursor == start || cursor == fEnd || static_cast<unsigned char>(*cursor) >= 0x80)
         ReadWideName(start, cursor);
      return {start, static_cast<std::size_t>(cursor - start)};
   }

   /// The text that an entity or character reference stands for.
   std::string ReadReference(const char*& cursor);

   const char* fCursor = nullptr;
   const char* fEnd = nullptr;
   bool fIsAtEnd = false;
   std::size_t fLine = 1;
   /// What to take off an offset in the file to get its column.
   std::size_t fLineStart = 0;

private:
   void Look();
   void ReadWideName(const char* start, const char*& cursor);
   char32_t ReadCharacterNumber(const char*& cursor) const;
   std::string_view FindEntity(const char* start, std::string_view name) const;

   std::size_t GetOffset(const char* cursor) const
   {
      return fPassed + static_cast<std::size_t>(cursor - fText);
   }

   TByteWindow& fWindow;
   const std::string& fName;
   const char* fText = nullptr;
   /// How many bytes of the file lie ahead of fText.
   std::size_t fPassed = 0;
};

}  // namespace NZANQSX20
