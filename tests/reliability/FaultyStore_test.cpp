// The reports over a store that fails: once or from some call on, with every kind of failure that
// the contract knows. QSX_TORTURE is the number of faults to try in each run, "calls" for one at
// every store call, "all" for every one; without it a small sample is tried.

#include <cstdlib>
#include <functional>
#include <iostream>
#include <new>
#include <numeric>
#include <random>
#include <set>

#include <gtest/gtest.h>

#include "comparison/TDeltaRepository.h"
#include "hypervisor/TReport_vmwesxi.h"
#include "readers/CollectionLoader.h"
#include "readers/ExpectedClasses.h"
#include "reliability/FindWrong.h"
#include "reliability/TFaultStore.h"
#include "reliability/TPagedWriter.h"
#include "run/TReport.h"
#include "support/TRecordingWriter.h"
#include "support/TRecordingWriter_vmwesxi.h"
#include "support/TTemporaryFolder.h"

using NZANQSX20::TMemoryStore;

namespace {

using TNamespace = boost::shared_ptr<ICIMNamespace>;
using TInstances = std::vector<boost::shared_ptr<ICIMInstance>>;

constexpr int kStatuses[] = {15, 1, 27, 0, -1, 1000, TFault::kOutOfMemory, TFault::kEmptyHandle};

/// How many faults of a run the ordinary tests try.
constexpr std::size_t kSample = 40;

boost::shared_ptr<TMemoryStore> Load(const std::string& example)
{
   const auto store = NZANQSX20::LoadCollection({QSX_EXAMPLES "/" + example}).fStore;
   NZANQSX20::DeclareExpectedClasses(*store);
   return store;
}

TInstances GetInstances(const TNamespace& cimNamespace, const std::string& name)
{
   TInstances instances;
   cimNamespace->GetClass(name, {})->EnumerateInstances(
      TAddToVectorCallback<ICIMInstance>(instances), false, {});
   return instances;
}

/// The path of the instance and those it refers to.
TLines GetPaths(const boost::shared_ptr<ICIMInstance>& instance)
{
   TLines paths = {instance->GetReference({}).GetPath()};
   std::vector<boost::shared_ptr<ICIMProperty>> properties;
   instance->EnumerateProperties(TAddToVectorCallback<ICIMProperty>(properties), {});
   for (const auto& property : properties)
      if (property->GetType({}) == TCIMValue::TCIMType::kReference)
         paths.push_back(property->GetValueString());
   return paths;
}

/// Leaves the first instance of each class, and what associations among these refer to.
TNamespace KeepOneOfEach(const boost::shared_ptr<TMemoryStore>& store)
{
   const TNamespace cimNamespace = NZANQSX20::OpenNamespace(store);
   std::set<std::string> kept;
   TInstances all;
   for (const auto* storedClass : store->GetSchema().GetClasses()) {
      const TInstances instances = GetInstances(cimNamespace, storedClass->GetName());
      all.insert(all.end(), instances.begin(), instances.end());
      if (!instances.empty())
         for (const std::string& path : GetPaths(instances.front()))
            kept.insert(path);
   }
   for (const auto& instance : all)
      if (kept.count(instance->GetReference({}).GetPath()) == 0)
         instance->Delete({});
   return cimNamespace;
}

TNamespace Compare(const std::string& base, const std::string& other)
{
   const std::vector<boost::shared_ptr<TMemoryStore>> stores = {Load(base), Load(other)};
   for (const auto& store : stores)
      KeepOneOfEach(store);
   NZANQSX20::TDeltaRepository repository(stores);
   repository.FindDifferences({});
   return repository.Open();
}

/// Tables whose columns don't add up are told on standard output, once a run.
class TQuiet
{
public:
   ~TQuiet() { std::cout.rdbuf(fFormer); }

private:
   std::streambuf* fFormer = std::cout.rdbuf(nullptr);
};

/// One collection and one way to report it, over a store that can fail.
class TFaultyRun
{
public:
   using TWrite = std::function<TOutcome(const TNamespace&, TFaultStore&)>;

   TFaultyRun(const TNamespace& inner, TWrite write)
      : fStore(std::make_shared<TFaultStore>()),
        fNamespace(TFaultStore::Open(inner, fStore)),
        fWrite(std::move(write))
   {}

   TOutcome Run(const TFault& fault)
   {
      fStore->Arm(fault);
      return fWrite(fNamespace, *fStore);
   }

private:
   std::shared_ptr<TFaultStore> fStore;
   TNamespace fNamespace;
   TWrite fWrite;
};

/// All runs with one writer.
template <typename Report, typename Writer, typename... Arguments>
TFaultyRun::TWrite Writing(const TContext& params, const Arguments&... arguments)
{
   const auto writer = std::make_shared<TPagedWriter<Writer>>(arguments...);
   const auto folder = std::make_shared<TTemporaryFolder>();
   return [writer, folder, params](const TNamespace& cimNamespace, TFaultStore& store) {
      TOutcome outcome;
      writer->fStore = &store;
      writer->fPageOfCall.clear();
      writer->fBegins.clear();
      store.fOnFailure = [&] { outcome.fLinesBefore = writer->CountLines(); };
      const TQuiet quiet;
      try {
         Report(cimNamespace, params, folder->GetPath()).Write(writer.get(), params);
      } catch (const TQSXException& failure) {
         outcome.fStatus = failure.fStatusCode.fStatusCode;
      } catch (const std::bad_alloc&) {
         outcome.fStatus = TFault::kOutOfMemory;
      } catch (const std::exception& failure) {
         outcome.fForeign = failure.what();
      }
      store.fOnFailure = nullptr;
      outcome.fCalls = store.GetCalls();
      outcome.fPageOfCall = writer->fPageOfCall;
      TakePages(*writer, folder->GetPath(), outcome);
      return outcome;
   };
}

/// Numbers a store call and a kind of failure in one.
TFault GetFault(std::uint64_t number)
{
   const std::uint64_t kinds = std::size(kStatuses);
   return {number / kinds / 2 + 1, kStatuses[number / 2 % kinds], number % 2 == 1};
}

/// The same at each run. A slow run takes one fault at each call at most.
std::vector<std::uint64_t> GetFaultNumbers(std::uint64_t calls, bool isSlow)
{
   const char* torture = std::getenv("QSX_TORTURE");
   const std::string wanted = torture != nullptr ? torture : std::to_string(kSample);
   const std::uint64_t kinds = std::size(kStatuses) * 2;
   std::mt19937 random(4711);
   std::vector<std::uint64_t> all(calls * kinds);
   std::iota(all.begin(), all.end(), 0);
   std::vector<std::uint64_t> sample;
   if (wanted == "calls" || (wanted == "all" && isSlow))
      for (std::uint64_t call = 0; call < calls; ++call)
         sample.push_back(call * kinds + random() % kinds);
   else if (wanted == "all")
      sample = all;
   else
      std::sample(all.begin(), all.end(), std::back_inserter(sample),
                  std::min<std::size_t>(std::stoul(wanted), all.size()), random);
   return sample;
}

void CheckFaults(TFaultyRun run, bool isSlow = false)
{
   constexpr int kMostTold = 10;
   // Corrections change the collection in the first run only.
   run.Run({});
   const TOutcome reference = run.Run({});
   ASSERT_EQ(TOutcome::kNone, reference.fStatus) << reference.fForeign;
   const std::vector<std::uint64_t> numbers = GetFaultNumbers(reference.fCalls, isSlow);
   std::cout << reference.fCalls << " store calls, " << reference.fPages.size() << " pages, "
             << numbers.size() << " faults" << std::endl;
   int failures = 0;
   for (std::size_t i = 0; i < numbers.size(); ++i) {
      const TFault fault = GetFault(numbers[i]);
      const std::string wrong = FindWrong(fault, run.Run(fault), reference);
      // Faults of one call that follow each other show it up to that call: their lines before are
      // compared.
      const bool isLast = i + 1 == numbers.size() || GetFault(numbers[i + 1]).fCall != fault.fCall;
      const TOutcome next = isLast ? run.Run({}) : reference;
      const bool isClean = next.fStatus == TOutcome::kNone && next.fLines == reference.fLines &&
                           next.fPages == reference.fPages;
      if (wrong.empty() && isClean)
         continue;
      ADD_FAILURE() << "call " << fault.fCall << (fault.fOnward ? " and on" : "") << ", status "
                    << fault.fStatus << ": " << (wrong.empty() ? "the next run differs" : wrong);
      if (++failures == kMostTold)
         return;
   }
}

}  // namespace

#ifdef __SANITIZE_ADDRESS__
// The sanitizer looks for leaks at the end of each test: what the faults leave behind fails it.
extern "C" int __lsan_do_recoverable_leak_check();

TEST(FaultyStore, LeaksWouldBeSeen)
{
   // Written so that no pointer is left to be found.
   std::vector<std::uintptr_t> blocks;
   for (int i = 0; i < 10; ++i)
      blocks.push_back(~reinterpret_cast<std::uintptr_t>(new char[100]));
   EXPECT_EQ(1, __lsan_do_recoverable_leak_check());
   for (const std::uintptr_t block : blocks)
      delete[] reinterpret_cast<char*>(~block);
   EXPECT_EQ(0, __lsan_do_recoverable_leak_check());
}
#endif

TEST(FaultyStore, Report)
{
   CheckFaults({KeepOneOfEach(Load("windows-server")), Writing<TReport, TRecordingWriter>({})});
}

TEST(FaultyStore, ReportOfDebian)
{
   CheckFaults({KeepOneOfEach(Load("debian-host")), Writing<TReport, TRecordingWriter>({})});
}

TEST(FaultyStore, ServiceReport)
{
   const TContext service = {{"mode", "mek"}, {"KMC", ""}};
   CheckFaults(
      {KeepOneOfEach(Load("windows-server")), Writing<TReport, TRecordingWriter>(service)});
}

TEST(FaultyStore, ServiceReportOfESX)
{
   const TContext service = {{"mode", "mek"}};
   CheckFaults({KeepOneOfEach(Load("esx-server")), Writing<TReport, TRecordingWriter>(service)});
}

TEST(FaultyStore, HypervisorReport)
{
   CheckFaults(
      {KeepOneOfEach(Load("esxi-host")), Writing<TReport_vmwesxi, TRecordingWriter_vmwesxi>({})});
}

TEST(FaultyStore, Comparison)
{
   const TContext two = {{"nNamespaces", static_cast<unsigned short>(2)}};
   CheckFaults({Compare("windows-server", "esx-server"), Writing<TReport, TRecordingWriter>(two)});
}

TEST(FaultyStore, ComparisonOfOneServer)
{
   const std::string folder = "compare/one-server-two-times/";
   const TContext two = {{"nNamespaces", static_cast<unsigned short>(2)}};
   CheckFaults({Compare(folder + "before.mof", folder + "after.mof"),
                Writing<TReport, TRecordingWriter>(two)});
}

TEST(FaultyStore, Pages)
{
   // Each of these runs writes some fifty files.
   constexpr bool kIsSlow = true;
   const TContext service = {{"mode", "mek"}};
   CheckFaults({KeepOneOfEach(Load("windows-server")),
                Writing<TReport, THtmlWriter>(service, THtmlOptions())},
               kIsSlow);
}
