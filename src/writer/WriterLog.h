#pragma once

#include <string>
#include <string_view>

#include "CIMStore.h"

/// Writes the parts as one line at a level. No text is built where nobody would see it.
template <typename... Parts>
void LogAt(int level, const Parts&... parts)
{
   NZANQSX20::TLogger& logger = *TRootObject::GetCoreLogger();
   if (!logger.IsLevelEnabled(level))
      return;
   std::string text;
   (text.append(std::string_view(parts)), ...);
   logger.Log(level, text);
}

/// An operation failed and a result is missing or unsorted.
template <typename... Parts>
void LogError(const Parts&... parts)
{
   LogAt(NZANQSX20::kLogError, parts...);
}

/// A definition or a collection lacks an expected thing.
template <typename... Parts>
void LogMissing(const Parts&... parts)
{
   LogAt(NZANQSX20::kLogMissing, parts...);
}

/// Progress of the reports and results of the probes.
template <typename... Parts>
void LogTrace(const Parts&... parts)
{
   LogAt(NZANQSX20::kLogTrace, parts...);
}

/// A notice for whoever runs the collection.
template <typename... Parts>
void LogNotice(const Parts&... parts)
{
   LogAt(NZANQSX20::kLogNotice, parts...);
}

/// Traces the text without as many leading characters as the status, and without the status:
/// "Exiting TWriter::WriteEnvironmentals, ..." reads "::WriteEnvironmentals, ..." for status 15.
/// That is meant; the readers of the log know these lines by it.
///
/// Missing: a status below 0 cuts nothing, one longer than the text leaves an empty line.
void LogStatus(std::string_view text, int status);
void LogStatus(std::string_view text, const TQSXException& failure);
