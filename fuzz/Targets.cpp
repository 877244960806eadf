#include "Targets.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "TCIMDateTime.h"
#include "common/EventTime.h"
#include "comparison/TDeltaRepository.h"
#include "html/THtmlWriter.h"
#include "readers/CollectionLoader.h"
#include "readers/Decompression.h"
#include "readers/ExpectedClasses.h"
#include "readers/ReadValue.h"
#include "run/TReport.h"
#include "store/ObjectPath.h"

using namespace NZANQSX20;

namespace {

/// A broken law. The process ends, so that the fuzzer keeps the input.
void Require(bool holds, const char* law)
{
   if (holds)
      return;
   std::fprintf(stderr, "law broken: %s\n", law);
   std::abort();
}

/// Small enough for many tries a second.
TReadLimits GetLimits()
{
   TReadLimits limits;
   limits.fFileBytes = 1 << 20;
   limits.fExpandedBytes = 1 << 20;
   limits.fTextBytes = 1 << 16;
   limits.fClasses = 200;
   limits.fInstances = 500;
   limits.fProperties = 100;
   limits.fArrayItems = 1000;
   return limits;
}

/// The store that the bytes make. Missing: empty when they are refused.
boost::shared_ptr<TMemoryStore> Load(const std::string& bytes)
{
   try {
      const TCollection collection = LoadCollectionText("input", bytes, GetLimits());
      const TReadCounts& counts = collection.fCounts;
      Require(counts.fClassesRead == counts.fClassesStored + counts.fClassesRejected,
              "classes read = stored + rejected");
      Require(counts.fInstancesRead == counts.fInstancesStored, "instances read = stored");
      std::size_t held = 0;
      for (const auto* storedClass : collection.fStore->GetSchema().GetClasses())
         held += collection.fStore->CountInstances(*storedClass);
      Require(held == counts.fInstancesStored, "all instances are in the store");
      return collection.fStore;
   } catch (const TReadError& error) {
      Require(std::string(error.what()).find("input") != std::string::npos ||
                 error.GetPlace().fLine == 0,
              "an error names its place");
      return {};
   }
}

/// All that the store tells, as a report would ask for it.
void ReadAllOf(const boost::shared_ptr<TMemoryStore>& store)
{
   const boost::shared_ptr<ICIMNamespace> cimNamespace = OpenNamespace(store);
   for (const auto* storedClass : store->GetSchema().GetClasses()) {
      std::vector<boost::shared_ptr<ICIMInstance>> instances;
      cimNamespace->GetClass(storedClass->GetName(), {})
         ->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(instances), true, {});
      for (const auto& instance : instances) {
         instance->GetReference({}).GetPath();
         std::vector<boost::shared_ptr<ICIMProperty>> properties;
         instance->EnumerateProperties(TAddToVectorCallback<ICIMProperty>(properties), {});
         for (const auto& property : properties)
            property->GetValueString() + property->GetRawValueString();
         std::vector<boost::shared_ptr<ICIMInstance>> others;
         instance->EnumerateAssociators(TAddToVectorCallback<ICIMInstance>(others), "", "", "", "",
                                        {});
      }
   }
}

void TryCollection(const std::string& bytes)
{
   if (const auto store = Load(bytes))
      ReadAllOf(store);
}

void TryValue(const std::string& bytes)
{
   if (bytes.empty())
      return;
   const std::string text = bytes.substr(1);
   const auto type = static_cast<TCIMValue::ECIMType>(bytes[0] & 0x0F);
   const auto form =
      static_cast<TValueDraft::EForm>((bytes[0] >> 4 & 0x0F) % (TValueDraft::kUntyped + 1));
   TTypedValue value;
   if (ReadTypedValue({form, text, 0}, type, value)) {
      const bool isText = type == TCIMValue::TCIMType::kReference || value.fIsNull;
      if (!isText) {
         const TCIMValue stored = MakeCIMValue(value);
         Require(!(stored < stored), "a value is not less than itself");
         stored.ToString(10);
      }
   }
   TCIMDateTime time;
   if (TCIMDateTime::Parse(text, time)) {
      TCIMDateTime again;
      Require(TCIMDateTime::Parse(time.ToString(), again) && again == time,
              "a date-time reads back the same");
      Require(time.ToUIString().find('\0') == std::string::npos, "a date-time is a text");
   }
   ReadEventTime(text);
   TObjectPath path;
   if (TObjectPath::Parse(text, path)) {
      TObjectPath again;
      Require(TObjectPath::Parse(path.ToText(), again) && again.ToText() == path.ToText(),
              "a path reads back the same");
   }
}

/// A folder for pages, for as long as the process lives.
class TPagesFolder
{
public:
   TPagesFolder()
   {
      std::string pattern = std::filesystem::temp_directory_path() / "qsxreport-fuzz-XXXXXX";
      fPath = mkdtemp(pattern.data());
   }

   ~TPagesFolder() { std::filesystem::remove_all(fPath); }

   std::string fPath;
};

void CheckPage(const std::string& page)
{
   for (const char byte : page)
      Require(static_cast<unsigned char>(byte) >= 0x20 || byte == '\n' || byte == '\t',
              "a page holds no control byte");
   for (const char* markup : {"<script>", "<iframe", "<object", "<embed", "<base", "<form"})
      Require(page.find(markup) == std::string::npos, "a page holds no markup of the collection's");
}

void CheckPagesIn(const std::string& folder)
{
   for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.is_directory())
         continue;
      if (entry.path().extension() == ".html") {
         std::string page(entry.file_size(), '\0');
         std::ifstream(entry.path(), std::ios::binary)
            .read(page.data(), static_cast<std::streamsize>(page.size()));
         CheckPage(page);
      }
      std::filesystem::remove(entry.path());
   }
}

void WritePages(const boost::shared_ptr<ICIMNamespace>& cimNamespace, const TContext& params)
{
   static const TPagesFolder folder;
   THtmlWriter writer{THtmlOptions()};
   try {
      TReport(cimNamespace, params, folder.fPath).Write(&writer, params);
   } catch (const TQSXException&) {
      return;
   } catch (const std::invalid_argument&) {
      // A definition without a column has no grid.
      return;
   }
   CheckPagesIn(folder.fPath);
}

void TryPages(const std::string& bytes)
{
   const auto store = Load(bytes);
   if (!store)
      return;
   DeclareExpectedClasses(*store);
   WritePages(OpenNamespace(store), {{"mode", "mek"}});
}

/// Two collections, this line between them.
constexpr std::string_view kOther = "\n// and\n";

void TryCompare(const std::string& bytes)
{
   const std::size_t other = bytes.find(kOther);
   if (other == std::string::npos)
      return;
   std::vector<boost::shared_ptr<TMemoryStore>> stores;
   for (const std::string& text : {bytes.substr(0, other), bytes.substr(other + kOther.size())}) {
      stores.push_back(Load(text));
      if (!stores.back())
         return;
      DeclareExpectedClasses(*stores.back());
   }
   TDeltaRepository repository(stores);
   repository.FindDifferences({});
   WritePages(repository.Open(), {{"nNamespaces", static_cast<unsigned short>(stores.size())}});
}

}  // namespace

const std::vector<TFuzzTarget>& GetFuzzTargets()
{
   // The format is told from the content: the seeds lead each target to its own.
   static const std::vector<TFuzzTarget> kTargets = {
      {"mof", TryCollection}, {"xml", TryCollection}, {"compressed", TryCollection},
      {"values", TryValue},   {"pages", TryPages},    {"compare", TryCompare},
   };
   return kTargets;
}
