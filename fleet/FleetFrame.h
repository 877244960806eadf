#pragma once

#include <cstddef>
#include <string>

#include "TFleet.h"
#include "html/HtmlOptions.h"
#include "html/HtmlParts.h"
#include "html/HtmlSink.h"

// The frame of the pages of a fleet, and what their tables share.

/// Owner: everything is the caller's.
struct TFleetSite
{
   const TFleet& fFleet;
   const THtmlOptions& fOptions;
   /// Files of the pages below.
   std::size_t fMachineFiles = 1;
   std::size_t fFirmwareFiles = 1;
};

enum class EFleetPage
{
   kMachines,
   kFirmware
};

/// Rows of a page, so few that a file of the longest texts stays below 2 MB.
constexpr std::size_t kRowsPerFile = 250;

/// The name of a page without its ending, and the file of one of its parts, counted from 0.
const char* GetStem(EFleetPage page);
std::string GetFileName(EFleetPage page, std::size_t file);

/// Files that so many rows take; one where there is none.
std::size_t CountFiles(std::size_t rows);

/// From the first byte to the begin of the sheet.
void WriteFleetPageBegin(THtmlSink& out, const TFleetSite& site, EFleetPage page, std::size_t file);
void WriteFleetPageEnd(THtmlSink& out, const TFleetSite& site, EFleetPage page);

/// The list of the files of a page: "1 to 250".
THtmlParts GetParts(THtmlSink& out, const TFleetSite& site, EFleetPage page, std::size_t file,
                    std::size_t rows);

/// Writes a link to the report of a machine.
void WriteMachineLink(THtmlSink& out, const TFleetMachine& machine);

/// "../place/index.html"
std::string GetMachinePath(const TFleetMachine& machine);

/// Writes links to the machines that have a level, and how many more there are.
void WriteExamples(THtmlSink& out, const TFleet& fleet, const TFirmwareLevels::TLevel& level);
