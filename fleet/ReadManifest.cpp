#include "ReadManifest.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string_view>
#include <utility>

#include <fmt/format.h>
#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include "common/StateName.h"

namespace {

using TValue = rapidjson::Value;

constexpr unsigned kVersion = 1;
// Units: bytes.
constexpr std::size_t kLargestManifest = std::size_t{4} << 20;
constexpr std::size_t kLongestText = 200;

/// A descriptor that is closed in any case.
class TDescriptor
{
public:
   explicit TDescriptor(int number) : fNumber(number) {}

   ~TDescriptor()
   {
      if (fNumber >= 0)
         close(fNumber);
   }

   TDescriptor(const TDescriptor&) = delete;
   TDescriptor& operator=(const TDescriptor&) = delete;

   int Get() const { return fNumber; }

private:
   const int fNumber;
};

[[noreturn]] void FailSystem()
{
   throw TManifestError(fmt::format("can't be read: {}", std::strerror(errno)));
}

std::string ReadFile(const std::string& path)
{
   // A pipe in its place must not be waited for.
   const TDescriptor file(open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
   if (file.Get() < 0 && errno == ELOOP)
      throw TManifestError("is a link, and links are not followed");
   struct stat status = {};
   if (file.Get() < 0 || fstat(file.Get(), &status) != 0)
      FailSystem();
   if (!S_ISREG(status.st_mode))
      throw TManifestError("is no regular file");
   // Ahead of the memory for it: a file of holes may claim any size.
   if (static_cast<std::uint64_t>(status.st_size) > kLargestManifest)
      throw TManifestError(fmt::format("is larger than {} bytes", kLargestManifest));
   std::string text(static_cast<std::size_t>(status.st_size), '\0');
   std::size_t used = 0;
   while (used < text.size()) {
      const ssize_t got = read(file.Get(), text.data() + used, text.size() - used);
      if (got < 0 && errno == EINTR)
         continue;
      if (got < 0)
         FailSystem();
      if (got == 0)
         break;
      used += static_cast<std::size_t>(got);
   }
   text.resize(used);
   return text;
}

/// Missing: a null value.
const TValue& GetMember(const TValue& object, const char* name)
{
   static const TValue kNull;
   if (!object.IsObject())
      return kNull;
   const auto member = object.FindMember(name);
   return member == object.MemberEnd() ? kNull : member->value;
}

/// Missing: the empty text where there is no text. What is long ends with an ellipsis.
std::string GetText(const TValue& object, const char* name)
{
   const TValue& value = GetMember(object, name);
   if (!value.IsString())
      return {};
   std::string_view text(value.GetString(), value.GetStringLength());
   if (text.size() <= kLongestText)
      return std::string(text);
   constexpr unsigned char kContinuation = 0x80;
   constexpr unsigned char kLeadingBits = 0xC0;
   std::size_t end = kLongestText;
   while (end > 0 && (static_cast<unsigned char>(text[end]) & kLeadingBits) == kContinuation)
      --end;
   return std::string(text.substr(0, end)) + "\xE2\x80\xA6";
}

/// Missing: 0 where there is no number, or one that no report counts to; sums of these don't wrap.
std::uint64_t GetCount(const TValue& object, const char* name)
{
   const TValue& value = GetMember(object, name);
   return value.IsUint() ? value.GetUint() : 0;
}

EState GetState(const TValue& object, const char* name)
{
   const std::string text = GetText(object, name);
   for (const EState state : {EState::kFailed, EState::kAttention, EState::kOk})
      if (text == GetStateName(state))
         return state;
   return EState::kUnknown;
}

void ReadSubsystems(const TValue& manifest, TFleetMachine& machine)
{
   machine.fSubsystems.fill(EState::kUnknown);
   const TValue& subsystems = GetMember(manifest, "subsystems");
   if (!subsystems.IsArray())
      return;
   for (const TValue& subsystem : subsystems.GetArray()) {
      const std::string name = GetText(subsystem, "name");
      for (std::size_t i = 0; i < kSubsystems; ++i)
         if (name == GetSubsystemName(static_cast<ESubsystem>(i)))
            machine.fSubsystems[i] = GetState(subsystem, "state");
   }
}

void ReadFirmware(const TValue& manifest, std::vector<TReadManifest::TLevel>& firmware)
{
   const TValue& levels = GetMember(manifest, "firmware");
   if (!levels.IsArray())
      return;
   for (const TValue& level : levels.GetArray()) {
      if (firmware.size() == THealth::kMostFirmware)
         return;
      TReadManifest::TLevel read = {GetText(level, "name"), GetText(level, "version")};
      // Without a version there is nothing to compare.
      if (!read.fVersion.empty())
         firmware.push_back(std::move(read));
   }
}

TReadManifest ReadMachine(const TValue& manifest)
{
   TReadManifest read;
   TFleetMachine& machine = read.fMachine;
   const TValue& facts = GetMember(manifest, "machine");
   machine.fName = GetText(facts, "name");
   machine.fModel = GetText(facts, "product");
   machine.fSerialNumber = GetText(facts, "serialNumber");
   machine.fSystem = GetText(facts, "system");
   machine.fCollected = GetText(facts, "collected");
   machine.fVerdict = GetState(manifest, "verdict");
   const TValue& findings = GetMember(manifest, "findings");
   machine.fFailed = GetCount(findings, "failed");
   machine.fAttention = GetCount(findings, "attention");
   const TValue& worst = GetMember(manifest, "worst");
   if (worst.IsArray() && !worst.Empty())
      machine.fWorst = GetText(worst[0], "text");
   ReadSubsystems(manifest, machine);
   ReadFirmware(manifest, read.fFirmware);
   return read;
}

}  // namespace

TReadManifest ReadManifest(const std::string& path)
{
   const std::string text = ReadFile(path);
   rapidjson::Document manifest;
   // The recursive parser would let a deep nesting end the program.
   manifest.Parse<rapidjson::kParseIterativeFlag>(text.data(), text.size());
   if (manifest.HasParseError())
      throw TManifestError(fmt::format("is no JSON: byte {}: {}", manifest.GetErrorOffset(),
                                       rapidjson::GetParseError_En(manifest.GetParseError())));
   const TValue& version = GetMember(manifest, "manifest");
   const std::string kind = GetText(manifest, "kind");
   if (!version.IsUint() || kind.empty())
      throw TManifestError("is not the manifest of a report");
   if (version.GetUint() != kVersion)
      throw TManifestError(
         fmt::format("has the version {}, and this program reads {}", version.GetUint(), kVersion));
   if (kind != "report" && kind != "hypervisor")
      throw TManifestError(fmt::format("is of another kind of run: {}", kind));
   return ReadMachine(manifest);
}
