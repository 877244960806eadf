#include "FleetFrame.h"

#include <algorithm>

#include "html/HtmlDocument.h"

namespace {

constexpr const char* kFirmwareTitle = "Firmware levels";

void WriteSideEntry(THtmlSink& out, EFleetPage page, bool isCurrent, TMarkup name,
                    std::uint64_t rows)
{
   out << "<li><a href=\""_html << TFileUrl{GetFileName(page, 0)} << "\""_html
       << (isCurrent ? " aria-current=\"page\""_html : ""_html) << ">"_html << name
       << "</a><span class=\"num\">"_html << TCount{rows} << "</span></li>\n"_html;
}

void WriteSideBar(THtmlSink& out, const TFleetSite& site, EFleetPage page)
{
   const TFleet& fleet = site.fFleet;
   out << "<nav class=\"side\" id=\"reports\" popover aria-label=\"Pages\">\n"
          "<p class=\"side-machine\"><a href=\""_html
       << TFileUrl{GetFileName(EFleetPage::kMachines, 0)} << "\">"_html << TText{fleet.fName}
       << "</a></p>\n"_html;
   WriteSearchField(out, "Search all machines"_html);
   out << "<ul>\n"_html;
   WriteSideEntry(out, EFleetPage::kMachines, page == EFleetPage::kMachines, "Machines"_html,
                  fleet.fMachines.size());
   WriteSideEntry(out, EFleetPage::kFirmware, page == EFleetPage::kFirmware, "Firmware levels"_html,
                  fleet.fFirmware.GetLevelCount());
   out << "</ul>\n"_html;
   WriteThemeChoice(out);
   out << "</nav>\n"_html;
}

std::string GetTitle(const TFleetSite& site, EFleetPage page, std::size_t file)
{
   const bool isFirmware = page == EFleetPage::kFirmware;
   const std::size_t files = isFirmware ? site.fFirmwareFiles : site.fMachineFiles;
   const std::string title = isFirmware ? kFirmwareTitle : "Machines";
   return files > 1 ? title + " (" + std::to_string(file + 1) + " of " + std::to_string(files) + ")"
                    : title;
}

void WriteHeading(THtmlSink& out, const TFleetSite& site, const std::string& title)
{
   out << "<header class=\"page-head\">\n<p class=\"crumbs\"><a href=\""_html
       << TFileUrl{GetFileName(EFleetPage::kMachines, 0)} << "\"><bdi>"_html
       << TText{site.fFleet.fName} << "</bdi></a></p>\n<div class=\"page-title\"><h1>"_html
       << TText{title} << "</h1></div>\n</header>\n"_html;
}

}  // namespace

const char* GetStem(EFleetPage page)
{
   return page == EFleetPage::kMachines ? "index" : "firmware";
}

std::string GetFileName(EFleetPage page, std::size_t file)
{
   return GetStem(page) + (file == 0 ? "" : "~" + std::to_string(file + 1)) + ".html";
}

std::size_t CountFiles(std::size_t rows)
{
   return std::max<std::size_t>(1, (rows + kRowsPerFile - 1) / kRowsPerFile);
}

void WriteFleetPageBegin(THtmlSink& out, const TFleetSite& site, EFleetPage page, std::size_t file)
{
   const bool isFront = page == EFleetPage::kMachines && file == 0;
   const std::string title = GetTitle(site, page, file);
   WriteDocumentBegin(out, site.fFleet.fName + ": " + (isFront ? "front page" : title));
   WriteTopBar(out, isFront ? site.fFleet.fName : title, isFront ? "" : site.fFleet.fName,
               "Pages"_html);
   WriteSideBar(out, site, page);
   out << "<main id=\"main\">\n"_html;
   if (!isFront)
      WriteHeading(out, site, title);
}

void WriteFleetPageEnd(THtmlSink& out, const TFleetSite& site, EFleetPage page)
{
   WriteDocumentEnd(out, site.fFleet.fName, page == EFleetPage::kFirmware ? kFirmwareTitle : "",
                    site.fOptions);
}

THtmlParts GetParts(THtmlSink& out, const TFleetSite& site, EFleetPage page, std::size_t file,
                    std::size_t rows)
{
   const bool isFirmware = page == EFleetPage::kFirmware;
   return {isFirmware ? "Parts of the list of firmware levels"_html
                      : "Parts of the list of machines"_html,
           isFirmware ? site.fFirmwareFiles : site.fMachineFiles, file,
           [page](std::size_t part) { return GetFileName(page, part); },
           [&out, rows](std::size_t part) {
              out << TCount{part * kRowsPerFile + 1} << " to "_html
                  << TCount{std::min(rows, (part + 1) * kRowsPerFile)};
           }};
}

std::string GetMachinePath(const TFleetMachine& machine)
{
   return "../" + machine.fPlace + '/' + machine.fEntry;
}

void WriteMachineLink(THtmlSink& out, const TFleetMachine& machine)
{
   out << "<a href=\""_html << TPathUrl{GetMachinePath(machine)} << "\"><bdi>"_html
       << TText{machine.fName} << "</bdi></a>"_html;
}

void WriteExamples(THtmlSink& out, const TFleet& fleet, const TFirmwareLevels::TLevel& level)
{
   TMarkup separator = ""_html;
   for (const std::size_t machine : level.fExamples) {
      out << separator;
      WriteMachineLink(out, fleet.fMachines[machine]);
      separator = ", "_html;
   }
   if (level.fMachines > level.fExamples.size())
      out << " and "_html << TCount{level.fMachines - level.fExamples.size()} << " more"_html;
}
