#pragma once

#include "writer/TWriter.h"

/// Writes the data of memory modules in tables of at most eight, the last one shorter.
/// Missing: no instances, no table.
void WriteMemoryModuleTables(TWriter& writer, const TWriter::TReportClass& reportClass,
                             const TWriter::TInstances& instances);
