#include "services/LogSinks.h"

#include <cerrno>
#include <system_error>

#include <fmt/format.h>

namespace NZANQSX20 {

namespace {

std::string GetLevelName(int level)
{
   switch (level) {
      case kLogError:
         return "error";
      case kLogMissing:
         return "missing";
      case kLogMissingClass:
         return "missing class";
      case kLogTrace:
         return "trace";
      case kLogNotice:
         return "notice";
      default:
         return fmt::format("level {}", level);
   }
}

std::string GetLine(int level, const std::string& text)
{
   std::string line = GetLevelName(level) + ": ";
   for (const char c : text) {
      const auto byte = static_cast<unsigned char>(c);
      if (byte < 0x20 || byte == 0x7f)
         line += fmt::format("\\x{:02x}", byte);
      else
         line += c;
   }
   return line += '\n';
}

}  // namespace

TFileLog::TFileLog(int highestLevel) : fFile(stderr), fIsOwner(false), fHighestLevel(highestLevel)
{}

TFileLog::TFileLog(const std::string& path, int highestLevel)
   : fFile(std::fopen(path.c_str(), "we")), fIsOwner(true), fHighestLevel(highestLevel)
{
   if (fFile == nullptr)
      throw std::system_error(errno, std::generic_category(), path);
}

TFileLog::~TFileLog()
{
   if (fIsOwner)
      std::fclose(fFile);
}

void TFileLog::Log(int level, const std::string& text)
{
   const std::string line = GetLine(level, text);
   if (std::fwrite(line.data(), 1, line.size(), fFile) != line.size())
      fHasFailed = true;
}

void TFileLog::Flush()
{
   if (std::fflush(fFile) != 0)
      fHasFailed = true;
}

}  // namespace NZANQSX20
