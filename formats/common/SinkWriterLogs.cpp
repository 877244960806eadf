// Reports and tables of log records, which may have very many rows.

#include <algorithm>

#include "common/RecordColumns.h"
#include "common/TSinkWriter.h"

void TSinkWriter::WriteEventLogReport(TReportParameters params)
{
   WriteLogReport(params);
}

void TSinkWriter::WriteMergedLogReport(TReportParameters params)
{
   WriteLogReport(params);
}

/// A generic report whose tables may have very many rows.
void TSinkWriter::WriteLogReport(const TReportParameters& params)
{
   OpenReportFile(fOutputDirectory + TOSSpecific::kFileSeparator + params.GetLinkName());
   BeginReportBody();
   if (params.ShowReportTitle())
      WriteReportTitle(params.GetReportName(), "", "");
   bool hasData = false;
   for (const TReportClass& reportClass : params.GetClasses()) {
      const TInstances instances = GetInstances(reportClass);
      if (instances.empty())
         continue;
      hasData = true;
      WriteLogTable(reportClass, instances);
   }
   EndReportBody();
   CloseReportFile();
   WriteIndexEntry(params.GetLinkName(), params.GetReportName(), hasData);
}

/// Lays out a run of records at a time, so that no grid of the whole log stands in memory.
void TSinkWriter::WriteLogTable(TReportClass reportClass, const TInstances& instances)
{
   const bool isOneGrid = reportClass.HasAssociatedClass() ||
                          reportClass.GetReportStyle() != TReportClass::kColumnStyle ||
                          reportClass.GetMaxInstancesPerTable() != TReportClass::kNoMaximum;
   if (isOneGrid)
      return WriteTable(reportClass, instances, true, false, {});

   if (reportClass.HasTitle())
      WriteTableTitle(reportClass.GetTitle(), reportClass.SubTitleEnabled(), false);
   reportClass.ClearTitle();
   fLogClass = reportClass.GetClass();
   fFlow->BeginJoinedGrids();
   for (std::size_t first = 0; first < instances.size(); first += TReportFlow::kRowsPerRun) {
      const std::size_t end = std::min(instances.size(), first + TReportFlow::kRowsPerRun);
      const auto at = [&instances](std::size_t i) {
         return instances.begin() + static_cast<TInstances::difference_type>(i);
      };
      WriteTable(reportClass, TInstances(at(first), at(end)), true, false, {});
   }
   fFlow->EndJoinedGrids();
   fLogClass.clear();
}

void TSinkWriter::WriteEventLogTable(TInstances instances, std::string title, std::string)
{
   fFlow->WriteTableTitle({title, false, false});
   if (instances.empty())
      return;
   const auto columns = GetFilledColumns(instances);
   fFlow->BeginColumnTable("100%", title, true);
   fFlow->BeginTableRow();
   fHeaderClass = instances.front()->GetClass({})->GetName({});
   fHeaderProperties.clear();
   for (const auto& decl : columns) {
      WriteLabel(GetDisplayName(decl), TReportProperty());
      fHeaderProperties.push_back(decl->GetName({}));
   }
   TakeLogColumns();
   for (const auto& instance : instances) {
      fFlow->BeginTableRow();
      for (const auto& decl : columns)
         WriteValueCell(instance, TReportProperty(decl->GetName({}), "", "", "", ""));
   }
   fFlow->EndTable();
}

/// Adds how the zones of the records are found.
std::optional<TLogColumns> TSinkWriter::CompleteLog(const TLogTable& log,
                                                    std::optional<TLogColumns> columns)
{
   if (!columns)
      return columns;
   std::shared_ptr<TRecordZones>& zones = fZones[std::string(log.fClass) + "." + log.fTime];
   if (!zones)
      zones = std::make_shared<TRecordZones>(fNamespace, log.fClass, log.fTime);
   columns->fFindOffset = [zones](std::string_view timeText) { return zones->Find(timeText); };
   return columns;
}

/// Of a log that is written cell by cell, its header row tells the columns.
void TSinkWriter::TakeLogColumns()
{
   fHiddenSeverity = nullptr;
   const TLogTable* const titled = FindLogOfTitle(fTableTitle);
   const TLogTable* const log = titled != nullptr ? titled : FindLogOfClass(fHeaderClass);
   if (log == nullptr || fHeaderProperties.empty())
      return;
   const auto columns = CompleteLog(*log, log->FindColumns(fHeaderProperties));
   if (!columns)
      return;
   fFlow->SetLog(*columns);
   if (columns->fSeverity == TLogColumns::kNone && HasProperty(fHeaderClass, log->fSeverity))
      fHiddenSeverity = log;
}

/// Whether the class declares it. Missing: false for a class that isn't there.
bool TSinkWriter::HasProperty(const std::string& className, const std::string& property)
{
   if (property.empty())
      return false;
   try {
      const auto declared = fNamespace->GetClass(className, {});
      return declared && declared->GetPropertyDecl(property, {}) != nullptr;
   } catch (const TQSXException&) {
      return false;
   }
}

/// Missing: not told where a column shows it, and for any other cell than the record's time.
ESeverity TSinkWriter::ReadSeverity(const boost::shared_ptr<ICIMInstance>& record,
                                    const TReportProperty& property)
{
   if (fHiddenSeverity == nullptr || property.GetProperty() != fHiddenSeverity->fTime)
      return ESeverity::kNotTold;
   return FindSeverity(GetPropertyValue(record, fHiddenSeverity->fSeverity, " "));
}
