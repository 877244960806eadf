#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/CollectionFacts.h"

class TWriter;
class TWriter_vmwesxi;

/// What a concrete writer of the tool needs beside the run parameters.
struct TWriterSettings
{
   /// Where its files go; it exists.
   std::string fOutputDirectory;
   /// The further name of a format that takes one ("trace:NAME"), or empty.
   std::string fFormatName;
   std::string fBaseDirectory;
   /// The collections, the time and the program, for the reader of the pages.
   std::string fSource;
   /// compare: the file of each system. Missing: empty with the other commands.
   std::vector<std::string> fComparedFiles;
   std::string fWritten;
   /// The run is to be one file, for standard output.
   bool fIsOneFile = false;
   std::string fProgram;
   TCollectionFacts fCollection;
   /// Told the link name of each page that is begun.
   std::function<void(const std::string&)> fOnPage;
};

/// One run in one format, from its first log line to its end.
class IFormatRun
{
public:
   virtual ~IFormatRun() = default;

   /// Whether the run is told log lines; those that nobody wants are not even made.
   virtual bool WantsLogLines() const { return false; }

   /// A core log line, while the run lasts.
   virtual void OnLogLine(int /*level*/, const std::string& /*text*/) {}

   /// The run came to its end. Throws: std::system_error when a file could not be written.
   virtual void Finish() {}

   /// A failure left the run. Throws: as Finish does.
   virtual void Fail(const std::exception& /*failure*/) {}
};

/// With its concrete writer. Writer is TWriter or TWriter_vmwesxi.
template <typename Writer>
class IWriterRun : public IFormatRun
{
public:
   virtual Writer& GetWriter() = 0;
};

/// One output format of the tool.
struct TFormat
{
   const char* fName;
   const char* fSummary;
   /// Whether "NAME:text" is understood.
   bool fTakesName;
   /// The file to open first.
   const char* fEntryFile;
   /// The file that stays when the run fails; null where none does.
   const char* fKeptFile;
   /// The file that holds all of a run that is to be one; null where a run is many files.
   const char* fOneFile;
   std::unique_ptr<IWriterRun<TWriter>> (*fMakeRun)(const TWriterSettings& settings);
   std::unique_ptr<IWriterRun<TWriter_vmwesxi>> (*fMakeHypervisorRun)(
      const TWriterSettings& settings);
};

/// All formats, in the order in which they are told. The first is the default.
const std::vector<TFormat>& GetFormats();

/// Missing: null.
const TFormat* FindFormat(const std::string& name);
