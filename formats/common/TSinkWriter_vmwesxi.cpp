#include "common/TSinkWriter_vmwesxi.h"

#include "common/ReadRunFacts.h"
#include "common/ReportClasses.h"
#include "common/TSinkWriter.h"

TSinkWriter_vmwesxi::TSinkWriter_vmwesxi(std::unique_ptr<TReportSink> sink,
                                         TCollectionFacts collection)
   : fSink(std::move(sink)), fCollection(std::move(collection))
{}

void TSinkWriter_vmwesxi::Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext,
                                     std::string outputDirectory)
{
   fNamespace = std::move(cimNamespace);
   fOutputDirectory = std::move(outputDirectory);
   fJudge.emplace(*fSink, [this](const std::string& className, const std::string& property) {
      return ReadLabel(className, property);
   });
   const std::vector<TGap> gaps = ReadGaps(fNamespace);
   fJudge->SetCollection({}, gaps, fCollection);
   fFlow.emplace(*fJudge, LogNotice);
   fFlow->SetIsCollected(MakeIsCollected([this] { return ReadHypervisorReportClasses(fNamespace); },
                                         fCollection, gaps));
   fFlow->BeginRun(fOutputDirectory, ReadRunFacts(fNamespace));
}

void TSinkWriter_vmwesxi::EndIndexGroup()
{
   fFlow->EndIndexGroup();
}

void TSinkWriter_vmwesxi::BeginIndexGroup(std::string heading)
{
   fFlow->BeginIndexGroup(heading);
}

void TSinkWriter_vmwesxi::EndIndex()
{
   fFlow->EndRun();
}

void TSinkWriter_vmwesxi::OpenReportFile(std::string path)
{
   fFlow->OpenReportFile(path);
}

void TSinkWriter_vmwesxi::CloseReportFile()
{
   fFlow->CloseReportFile();
}

void TSinkWriter_vmwesxi::EndReportBody()
{
   fFlow->EndReportBody();
}

void TSinkWriter_vmwesxi::WriteReportTitle(std::string title, std::string linkText,
                                           std::string linkTarget)
{
   fFlow->WriteReportTitle(title, linkText, linkTarget);
}

void TSinkWriter_vmwesxi::WriteIndexEntry(std::string linkName, std::string displayName,
                                          const bool& hasData)
{
   fFlow->WriteIndexEntry(linkName, displayName, hasData);
}

void TSinkWriter_vmwesxi::WriteTableTitle(std::string title, const bool& subTitle,
                                          const bool& emphasised)
{
   fFlow->WriteTableTitle({title, subTitle, emphasised});
}

void TSinkWriter_vmwesxi::WriteGrid(TTableGrid* grid)
{
   fFlow->WriteGrid(*grid);
}

std::string TSinkWriter_vmwesxi::GetArrayValueSeparatorText(
   TReportProperty::ArrayValueSeparator separator)
{
   return GetSeparatorText(separator);
}

std::string TSinkWriter_vmwesxi::EncodeValueText(std::string text)
{
   return text;
}

void TSinkWriter_vmwesxi::WriteSystemOverviewReport(TReportParameters params)
{
   WriteGenericReport(params);
}

void TSinkWriter_vmwesxi::WriteHardwareInventoryReport(TReportParameters params)
{
   WriteGenericReport(params);
}

void TSinkWriter_vmwesxi::WriteRegisteredProfileReport(TReportParameters params)
{
   WriteGenericReport(params);
}

void TSinkWriter_vmwesxi::WriteHealthStatusReport(TReportParameters params)
{
   WriteGenericReport(params);
}

void TSinkWriter_vmwesxi::WritePrivilegeLogReport(TReportParameters params)
{
   WriteGenericReport(params);
}

/// Missing: the empty text without the class.
std::string TSinkWriter_vmwesxi::ReadLabel(const std::string& className,
                                           const std::string& property)
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
