#pragma once

#include <string>
#include <utility>

#include "trace/TraceFile.h"

/// The output operations that the writer of servers and the writer of hypervisors have in common,
/// recorded. Writer is one of the two.
template <typename Writer>
class TTraceOutput : public Writer
{
public:
   using TReportProperty = TReportParameters::TReportProperty;

   /// Log lines reach the trace here, from a sink that the caller puts on the host's logger.
   TTraceFile& GetFile() { return fFile; }

   void Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext /*params*/,
                   std::string outputDirectory) override
   {
      this->fNamespace = std::move(cimNamespace);
      this->fOutputDirectory = std::move(outputDirectory);
      fFile.WriteOperation("Initialize");
   }

   void BeginIndex() override { fFile.WriteOperation("BeginIndex"); }

   void EndIndexGroup() override { fFile.WriteOperation("EndIndexGroup"); }

   void BeginIndexGroup(std::string heading) override
   {
      fFile.WriteOperation("BeginIndexGroup", heading);
   }

   void EndIndex() override { fFile.WriteOperation("EndIndex"); }

   void OpenReportFile(std::string path) override
   {
      fFile.WriteOperation("OpenReportFile", GetTracePath(path, this->fOutputDirectory));
   }

   void CloseReportFile() override { fFile.WriteOperation("CloseReportFile"); }

   void BeginReportBody() override { fFile.WriteOperation("BeginReportBody"); }

   void EndReportBody() override { fFile.WriteOperation("EndReportBody"); }

   void WriteReportTitle(std::string title, std::string linkText, std::string linkTarget) override
   {
      fFile.WriteOperation("WriteReportTitle", title, linkText, linkTarget);
   }

   void WriteIndexEntry(std::string linkName, std::string displayName, const bool& hasData) override
   {
      fFile.WriteOperation("WriteIndexEntry", linkName, displayName, hasData);
   }

   void WriteTableTitle(std::string title, const bool& subTitle, const bool& emphasised) override
   {
      fFile.WriteOperation("WriteTableTitle", title, subTitle, emphasised);
   }

   void WriteGrid(TTableGrid* grid) override { fFile.WriteOperation("WriteGrid", *grid); }

   std::string GetArrayValueSeparatorText(TReportProperty::ArrayValueSeparator separator) override
   {
      return GetTraceSeparatorText(separator);
   }

   std::string EncodeValueText(std::string text) override { return EncodeTraceText(text); }

protected:
   /// Throws: TOutputError when the trace can't be created in the directory.
   explicit TTraceOutput(const std::string& outputDirectory) : fFile(outputDirectory) {}

   ~TTraceOutput() = default;

   TTraceFile fFile;
};
