#include "common/TSinkWriter.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "common/ByteDump.h"
#include "common/ReadRunFacts.h"
#include "common/RecordColumns.h"
#include "common/ReportClasses.h"
#include "common/SystemLabels.h"
#include "common/health/SensorLimits.h"

namespace {

constexpr std::size_t kLongestTitle = 60;
constexpr const char* kCadenzaCommonValues = "CadenzaCommonValues";
constexpr const char* kCadenzaCommonFrequencies = "CadenzaCommonFrequencies";

std::string ReadMode(const TContext& params)
{
   const auto mode = params.find("mode");
   return mode == params.end() ? "default" : mode->second.ToString(10);
}

bool HasAnyValue(const TWriter::TProperties& properties)
{
   return std::any_of(properties.begin(), properties.end(),
                      [](const auto& property) { return property && property->HasValue(); });
}

/// Whether a cell of these may have an untranslated value. A date-time without one is told apart
/// here, as its texts cost a look-up each.
bool MayHaveRawForm(const TWriter::TProperties& properties)
{
   if (!HasAnyValue(properties))
      return false;
   if (properties.size() != 1)
      return true;
   try {
      ICIMProperty& property = *properties.front();
      return property.GetType({}) != TCIMValue::TCIMType::kDateTime ||
             !property.GetValue().IsNull();
   } catch (const TQSXException&) {
      return true;
   }
}

/// False for an integer that the library's int can't hold: what it makes of it has wrapped.
bool FitsInt(ICIMInstance& instance, const char* name)
{
   try {
      const TCIMValue value = instance.GetProperty(name, {})->GetValue(TContext());
      const TCIMValue::ECIMType type = value.GetType();
      if (type < TCIMValue::TCIMType::kUInt32 || type > TCIMValue::TCIMType::kSInt64)
         return true;
      const std::string digits = value.ToString(10);
      int number = 0;
      return std::from_chars(digits.data(), digits.data() + digits.size(), number).ec !=
             std::errc::result_out_of_range;
   } catch (const TQSXException&) {
      // Told by the library.
      return true;
   }
}

}  // namespace

std::string GetSeparatorText(TReportParameters::TReportProperty::ArrayValueSeparator separator)
{
   using TProperty = TReportParameters::TReportProperty;
   switch (separator) {
      case TProperty::kSeparatorBlank:
         return " ";
      case TProperty::kSeparatorSemicolon:
         return "; ";
      case TProperty::kSeparatorSlash:
         return " / ";
      case TProperty::kSeparatorDefault:
         break;
   }
   return ", ";
}

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

void TSinkWriter::WriteHeaderCell(boost::shared_ptr<ICIMClass> cimClass, TReportProperty property)
{
   const std::string name =
      property.HasLabelOverride() ? property.GetLabelOverride() : property.GetProperty();
   const std::string label = cimClass ? GetTableHeaderLabel(*cimClass, property, {}) : name;
   fHeaderClass = cimClass ? cimClass->GetName({}) : "";
   fHeaderProperties.push_back(property.GetProperty());
   // The two share a column.
   if (fIsCadenzaPage && property.GetProperty() == kCadenzaCommonValues) {
      fCommonValuesLabel = label;
      return;
   }
   if (fIsCadenzaPage && property.GetProperty() == kCadenzaCommonFrequencies)
      return WriteLabel(fCommonValuesLabel + " / " + label, property);
   WriteLabel(label, property);
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

void TSinkWriter::WriteValueCell(boost::shared_ptr<ICIMInstance> instance, TReportProperty property)
{
   TProperties properties =
      GetProperties(instance, property.GetProperty(), property.GetAssociationClass(),
                    property.GetAssociationTarget());
   if (properties.empty() && property.HasSecondaryAssociationTarget())
      properties = GetProperties(instance, property.GetProperty(), "",
                                 property.GetSecondaryAssociationTarget());
   const std::string separator = GetArrayValueSeparatorText(property.GetArrayValueSeparator());
   const std::string untranslated =
      MayHaveRawForm(properties) ? fValueText.Make(properties, separator, true) : "";
   const std::string text = fValueText.Make(properties, separator, false);
   WriteValue(text, untranslated, property.IsMonospaced(), ReadSeverity(instance, property));
}

void TSinkWriter::WriteTextCell(TReportProperty property, std::string text)
{
   WriteValue(text, "", property.IsMonospaced());
}

void TSinkWriter::WriteHeaderTextCell(std::string text, TReportProperty property)
{
   WriteLabel(text, property);
}

void TSinkWriter::WriteNumericSensorCell(boost::shared_ptr<ICIMInstance> instance, TReportProperty)
{
   const std::string value = GetNumericSensorValue(instance, false);
   const bool isNumber = FitsInt(*instance, "CurrentReading") &&
                         FitsInt(*instance, "UnitModifier") &&
                         std::isfinite(std::strtod(value.c_str(), nullptr));
   // A number that wrapped on its way, or "inf", is no reading.
   WriteValue(isNumber ? value : "", "", false);
}

void TSinkWriter::WriteCadenzaRow(boost::shared_ptr<ICIMInstance> instance, TReportProperty score,
                                  TReportProperty type, TReportProperty cimType,
                                  TReportProperty propertyName, TReportProperty value,
                                  TReportProperty frequency, TReportProperty commonValues,
                                  TReportProperty commonFrequencies, int)
{
   fFlow->BeginTableRow();
   const std::string scoreText = ReadText(instance, score);
   TCell scoreCell;
   scoreCell.fText = scoreText;
   scoreCell.fKind = ECellKind::kScore;
   fFlow->AddCell(scoreCell);
   for (const TReportProperty& property : {type, cimType, propertyName, value, frequency})
      WriteValueCell(instance, property);

   const std::string values = ReadLines(instance, commonValues);
   const std::string frequencies = ReadLines(instance, commonFrequencies);
   TCell common;
   common.fText = values;
   common.fSecondText = frequencies;
   common.fKind = ECellKind::kFrequencies;
   fFlow->AddCell(common);
}

void TSinkWriter::PrepareCadenzaReport()
{
   fIsCadenzaPage = true;
}

void TSinkWriter::WriteRawDataCell(boost::shared_ptr<ICIMProperty> property)
{
   const std::string separator = GetArrayValueSeparatorText(TReportProperty::kSeparatorBlank);
   std::string text;
   if (!DumpBytes(property, text))
      text = GetValueFromProperty(property, separator, false);
   WriteValue(text, "", true);
}

void TSinkWriter::WriteDeclHeaderCell(boost::shared_ptr<const ICIMPropertyDecl> decl)
{
   WriteLabel(GetDisplayName(decl), TReportProperty());
}

void TSinkWriter::WritePropertyValueCell(boost::shared_ptr<ICIMInstance>,
                                         boost::shared_ptr<ICIMProperty> property)
{
   const std::string separator = GetArrayValueSeparatorText(TReportProperty::kSeparatorDefault);
   const std::string text = GetValueFromProperty(property, separator, false);
   WriteValue(text, GetValueFromProperty(property, separator, true), false);
}

void TSinkWriter::WriteRegisterValueCell(boost::shared_ptr<ICIMInstance>,
                                         boost::shared_ptr<ICIMProperty> property)
{
   const std::string separator = GetArrayValueSeparatorText(TReportProperty::kSeparatorDefault);
   WriteValue(GetValueFromProperty(property, separator, false), "", true);
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

void TSinkWriter::WriteGrid(TTableGrid* grid)
{
   TGridMeaning meaning = FindGridMeaning(*grid, fTableTitle, fGetLabel);
   const TLogTable* const log =
      fLogClass.empty() ? FindLogOfTitle(fTableTitle) : FindLogOfClass(fLogClass);
   if (log != nullptr)
      meaning.fLog = CompleteLog(*log, FindLogColumns(*grid, *log, fGetLabel));
   fFlow->WriteGrid(*grid, meaning);
}

void TSinkWriter::WriteCadenzaHeader()
{
   fFlow->WriteNote(
      "The bar shows the score on a scale to 100. Beside each common value stands how frequent it "
      "is.");
}

std::string TSinkWriter::GetArrayValueSeparatorText(TReportProperty::ArrayValueSeparator separator)
{
   return GetSeparatorText(separator);
}

std::string TSinkWriter::EncodeValueText(std::string text)
{
   return text;
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

void TSinkWriter::WriteLabel(const std::string& label, const TReportProperty& property)
{
   TCell cell;
   cell.fText = label;
   cell.fIsLabel = true;
   fFlow->AddCell(cell);
   fFlow->SetColumnWidth(TReportParameters::ConvertPercent(property.GetColumnWidth()));
}

void TSinkWriter::WriteValue(const std::string& text, const std::string& untranslated,
                             bool isMonospaced, ESeverity severity)
{
   TCell cell;
   cell.fSeverity = severity;
   cell.fText = text;
   cell.fSecondText = GetShownSecondText(text, untranslated);
   cell.fMonospaced = isMonospaced;
   fFlow->AddCell(cell);
}

std::string TSinkWriter::ReadText(const boost::shared_ptr<ICIMInstance>& instance,
                                  const TReportProperty& property)
{
   return GetPropertyValue(instance, property.GetProperty(), ", ");
}

/// The elements of an array, a line each.
std::string TSinkWriter::ReadLines(const boost::shared_ptr<ICIMInstance>& instance,
                                   const TReportProperty& property)
{
   return GetPropertyValue(instance, property.GetProperty(), "\n");
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
