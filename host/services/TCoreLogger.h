#pragma once

#include <string>
#include <vector>

#include "CoreServices.h"

namespace NZANQSX20 {

/// The host's logger: hands each line to every logger that is attached and wants its level.
///
/// Missing: without anything attached, lines go nowhere and no level is enabled.
class QSX_API TCoreLogger : public TLogger
{
public:
   /// The one that TRootObject gives out. Owner: lives to the end of the program.
   static TCoreLogger& Get();

   bool IsLevelEnabled(int level) const override;
   void Log(int level, const std::string& text) override;

   /// Missing: a logger that is attached already is not attached twice.
   /// Owner: the caller's, who detaches it before it goes; TLogAttachment does both.
   void Attach(TLogger& logger);
   void Detach(TLogger& logger);

private:
   std::vector<TLogger*> fLoggers;
};

/// Attaches a logger to the core logger for as long as this object lives.
class TLogAttachment
{
public:
   explicit TLogAttachment(TLogger& logger) : fLogger(logger) { TCoreLogger::Get().Attach(logger); }

   ~TLogAttachment() { TCoreLogger::Get().Detach(fLogger); }

   TLogAttachment(const TLogAttachment&) = delete;
   TLogAttachment& operator=(const TLogAttachment&) = delete;

private:
   TLogger& fLogger;
};

}  // namespace NZANQSX20
