#include "OutputFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

#include <fmt/format.h>

#include "CommandFailure.h"
#include "Interrupt.h"

namespace fs = std::filesystem;

namespace {

constexpr mode_t kEveryone = 0777;

/// The mode that a folder made in the ordinary way has.
mode_t GetFolderMode()
{
   const mode_t mask = umask(0);
   umask(mask);
   return kEveryone & ~mask;
}

/// The target without trailing separators, which would follow a link.
std::string TrimSeparators(std::string path)
{
   while (path.size() > 1 && path.back() == '/')
      path.pop_back();
   return path;
}

/// Whether the path is the folder or lies inside it.
bool IsWithin(const fs::path& path, const fs::path& folder)
{
   const fs::path relative = path.lexically_relative(folder);
   return !relative.empty() && *relative.begin() != "..";
}

}  // namespace

TOutputFolder::TOutputFolder(const std::string& target, bool force,
                             const std::vector<std::string>& inputs)
   : fTarget(target)
{
   const fs::path path(TrimSeparators(target));
   const fs::path name = path.filename();
   if (name.empty() || name == "." || name == "..")
      throw TCommandFailure(kExitRun,
                            fmt::format("{}: the output folder needs a name of its own", target));
   std::error_code error;
   const fs::path parent = fs::weakly_canonical(fs::absolute(path).parent_path(), error);
   if (error)
      Fail("the folder above it can't be used", error.value());
   fPlace = (parent / name).string();
   CheckParent(parent);
   CheckTarget(force);
   CheckInputs(inputs);
   fMode = GetFolderMode();
}

TOutputFolder::~TOutputFolder()
{
   std::error_code ignored;
   if (IsStaged())
      fs::remove_all(fStaging, ignored);
   // Those that hold the published folder are not empty and stay.
   for (auto folder = fMadeParents.rbegin(); folder != fMadeParents.rend(); ++folder)
      rmdir(folder->c_str());
}

/// The folder above the target, or of its missing ancestors the one in which the first will be
/// made.
void TOutputFolder::CheckParent(const fs::path& parent) const
{
   fs::path existing = parent;
   while (access(existing.c_str(), F_OK) != 0 && errno == ENOENT && existing.has_relative_path())
      existing = existing.parent_path();
   if (!fs::is_directory(existing))
      Fail("the folder above it can't be used", ENOTDIR);
   if (access(existing.c_str(), W_OK | X_OK) != 0)
      Fail("the folder above it can't be written", errno);
}

void TOutputFolder::CheckTarget(bool force)
{
   struct stat status = {};
   if (lstat(fPlace.c_str(), &status) != 0) {
      if (errno != ENOENT)
         Fail("can't be read", errno);
      return;
   }
   fTargetExists = true;
   if (S_ISLNK(status.st_mode))
      throw TCommandFailure(kExitRun,
                            fmt::format("{}: is a symbolic link; name the folder itself", fTarget));
   if (!S_ISDIR(status.st_mode))
      Fail("can't be the output folder", ENOTDIR);
   std::error_code error;
   const bool isEmpty = fs::is_empty(fPlace, error);
   if (error)
      Fail("can't be read", error.value());
   if (!isEmpty && !force)
      throw TCommandFailure(
         kExitRun, fmt::format("{}: the folder exists and is not empty; --force replaces it, with "
                               "everything in it",
                               fTarget));
}

void TOutputFolder::CheckInputs(const std::vector<std::string>& inputs) const
{
   if (!fTargetExists)
      return;
   std::error_code error;
   if (IsWithin(fs::current_path(error), fPlace))
      throw TCommandFailure(kExitRun,
                            fmt::format("{}: the output folder holds the current folder", fTarget));
   for (const std::string& input : inputs) {
      const fs::path path = fs::canonical(input, error);
      if (!error && IsWithin(path, fPlace))
         throw TCommandFailure(
            kExitRun, fmt::format("{}: the output folder holds the input {}", fTarget, input));
   }
}

void TOutputFolder::Stage()
{
   const fs::path place(fPlace);
   MakeParents(place.parent_path());
   std::string staging =
      (place.parent_path() / ("." + place.filename().string() + ".qsxreport-XXXXXX")).string();
   // An interrupt between the two would leave the folder behind.
   const TInterruptsHeld held;
   // The mode is 0700.
   if (mkdtemp(staging.data()) == nullptr)
      Fail("can't be made", errno);
   fStaging = staging;
   fCleanup = std::make_unique<TInterruptCleanup>(fStaging);
}

void TOutputFolder::MakeParents(const fs::path& folder)
{
   if (!folder.has_relative_path() || access(folder.c_str(), F_OK) == 0)
      return;
   MakeParents(folder.parent_path());
   if (mkdir(folder.c_str(), kEveryone) == 0)
      fMadeParents.push_back(folder.string());
   else if (errno != EEXIST)
      Fail("the folder above it can't be made", errno);
}

std::string TOutputFolder::GetWorkFolder(const std::string& subfolder)
{
   if (subfolder.empty())
      return fStaging;
   const std::string folder = fStaging + '/' + subfolder;
   if (mkdir(folder.c_str(), kEveryone) != 0 && errno != EEXIST)
      Fail("can't be written", errno);
   return folder;
}

void TOutputFolder::Publish()
{
   const auto hold = fCleanup->Hold();
   if (chmod(fStaging.c_str(), fMode) != 0)
      Fail("can't be given its mode", errno);
   if (!fTargetExists) {
      // A folder that came meanwhile is not replaced unless it is empty.
      if (rename(fStaging.c_str(), fPlace.c_str()) != 0)
         Fail("can't be moved into place", errno);
      fStaging.clear();
      return;
   }
   SwapWithTarget();
}

/// After it the staging folder holds what stood at the target, for the destructor to remove.
void TOutputFolder::SwapWithTarget()
{
   if (renameat2(AT_FDCWD, fStaging.c_str(), AT_FDCWD, fPlace.c_str(), RENAME_EXCHANGE) == 0)
      return;
   if (errno != EINVAL && errno != ENOSYS)
      Fail("can't be replaced", errno);
   // The file system can't exchange: the target is away for the moment between two renames.
   const std::string former = fStaging + ".former";
   if (rename(fPlace.c_str(), former.c_str()) != 0)
      Fail("can't be moved away", errno);
   if (rename(fStaging.c_str(), fPlace.c_str()) != 0) {
      const int error = errno;
      if (rename(former.c_str(), fPlace.c_str()) != 0)
         Fail(fmt::format("can't be moved into place; what stood there is {} now", former), error);
      Fail("can't be moved into place", error);
   }
   fStaging = former;
}

bool TOutputFolder::HasFile(const std::string& subfolder, const std::string& name) const
{
   std::error_code error;
   return fs::is_regular_file(fs::path(fStaging) / subfolder / name, error);
}

void TOutputFolder::PublishFile(const std::string& subfolder, const std::string& name)
{
   const std::string relative = subfolder.empty() ? name : subfolder + '/' + name;
   const std::string folder = subfolder.empty() ? fPlace : fPlace + '/' + subfolder;
   if (mkdir(fPlace.c_str(), kEveryone) != 0 && errno != EEXIST)
      Fail("can't be made", errno);
   if (!subfolder.empty() && mkdir(folder.c_str(), kEveryone) != 0 && errno != EEXIST)
      Fail("can't be written", errno);
   struct stat status = {};
   if (lstat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
      Fail("can't be written", ENOTDIR);
   if (rename((fStaging + '/' + relative).c_str(), (fPlace + '/' + relative).c_str()) != 0)
      Fail("can't be written", errno);
}

std::string TOutputFolder::NameTarget(std::string message) const
{
   for (std::size_t at = 0; IsStaged() && (at = message.find(fStaging, at)) != std::string::npos;)
      message.replace(at, fStaging.size(), fTarget);
   return message;
}

void TOutputFolder::Fail(const std::string& what, int error) const
{
   throw TCommandFailure(kExitRun, fmt::format("{}: {}: {}", fTarget, what, std::strerror(error)));
}
