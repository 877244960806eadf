#include "CollectCommand.h"

#include <unistd.h>

#include <cctype>
#include <ctime>
#include <system_error>

#include <fmt/chrono.h>
#include <fmt/format.h>

#include "CollectMachine.h"
#include "CollectionOutput.h"
#include "Console.h"
#include "Gaps.h"
#include "MaskedOutput.h"
#include "Options.h"
#include "StagedFile.h"
#include "Version.h"
#include "machine/TMachine.h"
#include "writers/CollectionForm.h"

using NZANQSX20::TMachine;
using NZANQSX20::TMemoryStore;

namespace {

std::unique_ptr<TMachine> OpenMachine(const std::string& root)
{
   try {
      return std::make_unique<TMachine>(root);
   } catch (const std::system_error& failure) {
      throw TCommandFailure(
         kExitInput, fmt::format("{}: can't be collected: {}", root, failure.code().message()));
   }
}

std::string GetEnding(const NZANQSX20::TCollectionForm& form)
{
   std::string ending = form.fIsXML ? ".xml" : ".mof";
   if (form.fCompression == NZANQSX20::ECompression::kGzip)
      ending += ".gz";
   if (form.fCompression == NZANQSX20::ECompression::kZstandard)
      ending += ".zst";
   return ending;
}

/// The host name as a part of a file name. Missing: empty.
std::string FindHost(const TMachine& machine)
{
   std::string host = machine.ReadLine("/proc/sys/kernel/hostname");
   if (host.empty())
      host = machine.ReadLine("/etc/hostname");
   for (char& character : host)
      if (std::isalnum(static_cast<unsigned char>(character)) == 0 && character != '-' &&
          character != '.')
         character = '_';
   return host;
}

/// "web01-20261121-144500.mof", of the host's name, if any, and the time here.
std::string MakeName(const std::string& host, const NZANQSX20::TCollectionForm& form)
{
   const std::time_t now = std::time(nullptr);
   std::tm local = {};
   localtime_r(&now, &local);
   return fmt::format("{}-{:%Y%m%d-%H%M%S}{}", host.empty() ? "machine" : host, local,
                      GetEnding(form));
}

void TellGaps(const boost::shared_ptr<TMemoryStore>& store, TConsole& console)
{
   const std::vector<std::string> gaps = DescribeGaps(store);
   for (const std::string& gap : gaps)
      console.Note("not collected: " + gap);
   if (!gaps.empty() && geteuid() != 0)
      console.Note("root can read more of a machine than other users");
}

boost::shared_ptr<TMemoryStore> Collect(const TMachine& machine, TConsole& console)
{
   return NZANQSX20::CollectMachine(
      machine, {QSX_VERSION, GetCommit()},
      [&](const std::string& subject) { console.Progress("Collecting: " + subject); });
}

// Both look at the place before the work: one that can't be written is told at once.

void CollectPlain(const TMachine& machine, const std::string& name, const TOptions& options,
                  TConsole& console)
{
   TCollectionOutput output(name, options.fForm, options.fForce, TStagedFile::kPrivateMode);
   const boost::shared_ptr<TMemoryStore> store = Collect(machine, console);
   output.Write(*store, console);
   TellGaps(store, console);
   output.Publish(console);
}

void CollectMasked(const TMachine& machine, const std::string& name, const TOptions& options,
                   TConsole& console)
{
   TMaskedOutput output(options, name, TStagedFile::kPrivateMode);
   const boost::shared_ptr<TMemoryStore> store = Collect(machine, console);
   output.Write(*store, console);
   TellGaps(store, console);
}

}  // namespace

EExitCode RunCollectCommand(const TOptions& options, TConsole& console)
{
   const std::unique_ptr<TMachine> machine = OpenMachine(options.fRoot);
   const std::string name = options.fOutput.empty()
                               ? MakeName(options.fMasks ? "" : FindHost(*machine), options.fForm)
                               : options.fOutput;
   if (options.fMasks)
      CollectMasked(*machine, name, options, console);
   else
      CollectPlain(*machine, name, options, console);
   return kExitDone;
}
