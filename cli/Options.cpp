#include "Options.h"

#include <algorithm>
#include <iostream>
#include <limits>

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include "CommandFailure.h"
#include "CommandPages.h"
#include "DataFolder.h"
#include "LimitOptions.h"
#include "Suggestion.h"
#include "Version.h"

namespace {

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

constexpr TCommandName kCommands[] = {
   {ECommand::kReport, "report", "COLLECTION... | --each FOLDER -o DIR [options]",
    "Write the report pages of one system, or of each in a folder"},
   {ECommand::kCompare, "compare", "BASE OTHER... -o DIR [options]",
    "Write the pages of a comparison of systems with the first of them"},
   {ECommand::kHypervisor, "hypervisor", "COLLECTION... -o DIR [options]",
    "Write the report pages of a hypervisor host"},
   {ECommand::kCatalogue, "catalogue", "COLLECTION... [options]",
    "Print the report definitions for a collection, as JSON"},
   {ECommand::kCheck, "check", "COLLECTION... [options]",
    "Read a collection and tell what it holds and what is wrong"},
   {ECommand::kConvert, "convert", "COLLECTION... -o FILE [options]",
    "Write a collection as one file, in the form that its name asks for"},
   {ECommand::kCollect, "collect", "[-o FILE] [options]",
    "Write this machine as a collection; nothing on it is changed"},
   {ECommand::kMask, "mask", "COLLECTION... -o FILE [options]",
    "Write a collection with stand-ins for what identifies machine and people"},
};

constexpr int kMostJobs = 1024;

constexpr const char* kExitCodes =
   "Exit codes: 0 done; 1 differences (compare --exit-code); 2 usage; 3 input cannot be read; 4 "
   "the run failed or the output cannot be "
   "written; 5 some of several collections failed (report --each).";

bool WritesPages(ECommand command)
{
   return command == ECommand::kReport || command == ECommand::kCompare ||
          command == ECommand::kHypervisor;
}

bool WritesCollection(ECommand command)
{
   return command == ECommand::kConvert || command == ECommand::kMask;
}

/// Whether the library runs over the collection.
bool RunsLibrary(ECommand command)
{
   return WritesPages(command) || command == ECommand::kCatalogue;
}

[[noreturn]] void FailUsage(const std::string& message)
{
   throw TCommandFailure(kExitUsage, message);
}

std::string Suggest(const std::string& word, const std::vector<std::string>& candidates)
{
   const std::string similar = FindSimilar(word, candidates);
   return similar.empty() ? "" : fmt::format("; did you mean '{}'?", similar);
}

/// The help of one command, or of the program, with the usage as it is written by hand.
class THelpText : public CLI::Formatter
{
public:
   std::string make_usage(const CLI::App* app, std::string /*name*/) const override
   {
      for (const TCommandName& name : kCommands)
         if (app->get_name() == name.fName)
            return fmt::format("Usage: qsxreport {} {}\n", name.fName, name.fUsage);
      return "Usage: qsxreport COMMAND [options]\n";
   }

   std::string make_help(const CLI::App* app, std::string name,
                         CLI::AppFormatMode mode) const override
   {
      std::string text = CLI::Formatter::make_help(app, name, mode);
      for (std::size_t at; (at = text.find("\n\n\n")) != std::string::npos;)
         text.erase(at, 1);
      return text;
   }
};

std::vector<std::string> GetFormatNames()
{
   std::vector<std::string> names;
   for (const TFormat& format : GetFormats())
      names.push_back(format.fName);
   return names;
}

/// "html (default): pages ...; trace[:NAME]: every call ..."
std::string DescribeFormats()
{
   std::string text = "Output format, may be given more than once:";
   for (const TFormat& format : GetFormats())
      text += fmt::format("\n{}{}{}: {}", format.fName, format.fTakesName ? "[:NAME]" : "",
                          &format == &GetFormats().front() ? " (default)" : "", format.fSummary);
   return text;
}

void AddCollections(CLI::App& command, ECommand name, TParsedLine& line)
{
   if (name == ECommand::kCompare) {
      command
         .add_option("BASE-OTHER", line.fOptions.fCollections,
                     "Files or folders of CIM data, one per system; - is standard input")
         ->type_name("");
      return;
   }
   command
      .add_option("COLLECTION", line.fOptions.fCollections,
                  "Files or folders of CIM data, read as one namespace; - is standard input")
      ->type_name("");
}

void AddOutputOptions(CLI::App& command, TParsedLine& line)
{
   TOptions& options = line.fOptions;
   command
      .add_option("-o,--output", options.fOutput,
                  "Output folder; it appears whole or not at all; - is standard output")
      ->type_name("DIR")
      ->group("Output");
   command.add_flag("--force", options.fForce, "Replace an output folder that is not empty")
      ->group("Output");
   command.add_option("--format", line.fFormats, DescribeFormats())
      ->type_name("F")
      ->allow_extra_args(false)
      ->group("Output");
}

void AddEachOptions(CLI::App& command, TParsedLine& line)
{
   TOptions& options = line.fOptions;
   CLI::Option* each = command
                          .add_option("--each", options.fEach,
                                      "Report each file and folder in this folder by itself, with "
                                      "an index above")
                          ->type_name("FOLDER")
                          ->group("Several systems");
   command
      .add_option("--jobs", options.fJobs,
                  "So many at a time (default: as many as the machine has cores)")
      ->type_name("N")
      ->check(CLI::Range(1, kMostJobs))
      ->needs(each)
      ->group("Several systems");
   command
      .add_flag("--resume", options.fResume,
                "Keep the pages that are newer than their collection and this program")
      ->needs(each)
      ->group("Several systems");
}

void AddCollectionOutputOptions(CLI::App& command, TParsedLine& line)
{
   TOptions& options = line.fOptions;
   command
      .add_option("-o,--output", options.fOutput,
                  std::string("Output file, ") + NZANQSX20::kCollectionEndings +
                     "; it appears whole or not at all; - is standard output")
      ->type_name("FILE")
      ->group("Output");
   command.add_flag("--force", options.fForce, "Replace an output file that exists")
      ->group("Output");
   command
      .add_option("--format", line.fForm,
                  "What to write where the name does not tell: mof (default for -), xml, mof.gz, "
                  "xml.gz, mof.zst or xml.zst")
      ->type_name("F")
      ->group("Output");
}

void AddMaskOptions(CLI::App& command, TParsedLine& line)
{
   TMaskOptions& options = line.fOptions.fMask;
   command
      .add_option("--term", options.fTerms,
                  "Replace this text, too, such as the name of a customer; may be repeated")
      ->type_name("TEXT")
      ->allow_extra_args(false)
      ->group("Masking");
   command.add_option("--terms", options.fTermsFile, "Replace these texts, too, one a line")
      ->type_name("FILE")
      ->group("Masking");
   command
      .add_option("--key", options.fKeyFile,
                  "Make the stand-ins from the content of this file (default: from the UUID and "
                  "serial number of the machine)")
      ->type_name("FILE")
      ->group("Masking");
   command
      .add_option("--map", options.fMapFile,
                  "Write what stands for what to this file, for its owner alone")
      ->type_name("FILE")
      ->group("Masking");
}

void AddCompareOptions(CLI::App& command, TParsedLine& line)
{
   TOptions& options = line.fOptions;
   CLI::Option* findings =
      command
         .add_option("--findings", options.fFindings,
                     "Take the findings from this collection instead of comparing")
         ->type_name("FILE")
         ->group("Comparison");
   command
      .add_option("--ignore", options.fIgnored,
                  "Do not compare this property, Class.Property or Property; may be repeated")
      ->type_name("NAME")
      ->allow_extra_args(false)
      ->excludes(findings)
      ->group("Comparison");
   command
      .add_flag("--no-default-ignore", options.fComparesUsual,
                "Compare the properties that differ at any time, too: up time, counters, readings")
      ->group("Comparison");
   command
      .add_flag("--list-ignored", options.fListIgnored,
                "Print the properties that are not compared by default")
      ->group("Comparison");
   command.add_flag("--exit-code", options.fExitCode, "Exit with 1 when there are differences")
      ->group("Comparison");
}

void AddRunOptions(CLI::App& command, TParsedLine& line)
{
   TOptions& options = line.fOptions;
   command.add_option("--mode", options.fMode, "Run parameter \"mode\", such as mek")
      ->type_name("MODE")
      ->group("Run");
   command.add_flag("--kmc", options.fKMC, "Set the run parameter \"KMC\"")->group("Run");
   command
      .add_option("--base-directory", options.fBaseDirectory,
                  "Folder of the fixed data files (default: the installed one)")
      ->type_name("DIR")
      ->group("Run");
}

void AddInputOptions(CLI::App& command, TParsedLine& line)
{
   TOptions& options = line.fOptions;
   command
      .add_flag(
         "--strict", options.fStrict,
         "Take the collection as it is: add no expected class, ignore no property by default")
      ->group("Input");
   command
      .add_option("--ipmi-lan", options.fIPMIAddress,
                  "The collection came over IPMI LAN from this address")
      ->type_name("ADDRESS")
      ->group("Input");
}

void AddLimitOptions(CLI::App& command, TParsedLine& line)
{
   command
      .add_option("--limit", line.fLimits,
                  "How much the input may ask for, may be repeated:\n" + DescribeLimits())
      ->type_name("NAME=N")
      ->allow_extra_args(false)
      ->group("Input");
}

void AddMessageOptions(CLI::App& command, TParsedLine& line)
{
   TOptions& options = line.fOptions;
   command.add_option("--log", options.fLogFile, "Write the core's log lines to this file")
      ->type_name("FILE")
      ->group("Messages");
   command
      .add_option(
         "--log-level", options.fLogLevel,
         "Lines up to this level, and notices:\n0 what failed, 1 what is missing, 2 missing "
         "classes (default), 3 all steps")
      ->type_name("N")
      ->group("Messages");
   command.add_flag("-v,--verbose", options.fVerbose, "Log lines to standard error")
      ->group("Messages");
   command.add_flag("-q,--quiet", options.fQuiet, "Errors only")->group("Messages");
   command.add_flag("--no-color", options.fNoColor, "No colour in messages")->group("Messages");
}

void AddCollectOptions(CLI::App& command, TParsedLine& line)
{
   AddCollectionOutputOptions(command, line);
   command
      .add_option(
         "--root", line.fOptions.fRoot,
         "Collect the machine whose files are below this folder; no tool is run, what they "
         "printed is read from its folder qsxreport-tools")
      ->type_name("DIR")
      ->group("Input");
   command
      .add_flag("--mask", line.fOptions.fMasks,
                "Write stand-ins for what identifies the machine and its people")
      ->group("Masking");
   AddMaskOptions(command, line);
   command.add_flag("-q,--quiet", line.fOptions.fQuiet, "Errors only")->group("Messages");
   command.add_flag("--no-color", line.fOptions.fNoColor, "No colour in messages")
      ->group("Messages");
}

void AddReadingOptions(CLI::App& command, ECommand name, TParsedLine& line)
{
   AddCollections(command, name, line);
   if (WritesPages(name))
      AddOutputOptions(command, line);
   if (WritesCollection(name))
      AddCollectionOutputOptions(command, line);
   if (name == ECommand::kMask)
      AddMaskOptions(command, line);
   if (name == ECommand::kReport)
      AddEachOptions(command, line);
   if (name == ECommand::kCompare)
      AddCompareOptions(command, line);
   if (name == ECommand::kCatalogue)
      command.add_flag("--hypervisor", line.fOptions.fHypervisor,
                       "The definitions for a hypervisor host");
   if (RunsLibrary(name))
      AddRunOptions(command, line);
   if (!WritesCollection(name))
      AddInputOptions(command, line);
   if (name != ECommand::kCollect)
      AddLimitOptions(command, line);
   AddMessageOptions(command, line);
}

void AddCommands(CLI::App& app, TParsedLine& line)
{
   for (const TCommandName& name : kCommands) {
      CLI::App& command = *app.add_subcommand(name.fName, name.fSummary);
      command.group("Commands");
      // Looked at below, with a suggestion and ahead of what the typing error makes missing.
      command.allow_extras();
      command.footer(kExitCodes);
      if (name.fCommand == ECommand::kCollect)
         AddCollectOptions(command, line);
      else
         AddReadingOptions(command, name.fCommand, line);
      command.set_help_flag("-h,--help", "Print this help")->group("Messages");
   }
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
   for (const TCommandName& name : kCommands)
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
   for (const TCommandName& name : kCommands)
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
   CLI::App app("Reports from collected CIM data of servers", "qsxreport");
   app.formatter(std::make_shared<THelpText>());
   app.get_formatter()->label("Positionals", "Arguments");
   app.set_help_flag("-h,--help", "Print this help");
   app.set_version_flag("--version", GetVersionText(), "Print the version");
   app.require_subcommand(1);
   app.footer("'qsxreport COMMAND --help' tells the options of a command.\n" +
              std::string(kExitCodes));
   AddCommands(app, line);

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
