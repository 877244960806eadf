#pragma once

#include <cstdint>
#include <string_view>

#include "common/OutputFile.h"

/// A piece of markup. Only a literal becomes one: "<td>"_html.
class TMarkup
{
public:
   constexpr std::string_view Get() const { return fText; }

   friend constexpr TMarkup operator""_html(const char* text, std::size_t length);

private:
   constexpr explicit TMarkup(std::string_view text) : fText(text) {}

   std::string_view fText;
};

constexpr TMarkup operator""_html(const char* text, std::size_t length)
{
   return TMarkup(std::string_view(text, length));
}

/// A text that anybody may have written, for the content of an element and for a quoted attribute.
struct TText
{
   std::string_view fText;
};

/// Whether a reader would see nothing of the text.
inline bool IsBlank(std::string_view text)
{
   return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// A file beside the page, for an attribute that holds an address. It can't name another place:
/// what is no letter, digit, "-", "_", "." or "~" is percent-encoded.
struct TFileUrl
{
   std::string_view fFile;
};

/// A file below the page's folder or beside it, its parts with "/" between them. Each part is
/// encoded as a TFileUrl is. Only who made the path decides where it leads: "..", too.
struct TPathUrl
{
   std::string_view fPath;
};

/// A number as it is: 2500.
struct TNumber
{
   std::uint64_t fNumber;
};

/// A number for readers: 2,500.
struct TCount
{
   std::uint64_t fNumber;
};

/// Writes HTML to a file. There is no way to write a std::string: it must say what it is.
///
/// Shape: the page is valid UTF-8. In a text the five characters of markup are escaped, bytes that
///        are no UTF-8 become U+FFFD, control characters are shown by their pictures, and
///        characters that turn the direction of the text become U+FFFD.
/// Owner: the file stays the caller's.
class THtmlSink
{
public:
   explicit THtmlSink(TOutputFile& file) : fFile(file) {}

   THtmlSink& operator<<(TMarkup markup)
   {
      fFile.Write(markup.Get());
      return *this;
   }

   THtmlSink& operator<<(TText text);
   THtmlSink& operator<<(TFileUrl url);
   THtmlSink& operator<<(TPathUrl url);
   THtmlSink& operator<<(TNumber number);
   THtmlSink& operator<<(TCount count);

   TOutputFile& GetFile() { return fFile; }

private:
   TOutputFile& fFile;
};
