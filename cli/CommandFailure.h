#pragma once

#include <stdexcept>
#include <string>

/// How the program ends; scripts rely on the numbers.
enum EExitCode : int
{
   kExitDone = 0,
   kExitDifferences = 1,
   kExitUsage = 2,
   kExitInput = 3,
   kExitRun = 4,
   kExitSomeFailed = 5
};

/// What ends a command early: the message for the user and the exit code.
class TCommandFailure : public std::runtime_error
{
public:
   TCommandFailure(EExitCode exitCode, const std::string& message)
      : std::runtime_error(message), fExitCode(exitCode)
   {}

   EExitCode GetExitCode() const { return fExitCode; }

private:
   EExitCode fExitCode;
};
