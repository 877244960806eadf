#pragma once

#include <functional>
#include <string>

class IFormatRun;
class TConsole;
class TRunLog;
struct TFormat;
struct TOptions;
struct TWriterSettings;

/// The time that SOURCE_DATE_EPOCH asks for, in UTC. Missing: empty where it asks for none, so that
/// the same input gives the same pages at any time.
std::string DescribeTime();

/// Runs the library over the input that was read, in one format.
using TRunInFormat = std::function<void(const TFormat& format, const TWriterSettings& settings)>;

/// What commands that write pages share: the output folder, one run per format, and what stays of a
/// run that fails.
///
/// Shape:  read is called once per format, as a run corrects the data that it reads; no output
///         folder is touched before it came back.
/// Throws: what read throws; TCommandFailure when the run fails or the output can't be written.
void WriteFormats(const TOptions& options, TConsole& console,
                  const std::function<TRunInFormat(TRunLog& log)>& read);

/// Calls the library's entry point with the log led to the run and its end told to it.
/// Throws: what write throws.
void RunFormat(IFormatRun& run, TRunLog& log, const std::function<void()>& write);
