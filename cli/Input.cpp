#include "Input.h"

#include <algorithm>

#include "Console.h"
#include "Options.h"
#include "RunLog.h"
#include "StandardInput.h"
#include "readers/ExpectedClasses.h"
#include "services/IPMILan.h"

using NZANQSX20::ICIMNamespace;
using NZANQSX20::TCollection;
using NZANQSX20::TMemoryStore;

namespace {

constexpr const char* kHypervisorClass = "VMware_HypervisorSoftwareIdentity";
constexpr const char* kServerClass = "ZANSG_OperatingSystem";

bool ReadsStandardInput(const std::vector<std::string>& paths)
{
   return std::count(paths.begin(), paths.end(), "-") > 0;
}

bool HasInstances(const TMemoryStore& store, const char* className)
{
   const auto* top = store.GetSchema().Find(className);
   if (top == nullptr)
      return false;
   const auto classes = store.GetSchema().GetWithSubclasses(*top);
   return std::any_of(classes.begin(), classes.end(), [&store](const auto* storedClass) {
      return store.CountInstances(*storedClass) > 0;
   });
}

/// A collection that is plainly one for the other command gives pages without data.
std::vector<std::string> FindWrongCommand(ECommand command, const TMemoryStore& store)
{
   const bool isHypervisor = HasInstances(store, kHypervisorClass);
   const bool isServer = HasInstances(store, kServerClass);
   if (command == ECommand::kReport && isHypervisor && !isServer)
      return {"this is the collection of a hypervisor host: 'qsxreport hypervisor' reports it"};
   if (command == ECommand::kHypervisor && isServer && !isHypervisor)
      return {"this is not the collection of a hypervisor host: 'qsxreport report' reports it"};
   return {};
}

}  // namespace

TCollection ReadCollections(const TOptions& options, const std::vector<std::string>& paths,
                            TConsole& console)
{
   // Once per format; with a single one there is nothing to go back to.
   if (ReadsStandardInput(paths) && options.fFormats.size() > 1)
      RewindStandardInput();
   console.Progress("Reading " + paths.front());
   return NZANQSX20::LoadCollection(paths, options.fLimits);
}

std::vector<std::string> AddExpectedClasses(const TOptions& options, TMemoryStore& store)
{
   if (options.fStrict)
      return {};
   return NZANQSX20::DeclareExpectedClasses(store);
}

boost::shared_ptr<ICIMNamespace> ReadInput(const TOptions& options, TConsole& console, TRunLog& log)
{
   NZANQSX20::SetIPMILanAddress(options.fIPMIAddress);
   TCollection collection = ReadCollections(options, options.fCollections, console);
   const auto wrongCommand = FindWrongCommand(options.fCommand, *collection.fStore);
   log.TellWarnings(collection.fWarnings, wrongCommand);
   AddExpectedClasses(options, *collection.fStore);
   return NZANQSX20::OpenNamespace(collection.fStore);
}
