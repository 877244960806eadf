#pragma once

#include <cstdint>
#include <future>
#include <string>
#include <vector>

#include "common/RunOutcome.h"

namespace NZANQSX20 {
struct TCollection;
}

/// A file that was read. Missing: empty for standard input.
struct TInputFile
{
   /// Without its folder.
   std::string fName;
   std::uint64_t fBytes = 0;
   /// XXH3 of 64 bits over the bytes of the file, in hexadecimal digits: that of a large file is
   /// worked out beside the run. Missing: the empty text for a file that can't be read again.
   std::shared_future<std::string> fDigest;
};

/// Throws: nothing; a file that can't be read again has no digest.
std::vector<TInputFile> DescribeInputs(const NZANQSX20::TCollection& collection);

/// The file that tells other programs what an output folder holds: the machine, the verdict, what
/// it rests on.
///
/// Shape: the same input gives the same bytes; only SOURCE_DATE_EPOCH brings a time into it.
/// Owner: the files are the caller's and outlive it.
class TManifest
{
public:
   static constexpr const char* kName = "manifest.json";

   TManifest(std::string kind, const std::vector<TInputFile>& files)
      : fKind(std::move(kind)), fFiles(files)
   {}

   /// The facts for a run that this manifest is told of.
   TCollectionFacts Attend(TCollectionFacts facts);

   /// After the run, the last of its files. Missing: nothing is written in a format that makes no
   /// pages of reports. Throws: TOutputError.
   void Write(const std::string& folder) const;

private:
   const std::string fKind;
   const std::vector<TInputFile>& fFiles;
   std::string fText;
};
