#include "MaskedOutput.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "CommandFailure.h"
#include "Console.h"
#include "MaskKey.h"
#include "Options.h"
#include "StagedFile.h"
#include "readers/CollectionLoader.h"

namespace {

std::string ReadFile(const std::string& path)
{
   std::ifstream stream(path, std::ios::binary);
   std::string content{std::istreambuf_iterator<char>(stream), {}};
   if (!stream)
      throw TCommandFailure(kExitInput,
                            fmt::format("{}: can't be read: {}", path, std::strerror(errno)));
   return content;
}

/// Those of the options and those of the file; empty lines are none.
std::vector<std::string> ReadTerms(const TMaskOptions& options)
{
   std::vector<std::string> terms = options.fTerms;
   std::string lines = options.fTermsFile.empty() ? "" : ReadFile(options.fTermsFile);
   for (std::size_t start = 0; start < lines.size();) {
      const std::size_t end = std::min(lines.find('\n', start), lines.size());
      std::string term = lines.substr(start, end - start);
      if (!term.empty() && term.back() == '\r')
         term.pop_back();
      if (!term.empty())
         terms.push_back(term);
      start = end + 1;
   }
   constexpr std::size_t kShortestTerm = 2;
   for (const std::string& term : terms)
      if (term.size() < kShortestTerm)
         throw TCommandFailure(
            kExitUsage, fmt::format("the term '{}' is too short; two characters at least", term));
   return terms;
}

/// A tab and the end of a line separate; neither is left in a field.
std::string MakeField(const std::string& text)
{
   std::string field;
   for (const char byte : text) {
      if (byte == '\t' || byte == '\n' || byte == '\\')
         field += '\\';
      field += byte == '\t' ? 't' : byte == '\n' ? 'n' : byte;
   }
   return field;
}

}  // namespace

TMaskedOutput::TMaskedOutput(const TOptions& options, const std::string& target, mode_t mode)
   : fOptions(options),
     fTerms(ReadTerms(options.fMask)),
     fOutput(target, options.fForm, options.fForce, mode)
{
   const std::string& map = options.fMask.fMapFile;
   if (!map.empty())
      fMap = std::make_unique<TStagedFile>(map, options.fForce, TStagedFile::kPrivateMode);
}

TMaskedOutput::~TMaskedOutput() = default;

void TMaskedOutput::Write(NZANQSX20::TMemoryStore& store, TConsole& console)
{
   console.Progress("Masking");
   NZANQSX20::TMask mask(MakeKey(store, console), fTerms);
   mask.Learn(store);
   const std::size_t texts = mask.Apply(store);
   fOutput.Write(store, console);
   Check(mask);
   if (fMap)
      WriteMap(mask);
   fOutput.Publish(console);
   console.Note(fmt::format("replaced {} identifiers in {} texts; none is left",
                            mask.GetEntries().size(), texts));
   const std::vector<std::string> shortNames = mask.GetShortNames();
   if (!shortNames.empty())
      console.Warning(
         fmt::format("too short to be replaced in free text, too, unless --term names it: {}",
                     fmt::join(shortNames, ", ")));
}

NZANQSX20::TMaskKey TMaskedOutput::MakeKey(const NZANQSX20::TMemoryStore& store,
                                           TConsole& console) const
{
   constexpr std::size_t kLeastKeyBytes = 16;
   const std::string& path = fOptions.fMask.fKeyFile;
   if (!path.empty()) {
      const std::string content = ReadFile(path);
      if (content.size() < kLeastKeyBytes)
         throw TCommandFailure(kExitInput,
                               fmt::format("{}: holds {} bytes; a key needs {} at least", path,
                                           content.size(), kLeastKeyBytes));
      return NZANQSX20::DeriveMaskKey(content);
   }
   const std::string secret = NZANQSX20::FindMachineSecret(store);
   if (!secret.empty())
      return NZANQSX20::DeriveMaskKey(secret);
   console.Warning(
      "the collection tells no UUID or serial number of the machine: these stand-ins are of this "
      "run alone; --key FILE makes them last");
   return NZANQSX20::MakeRandomMaskKey();
}

/// What was written is read again, as whoever gets the file will read it.
void TMaskedOutput::Check(const NZANQSX20::TMask& mask) const
{
   const NZANQSX20::TCollection written = NZANQSX20::LoadCollection({fOutput.GetWorkPath()});
   const std::string left = mask.FindLeft(*written.fStore);
   if (!left.empty())
      throw TCommandFailure(kExitRun,
                            fmt::format("{}: an original is left in {}; no file was written",
                                        fOutput.GetTarget(), left));
}

void TMaskedOutput::WriteMap(const NZANQSX20::TMask& mask)
{
   fMap->StageUnwatched();
   NZANQSX20::TDescriptorBytes bytes(fMap->GetDescriptor(), fMap->GetTarget());
   std::string text = "kind\toriginal\tstand-in\n";
   for (const NZANQSX20::TMask::TEntry& entry : mask.GetEntries())
      text += fmt::format("{}\t{}\t{}\n", NZANQSX20::GetMaskKindName(entry.fKind),
                          MakeField(entry.fOriginal), MakeField(entry.fStandIn));
   try {
      bytes.Write(text);
   } catch (const std::system_error& failure) {
      throw TCommandFailure(kExitRun, failure.what());
   }
   fMap->Publish();
}
