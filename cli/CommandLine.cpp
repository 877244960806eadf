#include "CommandLine.h"

#include <fmt/format.h>
#include <CLI/CLI.hpp>

#include "LimitOptions.h"
#include "Version.h"

namespace {

constexpr int kMostJobs = 1024;

constexpr const char* kExitCodes =
   "Exit codes: 0 done; 1 differences (compare --exit-code); 2 usage; 3 input cannot be read; 4 "
   "the run failed or the output cannot be "
   "written; 5 some of several collections failed (report --each, fleet-index).";

/// Whether the library runs over the collection.
bool RunsLibrary(ECommand command)
{
   return WritesPages(command) || command == ECommand::kCatalogue;
}

/// The help of one command, or of the program, with the usage as it is written by hand.
class THelpText : public CLI::Formatter
{
public:
   std::string make_usage(const CLI::App* app, std::string /*name*/) const override
   {
      for (const TCommandName& name : GetCommandNames())
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

void AddQuietOptions(CLI::App& command, TParsedLine& line)
{
   command.add_flag("-q,--quiet", line.fOptions.fQuiet, "Errors only")->group("Messages");
   command.add_flag("--no-color", line.fOptions.fNoColor, "No colour in messages")
      ->group("Messages");
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
   AddQuietOptions(command, line);
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
   AddQuietOptions(command, line);
}

void AddFleetIndexOptions(CLI::App& command, TParsedLine& line)
{
   command
      .add_option("DIR", line.fOptions.fCollections,
                  "Folder of the reports, each with its manifest.json, at any depth")
      ->type_name("");
   command
      .add_flag("--force", line.fOptions.fForce, "Replace DIR/fleet-index even if it is no index")
      ->group("Output");
   AddQuietOptions(command, line);
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
   for (const TCommandName& name : GetCommandNames()) {
      CLI::App& command = *app.add_subcommand(name.fName, name.fSummary);
      command.group("Commands");
      // Looked at below, with a suggestion and ahead of what the typing error makes missing.
      command.allow_extras();
      command.footer(kExitCodes);
      if (name.fCommand == ECommand::kCollect)
         AddCollectOptions(command, line);
      else if (name.fCommand == ECommand::kFleetIndex)
         AddFleetIndexOptions(command, line);
      else
         AddReadingOptions(command, name.fCommand, line);
      command.set_help_flag("-h,--help", "Print this help")->group("Messages");
   }
}

}  // namespace

const std::vector<TCommandName>& GetCommandNames()
{
   static const std::vector<TCommandName> kCommands = {
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
      {ECommand::kFleetIndex, "fleet-index", "DIR [options]",
       "Write an index of all machines whose reports stand below a folder"},
   };
   return kCommands;
}

bool WritesPages(ECommand command)
{
   return command == ECommand::kReport || command == ECommand::kCompare ||
          command == ECommand::kHypervisor;
}

bool WritesCollection(ECommand command)
{
   return command == ECommand::kConvert || command == ECommand::kMask;
}

std::unique_ptr<CLI::App> MakeCommandLine(TParsedLine& line)
{
   auto made =
      std::make_unique<CLI::App>("Reports from collected CIM data of servers", "qsxreport");
   CLI::App& app = *made;
   app.formatter(std::make_shared<THelpText>());
   app.get_formatter()->label("Positionals", "Arguments");
   app.set_help_flag("-h,--help", "Print this help");
   app.set_version_flag("--version", GetVersionText(), "Print the version");
   app.require_subcommand(1);
   app.footer("'qsxreport COMMAND --help' tells the options of a command.\n" +
              std::string(kExitCodes));
   AddCommands(app, line);
   return made;
}
