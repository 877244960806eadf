#include "CompareCommand.h"

#include <algorithm>
#include <iostream>

#include <fmt/format.h>

#include "Console.h"
#include "Formats.h"
#include "Input.h"
#include "Options.h"
#include "PageRun.h"
#include "RunLog.h"
#include "comparison/TDeltaRepository.h"
#include "run/TReport.h"

using NZANQSX20::TCollection;
using NZANQSX20::TDeltaRepository;
using NZANQSX20::TIgnoredProperties;
using NZANQSX20::TMemoryStore;
using NZANQSX20::TStoredClass;
using TStores = std::vector<boost::shared_ptr<NZANQSX20::TMemoryStore>>;

namespace {

constexpr const char* kTimeZoneName = "ZANSG_TimeZone";
/// Findings that a findings file holds and nobody can use may be many.
constexpr std::size_t kToldFindings = 5;

/// The collections, read and compared.
struct TComparison
{
   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::size_t fFindings = 0;
};

/// What is told about a comparison.
struct TWarnings
{
   /// About the collections: they come as their number.
   std::vector<std::string> fOfInput;
   std::vector<std::string> fInFull;
};

TCollection ReadCollection(const TOptions& options, const std::string& path, TConsole& console,
                           TWarnings& warnings)
{
   TCollection collection = ReadCollections(options, {path}, console);
   warnings.fOfInput.insert(warnings.fOfInput.end(), collection.fWarnings.begin(),
                            collection.fWarnings.end());
   return collection;
}

TStores ReadStores(const TOptions& options, TConsole& console, TWarnings& warnings)
{
   TStores stores;
   for (const std::string& path : options.fCollections) {
      stores.push_back(ReadCollection(options, path, console, warnings).fStore);
      AddExpectedClasses(options, *stores.back());
   }
   return stores;
}

bool HasOwnInstances(const TMemoryStore& store, const std::string& className)
{
   const TStoredClass* storedClass = store.GetSchema().Find(className);
   return storedClass != nullptr && store.CountInstances(*storedClass) > 0;
}

/// Whether some class has instances in both.
bool HaveCommonClass(const TMemoryStore& base, const TMemoryStore& other)
{
   const std::vector<TStoredClass*>& classes = base.GetSchema().GetClasses();
   return std::any_of(classes.begin(), classes.end(), [&](const TStoredClass* storedClass) {
      return base.CountInstances(*storedClass) > 0 &&
             HasOwnInstances(other, storedClass->GetName());
   });
}

/// The operating system's type as a report shows it. Missing: the empty text.
std::string ReadSystemType(const boost::shared_ptr<TMemoryStore>& store)
{
   try {
      const auto cimClass = NZANQSX20::OpenNamespace(store)->GetClass("ZANSG_OperatingSystem", {});
      std::vector<boost::shared_ptr<ICIMInstance>> systems;
      cimClass->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(systems), true, {});
      return systems.empty() ? "" : systems.front()->GetProperty("OSType", {})->GetValueString();
   } catch (const NZANQSX20::TQSXException&) {
      return "";
   }
}

/// Tells of collections that there is little to compare between.
void CheckLikeness(const TOptions& options, const TStores& stores, TWarnings& warnings)
{
   const std::string baseType = ReadSystemType(stores.front());
   for (std::size_t i = 1; i < stores.size(); ++i) {
      const std::string type = ReadSystemType(stores[i]);
      const std::string names =
         fmt::format("{} and {}", options.fCollections.front(), options.fCollections[i]);
      if (!HaveCommonClass(*stores.front(), *stores[i]))
         warnings.fInFull.push_back(
            names + " have no class in common: all that they hold is missing or unique");
      else if (!baseType.empty() && !type.empty() && type != baseType)
         warnings.fInFull.push_back(fmt::format(
            "{} are of different operating systems, {} and {}: the reports are those of the first",
            names, baseType, type));
   }
}

/// The run can only end where its labels need a class that is not there: the reason in words.
void CheckTimeZone(const TOptions& options, const TDeltaRepository& repository, TWarnings& warnings)
{
   if (options.fStrict && repository.GetSchema().Find(kTimeZoneName) == nullptr)
      warnings.fInFull.push_back(fmt::format(
         "no collection declares {}, which tells systems of one serial number apart; without "
         "--strict the run does not need it",
         kTimeZoneName));
}

TIgnoredProperties GetIgnoredProperties(const TOptions& options, const TDeltaRepository& repository,
                                        TWarnings& warnings)
{
   TIgnoredProperties ignored;
   for (const std::string& name : options.fIgnored)
      ignored.Add(name);
   for (const std::string& name : ignored.FindUnknown(repository.GetSchema().GetClasses()))
      warnings.fInFull.push_back(fmt::format("--ignore {}: no class has this property", name));
   if (!options.fStrict && !options.fComparesUsual)
      for (const std::string& name : NZANQSX20::GetUsuallyDifferentProperties())
         ignored.Add(name);
   return ignored;
}

std::size_t TakeFindings(const TOptions& options, TDeltaRepository& repository, TConsole& console,
                         TWarnings& warnings)
{
   const TCollection findings = ReadCollection(options, options.fFindings, console, warnings);
   std::vector<std::string> bad;
   const std::size_t count = repository.TakeFindings(*findings.fStore, options.fStrict, bad);
   if (count == 0 && bad.empty())
      warnings.fInFull.push_back(options.fFindings + " holds no findings");
   const std::size_t told = std::min(bad.size(), kToldFindings);
   warnings.fInFull.insert(warnings.fInFull.end(), bad.begin(),
                           bad.begin() + static_cast<std::ptrdiff_t>(told));
   if (told < bad.size())
      warnings.fInFull.push_back(
         fmt::format("{} more findings name what is not there; -v tells them", bad.size() - told));
   warnings.fOfInput.insert(warnings.fOfInput.end(),
                            bad.begin() + static_cast<std::ptrdiff_t>(told), bad.end());
   return count;
}

TComparison Compare(const TOptions& options, TConsole& console, TRunLog& log)
{
   TWarnings warnings;
   const TStores stores = ReadStores(options, console, warnings);
   CheckLikeness(options, stores, warnings);
   TDeltaRepository repository(stores);
   CheckTimeZone(options, repository, warnings);
   TComparison comparison;
   if (options.fFindings.empty()) {
      console.Progress("Comparing");
      comparison.fFindings =
         repository.FindDifferences(GetIgnoredProperties(options, repository, warnings));
   } else
      comparison.fFindings = TakeFindings(options, repository, console, warnings);
   log.TellWarnings(warnings.fOfInput, warnings.fInFull);
   comparison.fNamespace = repository.Open();
   return comparison;
}

/// What differs in one sentence, for those who read no pages.
void TellDifferences(std::size_t findings, TConsole& console)
{
   if (findings == 0)
      console.Note("no differences");
   else
      console.Note(fmt::format("{} difference{}", findings, findings == 1 ? "" : "s"));
}

/// The list can be read again by "--ignore".
void ListIgnored()
{
   for (const std::string& name : NZANQSX20::GetUsuallyDifferentProperties())
      std::cout << name << '\n';
}

}  // namespace

EExitCode RunCompareCommand(const TOptions& options, TConsole& console)
{
   if (options.fListIgnored) {
      ListIgnored();
      return kExitDone;
   }
   TContext params = GetRunParameters(options);
   params["nNamespaces"] = static_cast<unsigned short>(options.fCollections.size());
   std::size_t findings = 0;
   WriteFormats(options, console, [&](TRunLog& log) -> TRunInFormat {
      const TComparison comparison = Compare(options, console, log);
      findings = comparison.fFindings;
      return [=, &log](const TFormat& format, const TWriterSettings& settings) {
         const auto run = format.fMakeRun(settings);
         RunFormat(*run, log, [&] {
            TReport report(comparison.fNamespace, params, settings.fOutputDirectory);
            report.Write(&run->GetWriter(), params);
         });
      };
   });
   TellDifferences(findings, console);
   return options.fExitCode && findings > 0 ? kExitDifferences : kExitDone;
}
