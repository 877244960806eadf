#pragma once

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

#include "CoreServices.h"

namespace NZANQSX20 {

/// What a user asks for with "up to level N": levels 0 to N, and the notices (100) always.
inline bool IsUpTo(int level, int highestLevel)
{
   return level <= highestLevel || level == kLogNotice;
}

/// Writes lines to a file or to standard error: "error: text", the level's name and one line each.
///
/// Shape:   control characters of a text are written as "\xNN", so that what a collection holds can
///          neither break a line nor drive a terminal.
/// Missing: a line that can't be written is lost, HasFailed tells so.
class QSX_API TFileLog : public TLogger
{
public:
   /// To standard error.
   explicit TFileLog(int highestLevel);

   /// To a file, which is replaced. Throws: std::system_error that names the file and the reason.
   TFileLog(const std::string& path, int highestLevel);
   ~TFileLog() override;
   TFileLog(const TFileLog&) = delete;
   TFileLog& operator=(const TFileLog&) = delete;

   bool IsLevelEnabled(int level) const override { return IsUpTo(level, fHighestLevel); }

   void Log(int level, const std::string& text) override;

   /// Whether any line was lost so far. Lines of a file are complete only after Flush.
   bool HasFailed() const { return fHasFailed; }

   void Flush();

private:
   std::FILE* fFile;
   bool fIsOwner;
   int fHighestLevel;
   bool fHasFailed = false;
};

/// Keeps lines in memory, each with its level, in order.
class QSX_API TRecordingLog : public TLogger
{
public:
   explicit TRecordingLog(int highestLevel) : fHighestLevel(highestLevel) {}

   bool IsLevelEnabled(int level) const override { return IsUpTo(level, fHighestLevel); }

   void Log(int level, const std::string& text) override { fLines.emplace_back(level, text); }

   const std::vector<std::pair<int, std::string>>& GetLines() const { return fLines; }

private:
   int fHighestLevel;
   std::vector<std::pair<int, std::string>> fLines;
};

}  // namespace NZANQSX20
