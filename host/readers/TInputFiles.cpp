#include "readers/TInputFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include "readers/TReadError.h"

namespace NZANQSX20 {

namespace fs = std::filesystem;

namespace {

/// Whether the path lies below the folder; both are free of links.
bool LiesBelow(const fs::path& path, const fs::path& folder)
{
   const auto mismatch = std::mismatch(folder.begin(), folder.end(), path.begin(), path.end());
   return mismatch.first == folder.end() && mismatch.second != path.end();
}

}  // namespace

std::vector<std::string> TInputFiles::List(const std::string& path) const
{
   std::error_code error;
   const fs::file_status status = fs::status(path, error);
   if (!fs::exists(status))
      throw TReadError(path, {}, fmt::format("cannot be opened: {}", error.message()));
   if (!fs::is_directory(status))
      return {path};

   std::vector<std::string> files;
   for (fs::directory_iterator entry(path, error), end; !error && entry != end;
        entry.increment(error)) {
      std::error_code ignored;
      if (!entry->is_regular_file(ignored))
         continue;
      files.push_back(entry->path().string());
      if (files.size() > fLimits.fFiles)
         throw TReadError(path, {},
                          fmt::format("expected at most {} files, found more", fLimits.fFiles));
   }
   if (error)
      throw TReadError(path, {}, fmt::format("cannot be read: {}", error.message()));
   std::sort(files.begin(), files.end());
   return files;
}

bool TInputFiles::IsReadable(const std::string& path)
{
   return ::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) == 0;
}

bool TInputFiles::Begin(const std::string& path)
{
   struct stat status = {};
   if (::stat(path.c_str(), &status) != 0)
      throw TReadError(path, {}, fmt::format("cannot be opened: {}", std::strerror(errno)));
   if (!fBegun.emplace(status.st_dev, status.st_ino).second)
      return false;
   if (fBegun.size() > fLimits.fFiles)
      throw TReadError(path, {},
                       fmt::format("expected at most {} files, found more", fLimits.fFiles));
   return true;
}

std::string TInputFiles::Resolve(const TSource& including, std::size_t mark,
                                 std::string_view name) const
{
   // The system would take what stands ahead of it for the name.
   if (name.find('\0') != std::string_view::npos)
      including.Fail(mark,
                     fmt::format("expected the name of a file, found {}", QuoteForMessage(name)));
   const fs::path relative(name);
   const fs::path folder = fs::path(including.GetName()).parent_path();
   const fs::path path = folder / relative;

   std::error_code error;
   const fs::path canonicalFolder = fs::canonical(folder.empty() ? "." : folder, error);
   const fs::path canonicalPath = error ? fs::path() : fs::canonical(path, error);
   if (error)
      including.Fail(mark, fmt::format("expected a file that can be included, found {}: {}",
                                       QuoteForMessage(name), error.message()));
   if (relative.is_absolute() || !LiesBelow(canonicalPath, canonicalFolder))
      including.Fail(mark, fmt::format("expected a file inside the folder of this one, found {}",
                                       QuoteForMessage(name)));
   if (!fs::is_regular_file(canonicalPath, error))
      including.Fail(mark, fmt::format("expected a regular file, found {}", QuoteForMessage(name)));
   return path.string();
}

}  // namespace NZANQSX20
