#pragma once

#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "services/LogSinks.h"

class TConsole;
struct TOptions;

/// The log of a command: the lines up to the level asked for, to a file and to standard error where
/// those are asked for.
class TRunLog : public NZANQSX20::TLogger
{
public:
   /// Throws: std::system_error when the file can't be opened.
   TRunLog(const TOptions& options, TConsole& console);

   bool IsLevelEnabled(int level) const override;
   void Log(int level, const std::string& text) override;

   /// Warnings about the input, with those that the user is to see word by word; the others come as
   /// their number. Missing: a second reading of the input tells nothing again.
   void TellWarnings(const std::vector<std::string>& warnings,
                     const std::vector<std::string>& inFull = {});

   /// Whether any operation failed so far: each costs a result.
   bool HasErrors() const { return fHasErrors; }

   /// Throws: TCommandFailure when a line could not be written to the file.
   void Finish();

private:
   TConsole& fConsole;
   std::string fPath;
   bool fHasErrors = false;
   bool fHasToldWarnings = false;
   // Each is empty where its lines are not asked for.
   std::unique_ptr<NZANQSX20::TFileLog> fFile;
   std::unique_ptr<NZANQSX20::TFileLog> fTerminal;
};

/// Leads what the library prints on standard output into the log, for as long as it lives. The
/// core's log, and with it the trace, does not see these lines.
class TOutputDiversion
{
public:
   explicit TOutputDiversion(TRunLog& log);
   ~TOutputDiversion();

   TOutputDiversion(const TOutputDiversion&) = delete;
   TOutputDiversion& operator=(const TOutputDiversion&) = delete;

private:
   TRunLog& fLog;
   std::stringstream fPrinted;
   std::streambuf* fFormer;
};
