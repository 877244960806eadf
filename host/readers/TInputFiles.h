#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "readers/TReadLimits.h"
#include "readers/TSourceText.h"

namespace NZANQSX20 {

/// The files of a collection on the disk: which there are, which were read, and which may be.
class TInputFiles
{
public:
   explicit TInputFiles(const TReadLimits& limits) : fLimits(limits) {}

   /// The files that a path names: itself, or those in it, in byte order of their names. What is no
   /// regular file in a folder is passed over.
   /// Throws: TReadError where the path is not there.
   std::vector<std::string> List(const std::string& path) const;

   /// Whether a file in a folder can be opened; one that cannot is passed over with a warning.
   static bool IsReadable(const std::string& path);

   /// Notes that a file is being read. Missing: false when it was read before, under this or any
   /// other name. Throws: TReadError beyond the number of files allowed.
   bool Begin(const std::string& path);

   /// The path of an included file. Throws: TReadError where it lies outside the folder of the
   /// including file, also by way of a link, or is no regular file.
   std::string Resolve(const TSource& including, std::size_t mark, std::string_view name) const;

private:
   TReadLimits fLimits;
   std::set<std::pair<std::uint64_t, std::uint64_t>> fBegun;
};

}  // namespace NZANQSX20
