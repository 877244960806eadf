#include "services/TCoreLogger.h"

#include <algorithm>

namespace NZANQSX20 {

TCoreLogger& TCoreLogger::Get()
{
   // Never destroyed: whatever logs at the end of the program still finds it.
   static TCoreLogger& logger = *new TCoreLogger;
   return logger;
}

bool TCoreLogger::IsLevelEnabled(int level) const
{
   return std::any_of(fLoggers.begin(), fLoggers.end(),
                      [level](const TLogger* logger) { return logger->IsLevelEnabled(level); });
}

void TCoreLogger::Log(int level, const std::string& text)
{
   for (TLogger* logger : fLoggers) {
      if (logger->IsLevelEnabled(level))
         logger->Log(level, text);
   }
}

void TCoreLogger::Attach(TLogger& logger)
{
   if (std::find(fLoggers.begin(), fLoggers.end(), &logger) == fLoggers.end())
      fLoggers.push_back(&logger);
}

void TCoreLogger::Detach(TLogger& logger)
{
   fLoggers.erase(std::remove(fLoggers.begin(), fLoggers.end(), &logger), fLoggers.end());
}

TLogger* TRootObject::GetCoreLogger()
{
   return &TCoreLogger::Get();
}

}  // namespace NZANQSX20
