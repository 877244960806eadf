#pragma once

#include <functional>
#include <string>
#include <string_view>

/// Fills a sentence's template: "The drive[ in slot {Slot}]" with the text of Slot. A part in
/// brackets falls away when one of its texts is empty. Parts are not nested.
std::string FillTemplate(std::string_view text,
                         const std::function<std::string(std::string_view name)>& getText);

/// The text with its first letter small, unless it is a word in capitals: "defunct", "OK".
std::string MakeSmall(std::string_view text);

/// A text of the collection, short enough to stand in a sentence.
std::string Shorten(std::string_view text, std::size_t most);
