#include "FleetPages.h"

#include <algorithm>

#include "FleetFrame.h"
#include "FleetFront.h"
#include "IndexTable.h"
#include "html/HtmlDocument.h"
#include "html/RowIndex.h"

namespace {

const std::vector<TIndexColumn> kMachineColumns = {
   {"State", 7, false}, {"Machine", 14},       {"Model", 14},    {"Serial number", 9},
   {"System", 12},      {"Worst finding", 20}, {"Firmware", 12}, {"Collected", 12}};

const std::vector<TIndexColumn> kFirmwareColumns = {{"Firmware", 24}, {"Model", 22},
                                                    {"Version", 14},  {"Machines", 10},
                                                    {"Standing", 10}, {"On", 20, false}};

class TFleetWriter
{
public:
   TFleetWriter(const TFleet& fleet, const std::string& outputDirectory,
                const THtmlOptions& options)
      : fFleet(fleet),
        fFolder(outputDirectory),
        fSite{fleet, options, CountFiles(fleet.fMachines.size()),
              CountFiles(fleet.fFirmware.GetLevelCount())},
        fRowFiles(outputDirectory)
   {}

   void Write()
   {
      for (std::size_t file = 0; file < fSite.fMachineFiles; ++file)
         WriteFile(EFleetPage::kMachines, file, [&](THtmlSink& out) { WriteMachines(out, file); });
      ListLevels();
      for (std::size_t file = 0; file < fSite.fFirmwareFiles; ++file)
         WriteFile(EFleetPage::kFirmware, file, [&](THtmlSink& out) { WriteFirmware(out, file); });
      fRowFiles.Close();
      WriteRowIndex(fRowFiles, {{GetStem(EFleetPage::kMachines), "Machines"},
                                {GetStem(EFleetPage::kFirmware), "Firmware levels"}});
      WriteBundledFiles(fFolder);
   }

private:
   void WriteFile(EFleetPage page, std::size_t number,
                  const std::function<void(THtmlSink& out)>& write)
   {
      TOutputFile file(fFolder + '/' + GetFileName(page, number));
      THtmlSink out(file);
      WriteFleetPageBegin(out, fSite, page, number);
      write(out);
      WriteFleetPageEnd(out, fSite, page);
      file.Close();
   }

   void WriteMachines(THtmlSink& out, std::size_t file)
   {
      if (file == 0)
         WriteFleetFront(out, fSite);
      out << "<div class=\"sheet\">\n"_html;
      const std::size_t first = file * kRowsPerFile;
      const std::size_t end = std::min(fFleet.fMachines.size(), first + kRowsPerFile);
      if (end > first) {
         const THtmlParts parts =
            GetParts(out, fSite, EFleetPage::kMachines, file, fFleet.fMachines.size());
         WritePartList(out, parts);
         TIndexTable table(out, fRowFiles, EFleetPage::kMachines, first, end - first,
                           kMachineColumns);
         for (std::size_t i = first; i < end; ++i)
            WriteMachine(out, table, fFleet.fMachines[i]);
         table.End("Machines");
         WritePartSteps(out, parts);
      }
      out << "</div>\n"_html;
      if (file == 0)
         WriteFleetGaps(out, fFleet);
   }

   void WriteMachine(THtmlSink& out, TIndexTable& table, const TFleetMachine& machine)
   {
      table.BeginRow();
      table.AddState(machine.fVerdict);
      table.AddHeading(machine.fName, [&] { WriteMachineLink(out, machine); });
      table.AddText(machine.fModel);
      table.AddText(machine.fSerialNumber, "mono"_html);
      table.AddText(machine.fSystem);
      table.AddText(DescribeFindings(machine));
      const std::string apart = DescribeOutliers(machine);
      table.AddText(apart, apart.empty() ? ""_html : "changed"_html);
      table.AddText(machine.fCollected);
      table.EndRow();
   }

   static std::string DescribeFindings(const TFleetMachine& machine)
   {
      const std::uint64_t findings = machine.fFailed + machine.fAttention;
      if (machine.fWorst.empty() || findings < 2)
         return machine.fWorst;
      return machine.fWorst + " And " + std::to_string(findings - 1) + " more.";
   }

   std::string DescribeOutliers(const TFleetMachine& machine) const
   {
      const TFirmwareLevels& levels = fFleet.fFirmware;
      const std::uint64_t outliers = levels.CountOutliers(machine.fLevels);
      if (outliers == 0)
         return {};
      const auto first = std::find_if(machine.fLevels.begin(), machine.fLevels.end(),
                                      [&](auto number) { return levels.Get(number).fIsOutlier; });
      const TFirmwareLevels::TLevel& level = levels.Get(*first);
      const std::string text = levels.GetAll()[level.fFirmware].fName + ' ' + level.fVersion;
      return outliers == 1 ? text : text + " and " + std::to_string(outliers - 1) + " more";
   }

   /// Firmware by firmware, in the order of the page.
   void ListLevels()
   {
      for (const TFirmwareLevels::TFirmware& firmware : fFleet.fFirmware.GetAll())
         for (const TFirmwareLevels::TNumber number : firmware.fLevels)
            fLevels.push_back({&firmware, number});
   }

   void WriteFirmware(THtmlSink& out, std::size_t file)
   {
      out << "<div class=\"sheet\">\n"_html;
      const std::size_t first = file * kRowsPerFile;
      const std::size_t end = std::min(fLevels.size(), first + kRowsPerFile);
      if (end > first) {
         const THtmlParts parts = GetParts(out, fSite, EFleetPage::kFirmware, file, fLevels.size());
         WritePartList(out, parts);
         TIndexTable table(out, fRowFiles, EFleetPage::kFirmware, first, end - first,
                           kFirmwareColumns);
         for (std::size_t i = first; i < end; ++i)
            WriteLevel(out, table, fLevels[i]);
         table.End("Firmware levels");
         WritePartSteps(out, parts);
      } else
         out << "<p class=\"none\">No report tells a firmware level.</p>\n"_html;
      if (fFleet.fFirmware.GetFurther() > 0)
         out << "<p class=\"table-note\">"_html << TCount{fFleet.fFirmware.GetFurther()}
             << " further levels are too many to be compared.</p>\n"_html;
      out << "</div>\n"_html;
   }

   struct TListedLevel
   {
      const TFirmwareLevels::TFirmware* fFirmware;
      TFirmwareLevels::TNumber fNumber;
   };

   void WriteLevel(THtmlSink& out, TIndexTable& table, const TListedLevel& listed)
   {
      const TFirmwareLevels::TLevel& level = fFleet.fFirmware.Get(listed.fNumber);
      const TFirmwareLevels::TFirmware& firmware = *listed.fFirmware;
      table.BeginRow();
      table.AddHeading(firmware.fName, [&] { out << TText{firmware.fName}; });
      table.AddText(firmware.fModel);
      table.AddText(level.fVersion, level.fIsOutlier ? "changed"_html : ""_html);
      table.AddText(std::to_string(level.fMachines) + " of " + std::to_string(firmware.fMachines),
                    "num"_html);
      table.AddText(GetStanding(level));
      table.AddCell("", [&] { WriteExamples(out, fFleet, level); });
      table.EndRow();
   }

   const char* GetStanding(const TFirmwareLevels::TLevel& level) const
   {
      if (level.fIsOutlier)
         return "outlier";
      return fFleet.fFirmware.IsCommon(level) ? "common" : "no majority";
   }

   const TFleet& fFleet;
   const std::string fFolder;
   const TFleetSite fSite;
   TRowFiles fRowFiles;
   std::vector<TListedLevel> fLevels;
};

}  // namespace

void WriteFleetPages(const TFleet& fleet, const std::string& outputDirectory,
                     const THtmlOptions& options)
{
   TFleetWriter(fleet, outputDirectory, options).Write();
}
