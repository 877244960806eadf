#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "TCIMDateTime.h"
#include "machine/TFileProcess.h"
#include "machine/TReading.h"
#include "machine/TRootFiles.h"

namespace NZANQSX20 {

/// Units: bytes.
constexpr std::size_t kFileCap = std::size_t{4} << 20;

/// Units: bytes.
struct TFileSystemSize
{
   std::uint64_t fTotal = 0;
   /// What a user without privileges may still use.
   std::uint64_t fFree = 0;
};

enum class EExit
{
   kZero,  // any other exit code is a failure
   kAny    // the output counts whatever the exit code
};

/// The machine that is collected: its files and what its tools print.
///
/// Nothing is changed on it, and nothing read from it can hang the collection: files other than
/// regular ones are refused, every read ends at a cap, and at a deadline of 3 seconds.
///
/// Shape:   paths are absolute, as the machine itself has them. Under a root other than "/", links
///          stay inside the root, and tools are not run: what they printed is read from the
///          root's folder "qsxreport-tools", from the file GetRecordName names.
/// Missing: what is not there is told by the result and raises nothing.
class TMachine
{
public:
   /// Throws: std::system_error when the root is no folder that can be read.
   explicit TMachine(const std::string& root = "/");
   TMachine(const TMachine&) = delete;
   TMachine& operator=(const TMachine&) = delete;

   /// Whether the root is "/": the machine that this program runs on.
   bool IsThisMachine() const { return fFiles.IsThisMachine(); }

   /// The content of a regular file, text or not.
   TReading Read(const std::string& path, std::size_t cap = kFileCap) const;

   /// A part of a regular file, shorter where the file ends.
   TReading ReadPart(const std::string& path, std::uint64_t offset, std::size_t size) const;

   /// The first line without the blanks around it, as files of /sys have it. Missing: empty,
   /// whatever the reason.
   std::string ReadLine(const std::string& path) const;

   /// The first line as a number, decimal or hexadecimal with "0x". Missing: nothing when it is
   /// none.
   std::optional<std::uint64_t> ReadNumber(const std::string& path) const;

   /// The names in a folder in byte order. Missing: empty when it can't be read.
   std::vector<std::string> List(const std::string& folder) const;

   bool Exists(const std::string& path) const;

   /// The last name of what a symbolic link names, "e1000e" for ".../device/driver".
   /// Missing: empty when the path is no link.
   std::string ReadLinkName(const std::string& path) const;

   /// The text of a symbolic link. Missing: empty when the path is no link.
   std::string ReadLink(const std::string& path) const;

   /// The path with all links resolved, "/sys/devices/pci0000:00/..." for "/sys/class/net/eth0".
   /// Missing: empty when there is no such path.
   std::string Resolve(const std::string& path) const;

   /// Units: bytes. Missing: nothing when there is no such path.
   std::optional<std::uint64_t> GetFileSize(const std::string& path) const;

   /// Units: seconds since 1970. Missing: nothing when there is no such path.
   std::optional<std::int64_t> GetModifiedTime(const std::string& path) const;

   /// A point in time in the machine's own time zone, in UTC when that can't be told.
   /// Units: seconds since 1970, microseconds.
   TCIMDateTime MakeTime(std::int64_t seconds, unsigned microseconds = 0) const;

   /// Missing: nothing under a root other than "/", and when it can't be told.
   std::optional<TFileSystemSize> GetFileSystemSize(const std::string& path) const;

   /// What a tool of the fixed table (Tools.cpp) prints on its standard output. The same call is
   /// made once only.
   /// Throws: std::logic_error for a tool that the table does not have.
   TReading RunTool(const std::string& tool, const std::vector<std::string>& arguments,
                    EExit exit = EExit::kZero) const;

   /// The file in "qsxreport-tools" that holds what a call printed: its words joined by "_", each
   /// "/" as "-": "smartctl_-j_-a_-dev-sda".
   static std::string GetRecordName(const std::string& tool,
                                    const std::vector<std::string>& arguments);

private:
   TReading Ask(EQuestion question, const std::string& path, std::size_t size = 0,
                std::uint64_t offset = 0) const;
   TReading CallTool(const std::string& tool, const std::vector<std::string>& arguments) const;
   TReading ReadRecord(const std::string& tool, const std::vector<std::string>& arguments) const;

   TRootFiles fFiles;
   mutable TFileProcess fProcess;
   /// The rule of the time zone as POSIX writes it, "CET-1CEST,M3.5.0,M10.5.0/3".
   std::string fTimeRule;
   mutable std::map<std::string, TReading> fCalls;
};

}  // namespace NZANQSX20
