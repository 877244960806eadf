#pragma once

#include <string>
#include <string_view>

#include "html/HtmlOptions.h"
#include "html/HtmlSink.h"

// What every page has, whatever it is about.

constexpr const char* kStyleSheetFile = "pages.css";
constexpr const char* kScriptFile = "pages.js";

/// From the first byte to the begin of the body: policy, title, shapes of the states.
void WriteDocumentBegin(THtmlSink& out, std::string_view title);

/// The bar of narrow screens with the button that opens the side bar, and the begin of the two
/// columns. of: what the title is a part of. Missing: empty.
void WriteTopBar(THtmlSink& out, std::string_view title, std::string_view of, TMarkup button);

/// Controls that the pages' script brings to life; without scripts they are hidden.
void WriteSearchField(THtmlSink& out, TMarkup label);
void WriteThemeChoice(THtmlSink& out);

/// From the foot of the page, which says where it comes from, to the last byte.
/// Missing: an empty title on the first page of all.
void WriteDocumentEnd(THtmlSink& out, std::string_view name, std::string_view title,
                      const THtmlOptions& options);

/// Writes style sheet and script beside the pages. Throws: TOutputError.
void WriteBundledFiles(const std::string& outputDirectory);
