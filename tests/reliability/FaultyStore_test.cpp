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
#include "html/THtmlWriter.h"
#include "hypervisor/TReport_vmwesxi.h"
#include "readers/CollectionLoader.h"
#include "readers/ExpectedClasses.h"
#include "reliability/TFaultStore.h"
#include "run/TReport.h"
#include "support/TRecordingWriter.h"
#include "support/TRecordingWriter_vmwesxi.h"
#include "support/TTemporaryFolder.h"

using NZANQSX20::TMemoryStore;

namespace {

using TLines = std::vector<std::string>;
using TNamespace = boost::shared_ptr<ICIMNamespace>;
using TInstances = std::vector<boost::shared_ptr<ICIMInstance>>;

constexpr int kStatuses[] = {15, 1, 27, 0, -1, 1000, TFault::kOutOfMemory, TFault::kEmptyHandle};
/// Nothing left the run.
constexpr int kNone = -2;
/// An empty handle was used: after a class lookup that gave one, and where a report goes on
/// without the class that it did not get.
constexpr int kAssertion = 1;

/// How many faults of a run the ordinary tests try.
constexpr std::size_t kSample = 40;

/// What a run came to.
struct TOutcome
{
   int fStatus = kNone;
   /// What left the run where it was no failure of the store.
   std::string fForeign;
   std::uint64_t fCalls = 0;
   /// The calls on the writer, where it records them.
   TLines fLines;
   /// How many of the lines were there when the first call failed.
   std::size_t fLinesBefore = 0;
   /// What was written, by the name of the page.
   std::map<std::string, std::string> fPages;
   /// In their order: the pages by their names, and the calls that belong to none, under no name.
   std::vector<std::pair<std::string, std::string>> fOutline;
   /// The pages by the last store call that served them.
   std::map<std::uint64_t, std::string> fPageOfCall;
};

/// Of a page's path or link, which may end in ".html". A log file's own ending stays.
std::string GetPageName(const std::filesystem::path& path)
{
   return path.extension() == ".html" ? path.stem() : path.filename();
}

/// A writer that knows which store calls its pages took.
template <typename Writer>
class TPagedWriter : public Writer
{
public:
   using Writer::Writer;

   const TFaultStore* fStore = nullptr;
   /// The first page at each number: those behind it took no call of their own.
   std::map<std::uint64_t, std::string> fPageOfCall;
   /// The first line of each page, and under no name of what stands between two.
   std::vector<std::pair<std::size_t, std::string>> fBegins;

   void OpenReportFile(std::string path) override
   {
      EndPage();
      fPage = GetPageName(path);
      fBegins.emplace_back(FindFirstLine(), fPage);
      Writer::OpenReportFile(path);
   }

   void CloseReportFile() override
   {
      Writer::CloseReportFile();
      fClosedAt = fStore->GetCalls();
      fBegins.emplace_back(CountLines(), "");
   }

   void WriteIndexEntry(std::string linkName, std::string displayName, const bool& hasData) override
   {
      const std::string name = GetPageName(linkName);
      if (name == fPage)
         fClosedAt = fStore->GetCalls();
      EndPage();
      fBegins.emplace_back(CountLines(), name);
      Writer::WriteIndexEntry(linkName, displayName, hasData);
      fBegins.emplace_back(CountLines(), "");
      // Pages of log files come behind their entries.
      if (!name.empty())
         fPageOfCall.emplace(fStore->GetCalls(), name);
   }

   // Without "override": the hypervisor's writer has no such report.
   void WriteEventLogReport(TReportParameters params)
   {
      const std::string name = GetPageName(params.GetLinkName());
      fBegins.emplace_back(CountLines(), name);
      Writer::WriteEventLogReport(params);
      fPageOfCall.emplace(fStore->GetCalls(), name);
      fBegins.emplace_back(CountLines(), "");
   }

   std::size_t CountLines() const
   {
      if constexpr (std::is_same_v<THtmlWriter, Writer>)
         return 0;
      else
         return this->fLines.size();
   }

private:
   /// A page begins with the link to its raw data, which is written ahead of it.
   std::size_t FindFirstLine() const
   {
      std::size_t first = CountLines();
      if constexpr (!std::is_same_v<THtmlWriter, Writer>)
         while (first > 0 && this->fLines[first - 1].rfind("WriteRawDataLink", 0) == 0)
            --first;
      return first;
   }

   /// What is called behind it belongs to the next one.
   void EndPage()
   {
      if (!fPage.empty())
         fPageOfCall.emplace(fClosedAt, fPage);
      fPage.clear();
   }

   std::string fPage;
   std::uint64_t fClosedAt = 0;
};

template <typename Recording>
void TakePages(TPagedWriter<Recording>& writer, const std::string&, TOutcome& outcome)
{
   outcome.fLines.swap(writer.fLines);
   writer.fBegins.emplace_back(outcome.fLines.size(), "");
   for (std::size_t i = 0; i + 1 < writer.fBegins.size(); ++i) {
      const auto& [first, page] = writer.fBegins[i];
      if (!page.empty())
         outcome.fOutline.emplace_back(page, "");
      for (std::size_t line = first; line < writer.fBegins[i + 1].first; ++line)
         if (page.empty())
            outcome.fOutline.emplace_back("", outcome.fLines[line]);
         else
            outcome.fPages[page] += outcome.fLines[line] + '\n';
   }
}

/// Of each page what is its own; index and timeline are made of all the others.
void TakePages(TPagedWriter<THtmlWriter>&, const std::string& folder, TOutcome& outcome)
{
   for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.is_directory())
         continue;
      std::ifstream file(entry.path());
      const std::string text{std::istreambuf_iterator<char>(file), {}};
      const std::string name = GetPageName(entry.path());
      const std::size_t own = text.find("<main");
      if (own != std::string::npos && name != "index" && name != "timeline")
         outcome.fPages[name] = text.substr(own);
      std::filesystem::remove(entry.path());
   }
}

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

/// Where two texts part, and what stands there.
std::string ShowDifference(const std::string& expected, const std::string& found)
{
   constexpr std::size_t kShown = 120;
   const auto limit = std::min(expected.size(), found.size());
   std::size_t at = 0;
   while (at < limit && expected[at] == found[at])
      ++at;
   return "\n" + expected.substr(at, kShown) + "\nis\n" + found.substr(at, kShown);
}

/// Whether a report writes the first page, its raw data, ahead of the second; the pages link to
/// each other.
bool IsRawDataOf(const std::string& rawData, const std::string& page)
{
   static const std::set<std::pair<std::string, std::string>> kOtherNames = {
      {"megalsi_rawData", "lsi_mr"}, {"cvmanager_rawData_index", "corvanelogs"}};
   return (!page.empty() && rawData.rfind(page + "_rawData", 0) == 0) ||
          kOtherNames.count({rawData, page}) != 0;
}

/// Whether a failure in one page may change another one.
bool MayChange(const std::string& failing, const std::string& page)
{
   // One guard stands around the first two: where either fails, an older path writes the others.
   static const std::set<std::string> kGuarded = {"SPConfig", "Environmentals", "servproc_config",
                                                  "environmentals"};
   // Ahead of "resource" it is asked again whether there are teams: another answer writes "net"
   // once more.
   const bool isNetAgain = failing == "resource" && page == "net";
   return page == failing || IsRawDataOf(failing, page) || IsRawDataOf(page, failing) ||
          isNetAgain || (kGuarded.count(failing) != 0 && kGuarded.count(page) != 0);
}

/// What stands around the pages that a failure must not change.
TLines GetOutline(const TOutcome& outcome, const std::string& failing)
{
   TLines outline;
   for (const auto& [page, call] : outcome.fOutline)
      if (!MayChange(failing, page))
         outline.push_back(page + call);
   return outline;
}

/// A page that could not be made may leave an index entry without a link in its place.
/// Missing: the empty text when all is as it should be.
std::string FindChangedOutline(TLines found, const TLines& expected)
{
   const auto differ = [&] {
      return std::mismatch(found.begin(), found.end(), expected.begin(), expected.end());
   };
   const auto place = differ().first;
   if (place != found.end() && place->rfind("WriteIndexEntry \"\", ", 0) == 0)
      found.erase(place);
   const auto [other, own] = differ();
   if (other == found.end() && own == expected.end())
      return "";
   return "\n" + (own != expected.end() ? *own : "nothing") + "\nis\n" +
          (other != found.end() ? *other : "nothing");
}

/// The pages that failed must not change others. Missing: the empty text when all is as it should.
std::string FindChanged(const std::string& failing, const TOutcome& outcome,
                        const TOutcome& reference)
{
   const std::string fault = "the fault is in " + failing + ", but ";
   for (const auto& [name, page] : reference.fPages) {
      const auto found = outcome.fPages.find(name);
      if (MayChange(failing, name) || (found != outcome.fPages.end() && found->second == page))
         continue;
      return fault + "this page differs, too: " + name +
             (found != outcome.fPages.end() ? ShowDifference(page, found->second) : "");
   }
   const std::string changed =
      FindChangedOutline(GetOutline(outcome, failing), GetOutline(reference, failing));
   return changed.empty() ? "" : fault + "around the pages" + changed;
}

/// What a fault must not change. Missing: the empty text when all is as it should be.
std::string FindWrong(const TFault& fault, const TOutcome& outcome, const TOutcome& reference)
{
   if (!outcome.fForeign.empty())
      return "another exception: " + outcome.fForeign;
   if (outcome.fStatus != kNone && outcome.fStatus != fault.fStatus &&
       outcome.fStatus != kAssertion)
      return "another status: " + std::to_string(outcome.fStatus);
   if (!std::equal(outcome.fLines.begin(),
                   outcome.fLines.begin() + static_cast<std::ptrdiff_t>(outcome.fLinesBefore),
                   reference.fLines.begin()))
      return "the calls before the failure differ";
   if (outcome.fStatus != kNone || fault.fOnward)
      return "";
   // What comes ahead of the second page belongs to all: corrections, probes, the first labels.
   const auto failing = reference.fPageOfCall.lower_bound(fault.fCall);
   if (failing == reference.fPageOfCall.begin() || failing == reference.fPageOfCall.end())
      return "";
   return FindChanged(failing->second, outcome, reference);
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
   ASSERT_EQ(kNone, reference.fStatus) << reference.fForeign;
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
      const bool isClean = next.fStatus == kNone && next.fLines == reference.fLines &&
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
