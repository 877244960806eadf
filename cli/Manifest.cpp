#include "Manifest.h"

#include <xxhash.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>

#include <fmt/format.h>
#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include "common/OutputFile.h"
#include "common/SafeText.h"
#include "common/StateName.h"
#include "readers/CollectionLoader.h"

namespace {

/// Findings told one by one.
constexpr std::size_t kMostWorst = 5;
constexpr std::size_t kBlock = std::size_t{1} << 16;
/// Units: bytes. A smaller file is read again sooner than a thread is made.
constexpr std::uint64_t kWorthAThread = 1'000'000;

using TJson = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

/// What no rule knows is unknown to other programs, too.
const char* DescribeState(EState state)
{
   const char* const name = GetStateName(state);
   return name != nullptr ? name : GetStateName(EState::kUnknown);
}

std::string ReadDigest(const std::string& path)
{
   struct TFreeState
   {
      void operator()(XXH3_state_t* state) const { XXH3_freeState(state); }
   };

   const std::unique_ptr<XXH3_state_t, TFreeState> state(XXH3_createState());
   std::ifstream file(path, std::ios::binary);
   if (!state || !file || XXH3_64bits_reset(state.get()) == XXH_ERROR)
      return {};
   std::vector<char> block(kBlock);
   while (file.read(block.data(), static_cast<std::streamsize>(block.size())) || file.gcount() > 0)
      if (XXH3_64bits_update(state.get(), block.data(), static_cast<std::size_t>(file.gcount())) ==
          XXH_ERROR)
         return {};
   return fmt::format("{:016x}", XXH3_64bits_digest(state.get()));
}

constexpr TPlainBytes kPlainBytes("");

struct TSafeText
{
   void Write(std::string_view part) { fText += part; }

   std::string fText;
};

class TManifestWriter
{
public:
   explicit TManifestWriter(const TRunOutcome& outcome) : fJson(fText), fOutcome(outcome)
   {
      fJson.SetIndent(' ', 2);
   }

   std::string Write(const std::string& kind, const std::vector<TInputFile>& inputs)
   {
      fJson.StartObject();
      fJson.Key("manifest");
      fJson.Uint(1);
      AddText("tool", std::string("qsxreport ") + QSX_VERSION);
      AddText("kind", kind);
      // A number of seconds, and only where somebody asks for a fixed one.
      if (const char* const epoch = std::getenv("SOURCE_DATE_EPOCH"))
         AddText("written", epoch);
      WriteMachine();
      if (fOutcome.fHealth)
         WriteHealth(*fOutcome.fHealth);
      AddNumber("notCollected", fOutcome.fGaps.size());
      if (fOutcome.fCorrections)
         AddNumber("corrections", fOutcome.fCorrections->size());
      WriteInputs(inputs);
      fJson.EndObject();
      return std::string(fText.GetString(), fText.GetSize()) + '\n';
   }

private:
   void AddText(const char* key, const std::string& text)
   {
      TSafeText safe;
      WriteSafeText(safe, text, kPlainBytes, [](char) { return std::string_view(); });
      fJson.Key(key);
      fJson.String(safe.fText.data(), static_cast<rapidjson::SizeType>(safe.fText.size()));
   }

   void AddNumber(const char* key, std::uint64_t number)
   {
      fJson.Key(key);
      fJson.Uint64(number);
   }

   void WriteMachine()
   {
      const TRunFacts& facts = fOutcome.fFacts;
      fJson.Key("machine");
      fJson.StartObject();
      AddText("name", facts.GetName());
      AddText("product", facts.fProduct);
      AddText("serialNumber", facts.fSerialNumber);
      AddText("system", facts.fSystem);
      AddText("kernel", facts.fKernel);
      AddText("collected", facts.fCollected);
      AddText("timeZone", facts.fTimeZone);
      AddText("collectedBy", facts.fCollectedBy);
      fJson.EndObject();
   }

   void WriteHealth(const THealth& health)
   {
      AddText("verdict", DescribeState(health.GetVerdict()));
      TSubsystemHealth all;
      for (const TSubsystemHealth& subsystem : health.fSubsystems) {
         all.fFailed += subsystem.fFailed;
         all.fAttention += subsystem.fAttention;
         all.fUnknown += subsystem.fUnknown;
      }
      fJson.Key("findings");
      fJson.StartObject();
      WriteCounts(all);
      fJson.EndObject();
      fJson.Key("subsystems");
      fJson.StartArray();
      for (const ESubsystem subsystem : health.GetOrder()) {
         fJson.StartObject();
         AddText("name", GetSubsystemName(subsystem));
         AddText("state", DescribeState(health.Get(subsystem).fState));
         WriteCounts(health.Get(subsystem));
         fJson.EndObject();
      }
      fJson.EndArray();
      WriteWorst(health);
      WriteFirmware(health);
   }

   void WriteCounts(const TSubsystemHealth& health)
   {
      AddNumber("failed", health.fFailed);
      AddNumber("attention", health.fAttention);
      AddNumber("unknown", health.fUnknown);
   }

   /// Of each subsystem the worst first, then further ones.
   void WriteWorst(const THealth& health)
   {
      fJson.Key("worst");
      fJson.StartArray();
      std::size_t told = 0;
      for (const EState state : {EState::kFailed, EState::kAttention})
         for (const ESubsystem subsystem : health.GetOrder())
            for (const TFinding& finding : health.Get(subsystem).fFindings) {
               if (finding.fState != state || told == kMostWorst)
                  continue;
               ++told;
               fJson.StartObject();
               AddText("subsystem", GetSubsystemName(subsystem));
               AddText("state", DescribeState(state));
               AddText("text", finding.fText);
               AddText("source", finding.fSource);
               fJson.EndObject();
            }
      fJson.EndArray();
   }

   void WriteFirmware(const THealth& health)
   {
      fJson.Key("firmware");
      fJson.StartArray();
      for (const TFirmwareLevel& level : health.fFirmware) {
         fJson.StartObject();
         AddText("name", level.fName);
         AddText("version", level.fVersion);
         fJson.EndObject();
      }
      fJson.EndArray();
   }

   void WriteInputs(const std::vector<TInputFile>& inputs)
   {
      fJson.Key("inputs");
      fJson.StartArray();
      for (const TInputFile& input : inputs) {
         fJson.StartObject();
         AddText("file", input.fName);
         const std::string digest = input.fDigest.valid() ? input.fDigest.get() : "";
         if (!digest.empty()) {
            AddNumber("bytes", input.fBytes);
            AddText("xxh3", digest);
         }
         fJson.EndObject();
      }
      fJson.EndArray();
   }

   rapidjson::StringBuffer fText;
   TJson fJson;
   const TRunOutcome& fOutcome;
};

}  // namespace

std::vector<TInputFile> DescribeInputs(const NZANQSX20::TCollection& collection)
{
   std::vector<TInputFile> inputs;
   for (const NZANQSX20::TFileFacts& file : collection.fFiles) {
      TInputFile& input = inputs.emplace_back();
      input.fName = std::filesystem::path(file.fName).filename();
      std::error_code error;
      const bool isFile = std::filesystem::is_regular_file(file.fName, error);
      if (!isFile)
         continue;
      input.fBytes = std::filesystem::file_size(file.fName, error);
      // Both: where the system has no thread left, the digest waits until it is asked for.
      const std::launch policy = input.fBytes < kWorthAThread
                                    ? std::launch::deferred
                                    : std::launch::async | std::launch::deferred;
      input.fDigest = std::async(policy, ReadDigest, file.fName).share();
   }
   return inputs;
}

TCollectionFacts TManifest::Attend(TCollectionFacts facts)
{
   facts.fOnOutcome = [this](const TRunOutcome& outcome) {
      fText = TManifestWriter(outcome).Write(fKind, fFiles);
   };
   return facts;
}

void TManifest::Write(const std::string& folder) const
{
   if (fText.empty())
      return;
   TOutputFile file(folder + "/" + kName);
   file.Write(fText);
   file.Close();
}
