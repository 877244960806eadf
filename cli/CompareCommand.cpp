#include "CompareCommand.h"

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
using TStores = std::vector<boost::shared_ptr<NZANQSX20::TMemoryStore>>;

namespace {

/// The collections, read and compared.
struct TComparison
{
   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::size_t fFindings = 0;
};

TStores ReadStores(const TOptions& options, TConsole& console, std::vector<std::string>& warnings)
{
   TStores stores;
   for (const std::string& path : options.fCollections) {
      TCollection collection = ReadCollections(options, {path}, console);
      warnings.insert(warnings.end(), collection.fWarnings.begin(), collection.fWarnings.end());
      AddExpectedClasses(options, *collection.fStore);
      stores.push_back(collection.fStore);
   }
   return stores;
}

TIgnoredProperties GetIgnoredProperties(const TOptions& options, const TDeltaRepository& repository,
                                        std::vector<std::string>& warnings)
{
   TIgnoredProperties ignored;
   for (const std::string& name : options.fIgnored)
      ignored.Add(name);
   for (const std::string& name : ignored.FindUnknown(repository.GetSchema().GetClasses()))
      warnings.push_back(fmt::format("--ignore {}: no class has this property", name));
   if (!options.fStrict)
      for (const std::string& name : NZANQSX20::GetUsuallyDifferentProperties())
         ignored.Add(name);
   return ignored;
}

TComparison Compare(const TOptions& options, TConsole& console, TRunLog& log)
{
   std::vector<std::string> warnings;
   TDeltaRepository repository(ReadStores(options, console, warnings));
   TComparison comparison;
   if (options.fFindings.empty()) {
      console.Progress("Comparing");
      comparison.fFindings =
         repository.FindDifferences(GetIgnoredProperties(options, repository, warnings));
   } else {
      TCollection findings = ReadCollections(options, {options.fFindings}, console);
      comparison.fFindings = repository.TakeFindings(*findings.fStore, options.fStrict, warnings);
   }
   log.TellWarnings(warnings);
   comparison.fNamespace = repository.Open();
   return comparison;
}

}  // namespace

EExitCode RunCompareCommand(const TOptions& options, TConsole& console)
{
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
   return options.fExitCode && findings > 0 ? kExitDifferences : kExitDone;
}
