#include "readers/FindPlainRoot.h"

#include <algorithm>

#include "readers/TSourceText.h"
#include "readers/XMLCharacters.h"

namespace NZANQSX20 {

namespace {

std::string_view SkipBlanks(std::string_view text)
{
   while (!text.empty() && IsXMLByte(text[0], kXMLBlank))
      text.remove_prefix(1);
   return text;
}

/// The value of the attribute when the text goes on with it, taken off the text then.
std::string_view TakeAttribute(std::string_view& text, std::string_view name)
{
   const std::string_view start = SkipBlanks(text);
   if (start.size() == text.size() || !StartsWith(start, name))
      return {};
   const std::string_view value = start.substr(name.size());
   if (value.size() < 2 || value[0] != '=' || (value[1] != '"' && value[1] != '\''))
      return {};
   const std::size_t end = value.find(value[1], 2);
   if (end == std::string_view::npos)
      return {};
   text = value.substr(end + 1);
   return value.substr(2, end - 2);
}

/// Whether what stands between "<?xml" and "?>" tells of XML 1.0 in UTF-8.
bool IsPlainDeclaration(std::string_view text)
{
   if (TakeAttribute(text, "version") != "1.0")
      return false;
   const std::string_view encoding = TakeAttribute(text, "encoding");
   if (!encoding.empty() && encoding != "utf-8" && encoding != "UTF-8")
      return false;
   const std::string_view standalone = TakeAttribute(text, "standalone");
   if (!standalone.empty() && standalone != "yes" && standalone != "no")
      return false;
   return SkipBlanks(text).empty();
}

/// Takes a comment off the start of the text, where there is one that is well formed for sure.
bool TakeComment(std::string_view& text)
{
   constexpr std::string_view kStart = "<!--";
   if (!StartsWith(text, kStart))
      return false;
   const std::size_t end = text.find("--", kStart.size());
   if (end == std::string_view::npos || text.substr(end, 3) != "-->")
      return false;
   text.remove_prefix(end + 3);
   return true;
}

/// Takes the declaration at the start of the text, if any, off it. Missing: false where it tells of
/// something else than XML 1.0 in UTF-8, or is not well formed.
bool TakeDeclaration(std::string_view& text)
{
   constexpr std::string_view kStart = "<?xml";
   if (!StartsWith(text, kStart))
      return true;
   const std::size_t end = text.find("?>");
   if (end == std::string_view::npos ||
       !IsPlainDeclaration(text.substr(kStart.size(), end - kStart.size())))
      return false;
   text.remove_prefix(end + 2);
   return true;
}

bool IsPlainByte(char byte)
{
   return (byte >= ' ' && byte < 0x7F) || IsXMLByte(byte, kXMLBlank);
}

}  // namespace

std::size_t FindPlainRoot(std::string_view text)
{
   std::string_view rest = text;
   if (StartsWith(rest, kByteOrderMark))
      rest.remove_prefix(kByteOrderMark.size());
   const std::string_view prolog = rest;
   if (!TakeDeclaration(rest))
      return std::string_view::npos;
   do
      rest = SkipBlanks(rest);
   while (TakeComment(rest));

   const std::size_t size = prolog.size() - rest.size();
   const bool isElement = rest.size() > 1 && rest[0] == '<' && IsXMLByte(rest[1], kXMLNameStart);
   if (!isElement || !std::all_of(prolog.begin(), prolog.begin() + size, IsPlainByte))
      return std::string_view::npos;
   return text.size() - rest.size();
}

}  // namespace NZANQSX20
