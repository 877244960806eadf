#include "Console.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iostream>

#include <fmt/format.h>

#include "CommandFailure.h"

namespace {

constexpr std::chrono::milliseconds kProgressInterval(100);
/// Longer lines would wrap, and then no longer be cleared.
constexpr std::size_t kProgressBytes = 78;

constexpr const char* kRed = "\033[1;31m";
constexpr const char* kYellow = "\033[1;33m";
constexpr const char* kPlain = "\033[0m";
constexpr const char* kClearLine = "\r\033[K";

bool HasText(const char* variable)
{
   const char* text = std::getenv(variable);
   return text != nullptr && *text != '\0';
}

bool IsDumbTerminal()
{
   const char* terminal = std::getenv("TERM");
   return terminal == nullptr || std::strcmp(terminal, "dumb") == 0;
}

void WriteError(const std::string& text)
{
   std::fwrite(text.data(), 1, text.size(), stderr);
}

bool IsControl(char character)
{
   const auto byte = static_cast<unsigned char>(character);
   return byte < 0x20 || byte == 0x7f;
}

/// The second byte of U+0080 to U+009F: terminals obey these as well.
bool EndsControl(const std::string& text, std::size_t at)
{
   const auto byte = static_cast<unsigned char>(text[at]);
   return at > 0 && text[at - 1] == '\xC2' && byte >= 0x80 && byte < 0xA0;
}

}  // namespace

TConsole::TConsole(bool quiet, bool color)
   : fQuiet(quiet), fHasTerminal(isatty(STDERR_FILENO) != 0 && !IsDumbTerminal())
{
   fColor = color && fHasTerminal && !HasText("NO_COLOR");
}

void TConsole::Error(const std::string& text)
{
   Write(kRed, "qsxreport: error: ", text);
}

void TConsole::ErrorInFile(const std::string& text)
{
   Write("", "", text);
}

void TConsole::Warning(const std::string& text)
{
   if (!fQuiet)
      Write(kYellow, "qsxreport: warning: ", text);
}

void TConsole::Note(const std::string& text)
{
   if (!fQuiet)
      Write("", "qsxreport: ", text);
}

void TConsole::Line(const std::string& text)
{
   Write("", "", text);
}

void TConsole::Progress(const std::string& text)
{
   if (fQuiet || !fHasTerminal)
      return;
   const auto time = std::chrono::steady_clock::now();
   if (time < fNextProgress)
      return;
   fNextProgress = time + kProgressInterval;
   WriteError(kClearLine + MakePrintable(text).substr(0, kProgressBytes));
   fProgressShown = true;
}

void TConsole::ClearProgress()
{
   if (fProgressShown)
      WriteError(kClearLine);
   fProgressShown = false;
}

void TConsole::Write(const char* color, const char* label, const std::string& text)
{
   ClearProgress();
   if (fColor && *color != '\0')
      WriteError(fmt::format("{}{}{}{}\n", color, label, kPlain, MakePrintable(text)));
   else
      WriteError(label + MakePrintable(text) + '\n');
}

std::string MakePrintable(const std::string& text)
{
   std::string printable;
   for (std::size_t at = 0; at < text.size(); ++at) {
      if (EndsControl(text, at))
         printable.pop_back();
      if (IsControl(text[at]) || EndsControl(text, at))
         printable += fmt::format("\\x{:02X}", static_cast<unsigned char>(text[at]));
      else
         printable += text[at];
   }
   return printable;
}

void FlushStandardOutput()
{
   if (std::cout)
      std::cout.flush();
   if (std::cout)
      return;
   const std::string reason = errno != 0 ? std::string(": ") + std::strerror(errno) : "";
   throw TCommandFailure(kExitRun, "standard output can't be written" + reason);
}
