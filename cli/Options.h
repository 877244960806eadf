#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Formats.h"
#include "TCIMValue.h"
#include "readers/TReadLimits.h"
#include "writers/CollectionForm.h"

enum class ECommand
{
   kReport,
   kCompare,
   kHypervisor,
   kCatalogue,
   kCheck,
   kConvert,
   kCollect,
   kMask,
   kFleetIndex
};

/// One --format: the format and the name behind its colon.
struct TFormatChoice
{
   const TFormat* fFormat = nullptr;
   std::string fName;
};

/// What masking a collection is told.
struct TMaskOptions
{
   std::vector<std::string> fTerms;
   /// A file with further terms, one a line, or empty.
   std::string fTermsFile;
   /// The file that the key is made from, or empty.
   std::string fKeyFile;
   /// Where the map is written, or empty.
   std::string fMapFile;
};

/// The command line, checked.
struct TOptions
{
   ECommand fCommand = ECommand::kReport;
   /// compare: the base first. fleet-index: the one folder.
   std::vector<std::string> fCollections;

   /// report: the folder whose files and folders are a collection each, or empty.
   std::string fEach;
   /// report --each: how many at a time; 0 is as many as the machine has cores.
   int fJobs = 0;
   /// report --each: pages that are newer than their collection stay.
   bool fResume = false;

   /// compare: the collection that holds the findings, or empty.
   std::string fFindings;
   /// compare: the properties that are not compared, "Class.Property" or "Property".
   std::vector<std::string> fIgnored;
   /// compare: the properties that usually differ are compared, too.
   bool fComparesUsual = false;
   /// compare: print those properties, and nothing else.
   bool fListIgnored = false;
   /// compare: differences give an exit code of their own.
   bool fExitCode = false;
   /// catalogue: the definitions of the hypervisor's variant.
   bool fHypervisor = false;

   /// collect: the root of the machine's files.
   std::string fRoot = "/";

   /// A folder; of a command that writes a collection, a file.
   /// Missing: empty for collect, which then makes a name.
   std::string fOutput;
   bool fForce = false;
   /// convert, collect, mask: the form of the file that is written.
   NZANQSX20::TCollectionForm fForm;
   std::vector<TFormatChoice> fFormats;

   /// mask, collect: whether stand-ins are written.
   bool fMasks = false;
   TMaskOptions fMask;

   std::optional<std::string> fMode;
   bool fKMC = false;
   std::string fBaseDirectory;
   bool fStrict = false;
   std::string fIPMIAddress;
   /// How much the collections may ask for.
   NZANQSX20::TReadLimits fLimits;

   std::string fLogFile;
   int fLogLevel = 2;
   bool fVerbose = false;
   bool fQuiet = false;
   bool fNoColor = false;
};

/// The run parameters that the options ask for: "mode" and "KMC".
NZANQSX20::TContext GetRunParameters(const TOptions& options);

/// Reads the command line.
/// Missing: nothing when the call only asked for help or the version, which is then printed.
/// Throws: TCommandFailure for a wrong use, with a hint in the message.
std::optional<TOptions> ParseOptions(int argc, char** argv);
