#include "StagedFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fmt/format.h>

#include "CommandFailure.h"
#include "Interrupt.h"

namespace {

mode_t GetUmask()
{
   const mode_t mask = umask(0);
   umask(mask);
   return mask;
}

/// The folder of a path, with the separator; empty for the working folder.
std::string GetFolder(const std::string& path)
{
   const std::size_t end = path.rfind('/');
   return end == std::string::npos ? "" : path.substr(0, end + 1);
}

}  // namespace

TStagedFile::TStagedFile(const std::string& target, bool force, mode_t mode)
   : fTarget(target), fMode(mode)
{
   CheckTarget(force);
}

TStagedFile::~TStagedFile()
{
   if (fDescriptor >= 0)
      close(fDescriptor);
   if (!fStaging.empty())
      unlink(fStaging.c_str());
}

void TStagedFile::CheckTarget(bool force)
{
   const std::string folder = GetFolder(fTarget);
   if (fTarget.empty() || folder.size() == fTarget.size())
      throw TCommandFailure(kExitRun, fmt::format("{}: the output file needs a name", fTarget));
   if (access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) != 0)
      Fail("its folder can't be written", errno);
   struct stat status = {};
   if (lstat(fTarget.c_str(), &status) != 0) {
      if (errno != ENOENT)
         Fail("can't be looked at", errno);
      return;
   }
   if (!S_ISREG(status.st_mode))
      throw TCommandFailure(kExitRun, fmt::format("{}: is no regular file", fTarget));
   if (!force)
      throw TCommandFailure(kExitRun,
                            fmt::format("{}: the file exists; --force replaces it", fTarget));
   fReplaces = true;
}

void TStagedFile::Stage()
{
   StageUnwatched();
   fCleanup = std::make_unique<TInterruptCleanup>(fStaging);
}

void TStagedFile::StageUnwatched()
{
   const std::string folder = GetFolder(fTarget);
   std::string pattern = folder + '.' + fTarget.substr(folder.size()) + ".XXXXXX";
   fDescriptor = mkostemp(pattern.data(), O_CLOEXEC);
   if (fDescriptor < 0)
      Fail("can't be made", errno);
   fStaging = pattern;
}

void TStagedFile::Close()
{
   const int descriptor = fDescriptor;
   fDescriptor = -1;
   if (close(descriptor) != 0)
      Fail("can't be written", errno);
}

void TStagedFile::Publish()
{
   std::unique_lock<std::mutex> hold;
   if (fCleanup)
      hold = fCleanup->Hold();
   const mode_t mode = fMode == kPrivateMode ? fMode : fMode & ~GetUmask();
   if (fchmod(fDescriptor, mode) != 0)
      Fail("can't be given its mode", errno);
   Close();
   // A file that came meanwhile is not replaced, where the file system can tell.
   const unsigned flags = fReplaces ? 0 : RENAME_NOREPLACE;
   int result = renameat2(AT_FDCWD, fStaging.c_str(), AT_FDCWD, fTarget.c_str(), flags);
   if (result != 0 && (errno == EINVAL || errno == ENOSYS))
      result = rename(fStaging.c_str(), fTarget.c_str());
   if (result != 0)
      Fail("can't be moved into place", errno);
   fStaging.clear();
}

void TStagedFile::Fail(const std::string& what, int error) const
{
   throw TCommandFailure(kExitRun, fmt::format("{}: {}: {}", fTarget, what, std::strerror(error)));
}
