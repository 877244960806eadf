#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Options.h"

namespace CLI {
class App;
}

/// The options with the texts that are checked once the whole line has been read.
struct TParsedLine
{
   TOptions fOptions;
   std::vector<std::string> fFormats;
   std::string fForm;
   std::vector<std::string> fLimits;
};

struct TCommandName
{
   ECommand fCommand;
   const char* fName;
   const char* fUsage;
   const char* fSummary;
};

/// All commands, in the order in which they are told.
const std::vector<TCommandName>& GetCommandNames();

/// Of a run of the library, and of one that writes a collection.
bool WritesPages(ECommand command);
bool WritesCollection(ECommand command);

/// The commands with their options and help. Owner: what is read goes into the line, which outlives
/// it.
std::unique_ptr<CLI::App> MakeCommandLine(TParsedLine& line);
