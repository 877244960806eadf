#pragma once

#include <string>

namespace NZANQSX20 {

/// Why something could not be had; the numbers are those of QSX_NotCollected.Reason.
enum class EReason : unsigned short
{
   kNone = 0,
   kNotInstalled = 1,
   kNotPermitted = 2,
   kTimedOut = 3,
   kFailed = 4,
   kTooLong = 5,
   kNotReadable = 6,
   kNotPresent = 7
};

/// What a file held or a tool printed, or why neither could be had.
struct TReading
{
   /// The bytes as they came, in any encoding. Missing: cut short or empty when there is a reason.
   std::string fText = {};
   EReason fReason = EReason::kNone;
   /// The path of the file or the tool.
   std::string fSource = {};
   /// The reason in words, as the system or the tool tells it; may be empty.
   std::string fDetail = {};
   /// Of a tool.
   int fExitCode = 0;

   /// Whether the text is whole.
   explicit operator bool() const { return fReason == EReason::kNone; }
};

}  // namespace NZANQSX20
