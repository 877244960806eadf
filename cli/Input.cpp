#include "Input.h"

#include <algorithm>
#include <set>

#include "Console.h"
#include "Options.h"
#include "RunLog.h"
#include "StandardInput.h"
#include "readers/ExpectedClasses.h"
#include "services/IPMILan.h"
#include "store/ChangeRecord.h"

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

TCorrection::EKind GetKind(const NZANQSX20::TChangeRecord& change)
{
   switch (change.fKind) {
      case NZANQSX20::TChangeRecord::kAdded:
         return TCorrection::kAdded;
      case NZANQSX20::TChangeRecord::kRemoved:
         return TCorrection::kRemoved;
      case NZANQSX20::TChangeRecord::kChanged:
         break;
   }
   return TCorrection::kChanged;
}

std::vector<TCorrection> ReadCorrections(const TMemoryStore& store)
{
   std::vector<TCorrection> corrections;
   for (const NZANQSX20::TChangeRecord& change : NZANQSX20::DescribeChanges(store))
      corrections.push_back({GetKind(change), change.fClass, change.fInstance, change.fProperty,
                             change.fFrom, change.fTo});
   return corrections;
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

TRunInput ReadInput(const TOptions& options, TConsole& console, TRunLog& log)
{
   NZANQSX20::SetIPMILanAddress(options.fIPMIAddress);
   TCollection collection = ReadCollections(options, options.fCollections, console);
   const auto wrongCommand = FindWrongCommand(options.fCommand, *collection.fStore);
   log.TellWarnings(collection.fWarnings, wrongCommand);
   const std::vector<std::string> added = AddExpectedClasses(options, *collection.fStore);
   collection.fStore->RecordChanges();

   TRunInput input;
   input.fFiles = DescribeInputs(collection);
   input.fNamespace = NZANQSX20::OpenNamespace(collection.fStore);
   input.fFacts.fIsDeclared =
      [store = collection.fStore,
       added = std::set<std::string>(added.begin(), added.end())](const std::string& name) {
         return added.count(name) == 0 && store->GetSchema().Find(name) != nullptr;
      };
   input.fFacts.fGetCorrections = [store = collection.fStore] { return ReadCorrections(*store); };
   return input;
}
