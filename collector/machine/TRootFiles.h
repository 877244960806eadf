#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "machine/TReading.h"

namespace NZANQSX20 {

/// What can be asked of a path.
enum class EQuestion : unsigned char
{
   kContent,         // of a regular file, up to fSize bytes
   kPart,            // fSize bytes of a regular file from fOffset
   kNames,           // of a folder, each with a null byte behind it
   kLink,            // the text of a symbolic link
   kResolved,        // the path without links
   kStatus,          // size and time of change, as decimal numbers with a blank between them
   kFileSystemSize,  // total and free bytes, likewise
};

struct TFileRequest
{
   EQuestion fQuestion = EQuestion::kContent;
   std::string fPath = {};
   std::uint64_t fOffset = 0;
   std::size_t fSize = 0;
};

/// The files below a root, asked without any protection against a file system that hangs.
///
/// Shape: under a root other than "/" links stay inside the root.
class TRootFiles
{
public:
   /// Throws: std::system_error when the root is no folder that can be read, or when the kernel
   ///         can't keep links inside (before 5.6).
   explicit TRootFiles(const std::string& root);
   ~TRootFiles();
   TRootFiles(const TRootFiles&) = delete;
   TRootFiles& operator=(const TRootFiles&) = delete;

   bool IsThisMachine() const { return fRoot == "/"; }

   /// The answer is the text of the reading.
   TReading Answer(const TFileRequest& request) const;

private:
   int Open(const std::string& path, int flags) const;
   void ReadNames(int folder, TReading& reading) const;
   void ReadResolved(int place, TReading& reading) const;

   std::string fRoot;
   int fRootFolder = -1;
};

}  // namespace NZANQSX20
