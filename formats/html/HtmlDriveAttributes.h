#pragma once

#include "common/DriveAttributes.h"
#include "html/HtmlSink.h"

/// Writes the bar of an attribute: its value as the fill, its worst value as a short mark, its
/// threshold as a long one.
void WriteAttributeBar(THtmlSink& out, const TDriveAttribute& attribute);

/// Writes name, bar and numbers of an attribute as a row of a picture.
void WriteAttributeRow(THtmlSink& out, const TDriveAttribute& attribute);

/// Writes the figure above a table of attributes. Missing: nothing where none has a threshold.
void WriteAttributeFigure(THtmlSink& out, const TClosestAttributes& attributes);
