#pragma once

#include <string_view>

#include "common/StateWords.h"
#include "html/HtmlSink.h"

/// Writes the shapes of the states once, where a page begins; the marks on it refer to them.
void WriteStateShapes(THtmlSink& out);

/// Writes shape and word of a state, with a blank behind. The word is only read aloud where the
/// text that follows begins with it. Missing: nothing for kNone.
void WriteStateMark(THtmlSink& out, EState state, std::string_view text);

/// Writes the shape of a state ahead of a text that has a word of its own for it.
void WriteStateShape(THtmlSink& out, EState state);

/// Writes the shape of a state alone; its word is read aloud. Missing: nothing for kNone and kOk.
void WriteStateGlyph(THtmlSink& out, EState state);

/// "Failed", "Attention", "OK", "Unknown". Missing: empty for kNone.
std::string_view GetStateWord(EState state);

/// The class that colours a text by its state: "is-failed".
TMarkup GetStateColour(EState state);

/// The one of three that a state asks for. All states but the two worst are plain.
TMarkup ChooseByState(EState state, TMarkup failed, TMarkup attention, TMarkup plain);

/// The class of a cell that stands out: a ground for failed, an edge for attention, and the
/// others are plain. Missing: empty, without a blank.
TMarkup GetStateClass(EState state);
