#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <type_traits>

#include "html/THtmlWriter.h"
#include "reliability/TFaultStore.h"
#include "reliability/TOutcome.h"

/// Of a page's path or link, which may end in ".html". A log file's own ending stays.
inline std::string GetPageName(const std::filesystem::path& path)
{
   return path.extension() == ".html" ? path.stem() : path.filename();
}

/// A writer that knows which store calls its pages took.
template <typename Writer>
class TPagedWriter : public Writer
{
public:
   using Writer::Writer;

   const TFaultStore* fStore = nullptr;
   /// The first page at each number: those behind it took no call of their own.
   std::map<std::uint64_t, std::string> fPageOfCall;
   /// The first line of each page, and under no name of what stands between two.
   std::vector<std::pair<std::size_t, std::string>> fBegins;

   void OpenReportFile(std::string path) override
   {
      EndPage();
      fPage = GetPageName(path);
      fBegins.emplace_back(FindFirstLine(), fPage);
      Writer::OpenReportFile(path);
   }

   void CloseReportFile() override
   {
      Writer::CloseReportFile();
      fClosedAt = fStore->GetCalls();
      fBegins.emplace_back(CountLines(), "");
   }

   void WriteIndexEntry(std::string linkName, std::string displayName, const bool& hasData) override
   {
      const std::string name = GetPageName(linkName);
      if (name == fPage)
         fClosedAt = fStore->GetCalls();
      EndPage();
      fBegins.emplace_back(CountLines(), name);
      Writer::WriteIndexEntry(linkName, displayName, hasData);
      fBegins.emplace_back(CountLines(), "");
      // Pages of log files come behind their entries.
      if (!name.empty())
         fPageOfCall.emplace(fStore->GetCalls(), name);
   }

   // Without "override": the hypervisor's writer has no such report.
   void WriteEventLogReport(TReportParameters params)
   {
      const std::string name = GetPageName(params.GetLinkName());
      fBegins.emplace_back(CountLines(), name);
      Writer::WriteEventLogReport(params);
      fPageOfCall.emplace(fStore->GetCalls(), name);
      fBegins.emplace_back(CountLines(), "");
   }

   std::size_t CountLines() const
   {
      if constexpr (std::is_same_v<THtmlWriter, Writer>)
         return 0;
      else
         return this->fLines.size();
   }

private:
   /// A page begins with the link to its raw data, which is written ahead of it.
   std::size_t FindFirstLine() const
   {
      std::size_t first = CountLines();
      if constexpr (!std::is_same_v<THtmlWriter, Writer>)
         while (first > 0 && this->fLines[first - 1].rfind("WriteRawDataLink", 0) == 0)
            --first;
      return first;
   }

   /// What is called behind it belongs to the next one.
   void EndPage()
   {
      if (!fPage.empty())
         fPageOfCall.emplace(fClosedAt, fPage);
      fPage.clear();
   }

   std::string fPage;
   std::uint64_t fClosedAt = 0;
};

template <typename Recording>
void TakePages(TPagedWriter<Recording>& writer, const std::string&, TOutcome& outcome)
{
   outcome.fLines.swap(writer.fLines);
   writer.fBegins.emplace_back(outcome.fLines.size(), "");
   for (std::size_t i = 0; i + 1 < writer.fBegins.size(); ++i) {
      const auto& [first, page] = writer.fBegins[i];
      if (!page.empty())
         outcome.fOutline.emplace_back(page, "");
      for (std::size_t line = first; line < writer.fBegins[i + 1].first; ++line)
         if (page.empty())
            outcome.fOutline.emplace_back("", outcome.fLines[line]);
         else
            outcome.fPages[page] += outcome.fLines[line] + '\n';
   }
}

/// Of each page what is its own; index and timeline are made of all the others.
inline void TakePages(TPagedWriter<THtmlWriter>&, const std::string& folder, TOutcome& outcome)
{
   for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (entry.is_directory())
         continue;
      std::ifstream file(entry.path());
      const std::string text{std::istreambuf_iterator<char>(file), {}};
      const std::string name = GetPageName(entry.path());
      const std::size_t own = text.find("<main");
      if (own != std::string::npos && name != "index" && name != "timeline")
         outcome.fPages[name] = text.substr(own);
      std::filesystem::remove(entry.path());
   }
}
