#include "common/TSinkWriter.h"

#include <algorithm>
#include <utility>

#include "common/ReadRunFacts.h"
#include "common/ReportClasses.h"
#include "common/SystemLabels.h"
#include "common/health/SensorLimits.h"

namespace {

constexpr std::size_t kLongestTitle = 60;

std::string ReadMode(const TContext& params)
{
   const auto mode = params.find("mode");
   return mode == params.end() ? "default" : mode->second.ToString(10);
}

}  // namespace

TSinkWriter::TSinkWriter(std::unique_ptr<TReportSink> sink, std::string outputFormat,
                         std::string baseDirectory, std::vector<std::string> comparedFiles,
                         TCollectionFacts collection)
   : fSink(std::move(sink)),
     fComparedFiles(std::move(comparedFiles)),
     fCollection(std::move(collection))
{
   fOutputFormat = std::move(outputFormat);
   fBaseDirectory = std::move(baseDirectory);
}

void TSinkWriter::Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext params,
                             std::string outputDirectory)
{
   fNamespace = std::move(cimNamespace);
   fOutputDirectory = std::move(outputDirectory);
   fMode = ReadMode(params);
   fIsCadenzaPage = false;
   fZones.clear();
   fTableTitle.clear();

   TRunFacts facts = ReadRunFacts(fNamespace);
   MakeLabelsDistinct(fNamespaceLabels, fComparedFiles);
   facts.fComparedSystems = ReadComparedSystems(fNamespace, fNamespaceLabels, fComparedFiles);
   fSameItems.reset();
   if (facts.IsComparison() && fSink->WantsSameItems())
      fSameItems.emplace(fNamespace, fMode, params.count("KMC") != 0);
   fJudge.emplace(*fSink, fGetLabel);
   const std::vector<TGap> gaps = ReadGaps(fNamespace);
   fJudge->SetCollection(ReadSensorLimits(fNamespace), gaps, fCollection);
   fFlow.emplace(*fJudge, LogNotice);
   fFlow->SetIsCollected(
      MakeIsCollected([this] { return ReadReportClasses(fNamespace); }, fCollection, gaps));
   fFlow->BeginRun(fOutputDirectory, facts);
}

void TSinkWriter::EndIndexGroup()
{
   fFlow->EndIndexGroup();
}

void TSinkWriter::BeginIndexGroup(std::string heading)
{
   fFlow->BeginIndexGroup(heading);
}

void TSinkWriter::EndIndex()
{
   fFlow->EndRun();
}

void TSinkWriter::WriteRawDataLink(std::string&, std::string&) {}

void TSinkWriter::OpenReportFile(std::string path)
{
   fTableTitle.clear();
   fLinkName = path.substr(std::min(path.size(), fOutputDirectory.size() + 1));
   fFlow->OpenReportFile(path);
}

void TSinkWriter::CloseReportFile()
{
   fIsCadenzaPage = false;
   WriteSameItems();
   fFlow->CloseReportFile();
}

/// Below what differs, the tables as a report of the base has them.
void TSinkWriter::WriteSameItems()
{
   if (!fSameItems || fLinkName.empty())
      return;
   // A second closing of the page is none.
   for (TSameItems::TTable& table : fSameItems->Find(std::exchange(fLinkName, {}))) {
      fTableTitle = table.fClass.HasTitle() ? table.fClass.GetTitle() : "";
      fFlow->WriteTableTitle({fTableTitle, true, false, table.fInstances.size()});
      table.fClass.ClearTitle();
      WriteTable(table.fClass, std::move(table.fInstances), true, false,
                 {{NZANQSX20::kNamespaceIndexKey, TCIMValue(static_cast<unsigned short>(0))}});
   }
}

void TSinkWriter::EndReportBody()
{
   fFlow->EndReportBody();
}

void TSinkWriter::WriteReportTitle(std::string title, std::string linkText, std::string linkTarget)
{
   // The title of the device analysis may be a text of several sentences.
   if (fIsCadenzaPage && title.size() > kLongestTitle)
      fFlow->WriteNote(title);
   else
      fFlow->WriteReportTitle(title, linkText, linkTarget);
}

void TSinkWriter::WriteIndexEntry(std::string linkName, std::string displayName,
                                  const bool& hasData)
{
   fFlow->WriteIndexEntry(linkName, displayName, hasData);
}

void TSinkWriter::WriteTableBreak()
{
   fFlow->WriteTableBreak();
}

void TSinkWriter::WriteTableTitle(std::string title, const bool& subTitle, const bool& emphasised)
{
   if (!subTitle)
      fTableTitle = title;
   fFlow->WriteTableTitle({title, subTitle, emphasised});
}

void TSinkWriter::BeginColumnTable(std::string tableWidth, std::string caption, bool sortable)
{
   fHeaderProperties.clear();
   fFlow->BeginColumnTable(tableWidth, caption, sortable);
}

void TSinkWriter::BeginRowTable(std::string tableWidth, std::string labelColumnWidth,
                                std::string caption)
{
   fHeaderProperties.clear();
   fFlow->BeginRowTable(tableWidth, labelColumnWidth, caption);
}

void TSinkWriter::EndTableHeader()
{
   TakeLogColumns();
   fFlow->EndTableRow();
}

void TSinkWriter::BeginTableRow(const bool&)
{
   fFlow->BeginTableRow();
}

void TSinkWriter::EndTableRow()
{
   fFlow->EndTableRow();
}

void TSinkWriter::EndTable()
{
   fHiddenSeverity = nullptr;
   fFlow->EndTable();
}

void TSinkWriter::WriteGrid(TTableGrid* grid)
{
   TGridMeaning meaning = FindGridMeaning(*grid, fTableTitle, fGetLabel);
   const TLogTable* const log =
      fLogClass.empty() ? FindLogOfTitle(fTableTitle) : FindLogOfClass(fLogClass);
   if (log != nullptr)
      meaning.fLog = CompleteLog(*log, FindLogColumns(*grid, *log, fGetLabel));
   fFlow->WriteGrid(*grid, meaning);
}

/// Missing: the empty text without the class.
std::string TSinkWriter::ReadLabel(const std::string& className, const std::string& property)
{
   try {
      const auto cimClass = fNamespace->GetClass(className, {});
      return cimClass
                ? GetTableHeaderLabel(*cimClass, TReportProperty(property, "", "", "", ""), {})
                : "";
   } catch (const TQSXException&) {
      return "";
   }
}
