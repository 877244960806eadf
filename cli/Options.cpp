#include "Options.h"

#include <algorithm>
#include <iostream>
#include <limits>

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include "CommandFailure.h"
#include "CommandLine.h"
#include "CommandPages.h"
#include "DataFolder.h"
#include "LimitOptions.h"
#include "Suggestion.h"
#include "Version.h"

namespace {

[[noreturn]] void FailUsage(const std::string& message)
{
   throw TCommandFailure(kExitUsage, message);
}

std::string Suggest(const std::string& word, const std::vector<std::string>& candidates)
{
   const std::string similar = FindSimilar(word, candidates);
   return similar.empty() ? "" : fmt::format("; did you mean '{}'?", similar);
}

std::vector<std::string> GetFormatNames()
{
   std::vector<std::string> names;
   for (const TFormat& format : GetFormats())
      names.push_back(format.fName);
   return names;
}

std::vector<std::string> GetOptionNames(const CLI::App& command)
{
   std::vector<std::string> names;
   for (const CLI::Option* option : command.get_options())
      for (const std::string& name : option->get_lnames())
         names.push_back("--" + name);
   return names;
}

/// A word in the place of the command that is none.
void CheckCommandName(int argc, char** argv)
{
   if (argc < 2)
      FailUsage("no command; 'qsxreport --help' lists them");
   const std::string word = argv[1];
   std::vector<std::string> names = {"-h", "--help", "--version"};
   for (const TCommandName& name : GetCommandNames())
      names.push_back(name.fName);
   if (std::find(names.begin(), names.end(), word) != names.end())
      return;
   const bool isOption = word.rfind('-', 0) == 0;
   const std::string hint = Suggest(word, names);
   FailUsage(fmt::format("unknown {} '{}'{}", isOption ? "option" : "command", word,
                         isOption && hint.empty() ? "; options stand behind the command" : hint));
}

/// "completion SHELL" and "manual COMMAND" are for whoever makes packages: --help doesn't list
/// them.
bool IsCommandPage(int argc, char** argv)
{
   const std::string word = argc == 3 ? argv[1] : "";
   return word == "completion" || word == "manual";
}

void WriteCommandPage(const CLI::App& app, char** argv)
{
   if (argv[1] == std::string("completion")) {
      if (!WriteCompletion(app, argv[2], std::cout))
         FailUsage(fmt::format("no completion for '{}'; there is bash, zsh and fish", argv[2]));
      return;
   }
   const std::string text(std::istreambuf_iterator<char>(std::cin), {});
   if (!WriteManualPage(app, argv[2], text, std::cout))
      FailUsage(fmt::format("no command '{}'", argv[2]));
}

void CheckExtras(const CLI::App& command)
{
   for (const std::string& word : command.remaining()) {
      const std::string name = word.substr(0, word.find('='));
      FailUsage(fmt::format("unknown option '{}'{}", name, Suggest(name, GetOptionNames(command))));
   }
}

TFormatChoice ReadFormat(const std::string& text)
{
   const std::size_t colon = text.find(':');
   TFormatChoice choice;
   choice.fFormat = FindFormat(text.substr(0, colon));
   if (choice.fFormat == nullptr)
      FailUsage(fmt::format("unknown format '{}'{}", text, Suggest(text, GetFormatNames())));
   if (colon == std::string::npos)
      return choice;
   if (!choice.fFormat->fTakesName)
      FailUsage(fmt::format("format '{}' takes no name", choice.fFormat->fName));
   choice.fName = text.substr(colon + 1);
   return choice;
}

std::vector<TFormatChoice> ReadFormats(const std::vector<std::string>& texts)
{
   if (texts.empty())
      return {{&GetFormats().front(), ""}};
   std::vector<TFormatChoice> choices;
   for (const std::string& text : texts) {
      const TFormatChoice choice = ReadFormat(text);
      for (const TFormatChoice& other : choices)
         if (other.fFormat == choice.fFormat)
            FailUsage(fmt::format("format '{}' is given twice", choice.fFormat->fName));
      choices.push_back(choice);
   }
   return choices;
}

/// The form that --format names, else the one of the file's name.
NZANQSX20::TCollectionForm ReadForm(const std::string& format, const std::string& output)
{
   NZANQSX20::TCollectionForm form;
   if (!format.empty()) {
      if (!NZANQSX20::FindCollectionForm('.' + format, form))
         FailUsage(fmt::format("unknown format '{}'", format));
   } else if (output != "-" && !NZANQSX20::FindCollectionForm(output, form)) {
      FailUsage(
         fmt::format("the name '{}' tells no format: {}", output, NZANQSX20::kCollectionEndings));
   }
   return form;
}

/// collect masks only where it is told so.
void CheckMaskOptions(const TOptions& options)
{
   const TMaskOptions& mask = options.fMask;
   const bool tellsHow = !mask.fTerms.empty() || !mask.fTermsFile.empty() ||
                         !mask.fKeyFile.empty() || !mask.fMapFile.empty();
   if (tellsHow && !options.fMasks)
      FailUsage("--term, --terms, --key and --map need --mask");
}

/// Standard output takes what is one file.
void CheckStandardOutput(const TOptions& options)
{
   if (!WritesPages(options.fCommand) || options.fOutput != "-")
      return;
   std::vector<std::string> names;
   for (const TFormat& format : GetFormats())
      if (format.fOneFile != nullptr)
         names.emplace_back(format.fName);
   if (options.fFormats.size() != 1 || options.fFormats.front().fFormat->fOneFile == nullptr)
      FailUsage(fmt::format("standard output takes one format: {}", fmt::join(names, ", ")));
}

void CheckEachOptions(const TOptions& options)
{
   if (!options.fCollections.empty())
      FailUsage("--each FOLDER takes no further COLLECTION");
   if (options.fOutput == "-")
      FailUsage("--each needs a folder for its output");
   if (!options.fLogFile.empty())
      FailUsage("--log takes the lines of one report, not those of --each");
}

TOptions CheckOptions(const CLI::App& command, TParsedLine& line)
{
   TOptions& options = line.fOptions;
   for (const TCommandName& name : GetCommandNames())
      if (command.get_name() == name.fName)
         options.fCommand = name.fCommand;
   CheckExtras(command);
   SetLimits(line.fLimits, options.fLimits);
   if (options.fListIgnored)
      return options;
   options.fMasks = options.fMasks || options.fCommand == ECommand::kMask;
   if (options.fMasks && options.fOutput == "-")
      FailUsage("a masked collection needs a file: it is read back before it appears");
   if (options.fCommand == ECommand::kCollect) {
      CheckMaskOptions(options);
      options.fForm = ReadForm(line.fForm, options.fOutput.empty() ? "-" : options.fOutput);
      return options;
   }
   if (options.fCommand == ECommand::kFleetIndex) {
      if (options.fCollections.size() != 1)
         FailUsage("fleet-index takes one folder, that of the reports");
      return options;
   }
   if (!options.fEach.empty())
      CheckEachOptions(options);
   else if (options.fCollections.empty())
      FailUsage("no COLLECTION to read");
   if (options.fCommand == ECommand::kCompare && options.fCollections.size() < 2)
      FailUsage("no OTHER to compare BASE with");
   if (options.fCollections.size() > std::numeric_limits<unsigned short>::max())
      FailUsage("too many collections");
   if (std::count(options.fCollections.begin(), options.fCollections.end(), "-") > 1)
      FailUsage("standard input can be read once only");
   if (WritesPages(options.fCommand) && options.fOutput.empty())
      FailUsage("--output DIR is missing");
   if (WritesCollection(options.fCommand)) {
      if (options.fOutput.empty())
         FailUsage("--output FILE is missing");
      options.fForm = ReadForm(line.fForm, options.fOutput);
   }
   options.fFormats = ReadFormats(line.fFormats);
   CheckStandardOutput(options);
   if (options.fBaseDirectory.empty())
      options.fBaseDirectory = GetDataFolder();
   return options;
}

}  // namespace

NZANQSX20::TContext GetRunParameters(const TOptions& options)
{
   NZANQSX20::TContext params;
   if (options.fMode)
      params["mode"] = *options.fMode;
   // Only the key counts.
   if (options.fKMC)
      params["KMC"] = "";
   return params;
}

std::optional<TOptions> ParseOptions(int argc, char** argv)
{
   TParsedLine line;
   const std::unique_ptr<CLI::App> made = MakeCommandLine(line);
   CLI::App& app = *made;

   if (IsCommandPage(argc, argv)) {
      WriteCommandPage(app, argv);
      return std::nullopt;
   }
   CheckCommandName(argc, argv);
   try {
      app.parse(argc, argv);
   } catch (const CLI::Success& asked) {
      app.exit(asked, std::cout, std::cerr);
      return std::nullopt;
   } catch (const CLI::ParseError& error) {
      FailUsage(error.what());
   }
   return CheckOptions(*app.get_subcommands().front(), line);
}
