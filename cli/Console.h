#pragma once

#include <chrono>
#include <string>

/// What the user is told while a command runs: errors, warnings, notes and progress, all of it on
/// standard error. Results go to standard output, past this class.
///
/// Shape: texts may hold bytes of a collection; control bytes come out as \xNN.
class TConsole
{
public:
   /// Notes, warnings and progress are left out when quiet. Colour needs a terminal too, and that
   /// neither NO_COLOR nor TERM=dumb is set.
   TConsole(bool quiet, bool color);

   ~TConsole() { ClearProgress(); }

   TConsole(const TConsole&) = delete;
   TConsole& operator=(const TConsole&) = delete;

   /// "qsxreport: error: ..."
   void Error(const std::string& text);
   /// A message that begins with its place in a file: no name is put before it.
   void ErrorInFile(const std::string& text);
   void Warning(const std::string& text);
   void Note(const std::string& text);
   /// A line as it is, whether quiet or not.
   void Line(const std::string& text);

   /// One line that the next call replaces; on a terminal only, and at most ten times a second.
   void Progress(const std::string& text);
   void ClearProgress();

private:
   void Write(const char* color, const char* label, const std::string& text);

   bool fQuiet;
   bool fHasTerminal;
   bool fColor;
   bool fProgressShown = false;
   std::chrono::steady_clock::time_point fNextProgress;
};

/// The text with its control bytes as \xNN, fit for a terminal.
std::string MakePrintable(const std::string& text);

/// To be called right behind what writes a result, with errno 0 ahead of it.
/// Throws: TCommandFailure with the system's reason when the result is lost.
void FlushStandardOutput();
