// The parts of a run, each by itself: build/release/bin/qsxreport_bench [--benchmark_filter=Read]

#include <filesystem>
#include <random>
#include <string>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include "CIMStore.h"
#include "common/OutputFile.h"
#include "common/ReportSink.h"
#include "common/TSinkWriter.h"
#include "definitions/TReportParameters.h"
#include "html/HtmlReport.h"
#include "html/HtmlSink.h"
#include "readers/CollectionLoader.h"
#include "readers/ExpectedClasses.h"
#include "run/TReport.h"
#include "writer/StoreWalk.h"

using NZANQSX20::LoadCollectionText;
using NZANQSX20::OpenNamespace;

namespace {

namespace fs = std::filesystem;

constexpr int kRecords = 10'000;
constexpr int kManyRecords = 1'000'000;
constexpr const char* kClass = "ZANSG_LinuxEventLogRecord";

std::string MakeTime(std::mt19937& random)
{
   return fmt::format("2026{:02}{:02}{:02}{:02}{:02}.{:06}+000", 1 + random() % 12,
                      1 + random() % 28, random() % 24, random() % 60, random() % 60,
                      random() % 1000000);
}

/// Event records as MOF or as CIM-XML.
std::string MakeRecords(bool isXML, std::int64_t records)
{
   std::mt19937 random(1);
   std::string text;
   const auto put = [&](const char* name, const char* type, const std::string& value) {
      const bool isNumber = std::string(type) == "uint32";
      if (isXML)
         text += fmt::format("<PROPERTY NAME=\"{}\" TYPE=\"{}\"><VALUE>{}</VALUE></PROPERTY>", name,
                             type, value);
      else
         text += fmt::format(isNumber ? "{} = {};" : "{} = \"{}\";", name, value);
   };
   if (isXML)
      text = "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><DECLARATION><DECLGROUP>";
   else
      text = fmt::format(
         "class {} {{ [Key] string LogName; [Key] uint32 RecordID; datetime MessageTimestamp; "
         "string SourceNode; string Source; string Message; }};",
         kClass);
   for (std::int64_t i = 0; i < records; ++i) {
      text += isXML ? fmt::format("<VALUE.OBJECT><INSTANCE CLASSNAME=\"{}\">", kClass)
                    : fmt::format("instance of {} {{", kClass);
      put("LogName", "string", "/var/log/messages");
      put("RecordID", "uint32", std::to_string(i));
      put("MessageTimestamp", "datetime", MakeTime(random));
      put("SourceNode", "string", "0");
      put("Source", "string", "kernel");
      put("Message", "string", "the link of eth0 is up again, 1000 Mbps, full duplex");
      text += isXML ? "</INSTANCE></VALUE.OBJECT>\n" : "};\n";
   }
   return isXML ? text + "</DECLGROUP></DECLARATION></CIM>" : text;
}

boost::shared_ptr<ICIMNamespace> MakeNamespace(std::int64_t records)
{
   const auto store = LoadCollectionText("a.mof", MakeRecords(false, records)).fStore;
   NZANQSX20::DeclareExpectedClasses(*store);
   return OpenNamespace(store);
}

void Read(benchmark::State& state, bool isXML)
{
   const std::string text = MakeRecords(isXML, kRecords);
   for (auto _ : state)
      benchmark::DoNotOptimize(LoadCollectionText("a", text));
   state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void ReadProperty(benchmark::State& state, const char* name)
{
   const auto cimNamespace = MakeNamespace(kRecords);
   const TInstances instances = FindInstances(cimNamespace, kClass);
   for (auto _ : state)
      for (const auto& instance : instances)
         benchmark::DoNotOptimize(instance->GetProperty(name, {})->GetValueString());
   state.SetItemsProcessed(state.iterations() * kRecords);
}

void Sort(benchmark::State& state, const char* name)
{
   const auto cimNamespace = MakeNamespace(state.range(0));
   const TInstances instances = FindInstances(cimNamespace, kClass);
   TReportParameters::TInstanceSorter sorter;
   sorter.AddProperty(name, true, false);
   for (auto _ : state) {
      TInstances sorted = instances;
      sorter.SortInstances(sorted);
      benchmark::DoNotOptimize(sorted);
   }
   state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// Takes all that the library writes and does nothing.
class TNoSink : public TReportSink
{
public:
   void WriteReportTitle(const std::string&, const std::string&, const std::string&) override {}

   void WriteTableTitle(const TTableTitle&) override {}

   void WriteNote(const std::string&) override {}

   void BeginTable(const TTableShape&) override {}

   void WriteRows(const TTableRows&) override {}

   void EndTable() override {}

   void BeginRun(const std::string&, const TRunFacts&) override {}

   void BeginPage(const std::string&) override {}

   void EndPage() override {}

   void EndRun(const TReportIndex&) override {}
};

class TBenchWriter : public TSinkWriter
{
public:
   explicit TBenchWriter(std::unique_ptr<TReportSink> sink)
      : TSinkWriter(std::move(sink), "html", "", {})
   {}
};

template <typename TSink, typename... TArguments>
void Report(benchmark::State& state, const TArguments&... arguments)
{
   const auto cimNamespace = MakeNamespace(state.range(0));
   const fs::path folder = fs::temp_directory_path() / "qsxreport_bench";
   fs::create_directory(folder);
   for (auto _ : state) {
      TBenchWriter writer(std::make_unique<TSink>(arguments...));
      TReport report(cimNamespace, {}, folder.string());
      report.Write(&writer, {});
   }
   fs::remove_all(folder);
   state.SetItemsProcessed(state.iterations() * state.range(0));
}

void LayOutTables(benchmark::State& state)
{
   Report<TNoSink>(state);
}

void WritePages(benchmark::State& state)
{
   Report<THtmlReport>(state, THtmlOptions());
}

void Escape(benchmark::State& state, const std::string& text)
{
   const fs::path path = fs::temp_directory_path() / "qsxreport_bench.html";
   {
      TOutputFile file(path.string());
      THtmlSink sink(file);
      for (auto _ : state)
         sink << TText{text};
   }
   fs::remove(path);
   state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

BENCHMARK_CAPTURE(Read, MOF, false);
BENCHMARK_CAPTURE(Read, CIMXML, true);
BENCHMARK_CAPTURE(ReadProperty, Text, "Message");
BENCHMARK_CAPTURE(ReadProperty, Time, "MessageTimestamp");
BENCHMARK_CAPTURE(Sort, ByTime, "MessageTimestamp")->Arg(kRecords);
BENCHMARK_CAPTURE(Sort, ByText, "LogName")->Arg(kRecords);
BENCHMARK(LayOutTables)->Arg(kRecords);
BENCHMARK(WritePages)->Arg(kRecords);
// What the section "sort" of compare_with_peers shows.
BENCHMARK_CAPTURE(Sort, ByTime, "MessageTimestamp")->Arg(kManyRecords)->Iterations(1);
BENCHMARK(WritePages)->Arg(kManyRecords)->Iterations(1);
BENCHMARK_CAPTURE(Escape, Plain, std::string(100, 'a'));
BENCHMARK_CAPTURE(Escape, Markup,
                  std::string("<b>a & b</b> \xC3\xA9 \"quoted\" text that goes on"));

}  // namespace
