#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "common/ReportFlow.h"
#include "html/HtmlReport.h"
#include "support/TTemporaryFolder.h"

/// A run of the HTML pages into a folder of its own, and a reader of what came out.
class TPages
{
public:
   explicit TPages(TRunFacts facts = {})
      : fReport(THtmlOptions()),
        fFlow(fReport, [this](const std::string& text) { fNotices.push_back(text); })
   {
      fFlow.BeginRun(fFolder.GetPath(), facts);
   }

   TReportFlow& GetFlow() { return fFlow; }

   void Open(const std::string& linkName) { fFlow.OpenReportFile(fFolder.GetPath(linkName)); }

   /// A page with a title, from open to its entry.
   void AddPage(const std::string& linkName, bool hasData = true)
   {
      Open(linkName);
      fFlow.WriteReportTitle("Title of " + linkName, "", "");
      fFlow.CloseReportFile();
      fFlow.WriteIndexEntry(linkName, linkName, hasData);
   }

   void AddCell(const std::string& text, bool isLabel = false)
   {
      TCell cell;
      cell.fText = text;
      cell.fIsLabel = isLabel;
      fFlow.AddCell(cell);
   }

   /// Missing: the empty text.
   std::string Read(const std::string& file) const { return fFolder.Read(file); }

   std::vector<std::string> GetFiles() const
   {
      std::vector<std::string> files;
      for (const auto& entry : std::filesystem::directory_iterator(fFolder.GetPath()))
         files.push_back(entry.path().filename());
      return files;
   }

   const std::vector<std::string>& GetNotices() const { return fNotices; }

private:
   TTemporaryFolder fFolder;
   std::vector<std::string> fNotices;
   THtmlReport fReport;
   TReportFlow fFlow;
};

/// How often a text occurs.
inline std::size_t Count(const std::string& page, const std::string& text)
{
   std::size_t count = 0;
   for (std::size_t at = page.find(text); at != std::string::npos; at = page.find(text, at + 1))
      ++count;
   return count;
}

/// The tags of a page without their attribute values, as a parser meets them: text and quoted
/// values are passed over.
inline std::vector<std::string> GetTags(const std::string& page)
{
   std::vector<std::string> tags;
   for (std::size_t at = page.find('<'); at != std::string::npos; at = page.find('<', at)) {
      std::string tag;
      char quote = 0;
      for (; at < page.size() && (quote != 0 || page[at] != '>'); ++at) {
         if (quote == 0)
            tag += page[at];
         if (quote == page[at])
            quote = 0;
         else if (quote == 0 && (page[at] == '"' || page[at] == '\''))
            quote = page[at];
      }
      tags.push_back(tag);
   }
   return tags;
}

/// The first tag that closes what is not open, or opens what stays open. Missing: the empty text.
inline std::string FindUnbalancedTag(const std::string& page)
{
   const std::vector<std::string> empty = {"meta", "link", "col", "input", "!DOCTYPE", "rect"};
   std::vector<std::string> open;
   for (const std::string& tag : GetTags(page)) {
      const bool closes = tag.compare(0, 2, "</") == 0;
      const std::size_t begin = closes ? 2 : 1;
      const std::string name = tag.substr(begin, tag.find_first_of(" \n/", begin) - begin);
      if (std::find(empty.begin(), empty.end(), name) != empty.end())
         continue;
      if (!closes)
         open.push_back(name);
      else if (open.empty() || open.back() != name)
         return tag;
      else
         open.pop_back();
   }
   return open.empty() ? "" : "<" + open.back();
}
