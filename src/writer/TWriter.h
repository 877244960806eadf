#pragma once

#include <map>
#include <string>
#include <vector>

#include "CIMStore.h"
#include "QSXExport.h"
#include "catalogue/TReportParametersBuilder.h"
#include "definitions/TReportParameters.h"
#include "writer/RunDuration.h"
#include "writer/TTableGrid.h"

/// The logic of all reports. How they look lies with the concrete writer that derives from it.
///
/// Contents, in the order of the folders and files:
///   output operations             pure virtual, in the order of the virtual table
///   writer/WriterState.cpp        start and end of a run, date-times
///   writer/GenericReport.cpp      a definition becomes a page
///   writer/TableLayout.cpp        instances become grids, labels
///   writer/WriterServices.cpp     what concrete writers call while they render
///   writer/InstanceAccess.cpp     instances and properties, with the quiet failure policy
///   writer/ValueText.cpp          values and numbers as text
///   writer/RunDuration.cpp        words of time and size as numbers
///   writer/delta/                 comparison of several namespaces
///   writer/storage/               RAID controllers, disks, drive health
///   writer/platform/              sensors, service processor, firmware, logs, adapters, analysis
///
/// Owner: used by one thread, for one run at a time.
class QSX_API TWriter
{
public:
   using TReportClass = TReportParameters::TReportClass;
   using TReportProperty = TReportParameters::TReportProperty;
   using TInstances = std::vector<boost::shared_ptr<ICIMInstance>>;
   using TProperties = std::vector<boost::shared_ptr<ICIMProperty>>;
   using TTableCell = ::TTableCell;

   struct TClassDelta;
   struct TInstanceDelta;

   // ---- Output operations, the concrete writer's
   // -----------------------------------------------------
   //
   // Nesting: Initialize, BeginIndex, groups, EndIndex. A page: OpenReportFile, WriteReportPreamble
   // on some, BeginReportBody, WriteReportTitle, tables, EndReportBody, CloseReportFile,
   // WriteIndexEntry. A table by hand: BeginColumnTable or BeginRowTable, rows of cells, EndTable.

   /// Start of the run. Sets fNamespace, fOutputDirectory, fBaseDirectory, fMode and fOutputFormat.
   virtual void Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext params,
                           std::string outputDirectory) = 0;
   virtual void BeginIndex() = 0;
   virtual void EndIndexGroup() = 0;
   virtual void BeginIndexGroup(std::string heading) = 0;
   /// The last output of the run; a group may still be open.
   virtual void EndIndex() = 0;
   /// Fills both texts, empty on entry, for the next title of the controller report in service
   /// mode.
   virtual void WriteRawDataLink(std::string& linkText, std::string& linkTarget) = 0;
   /// A whole report of Windows event records, rendered from the definition.
   virtual void WriteEventLogReport(TReportParameters params) = 0;
   /// A whole merged log, rendered from the definition.
   virtual void WriteMergedLogReport(TReportParameters params) = 0;
   virtual void WriteReportPreamble() = 0;
   /// The path is the output directory, the file separator and the link name.
   virtual void OpenReportFile(std::string path) = 0;
   virtual void CloseReportFile() = 0;
   virtual void BeginReportBody() = 0;
   virtual void EndReportBody() = 0;
   /// The title, with a link beside it when the two further texts are not empty.
   virtual void WriteReportTitle(std::string title, std::string linkText,
                                 std::string linkTarget) = 0;
   /// Adds a report to the open group. An empty link name or a false flag: there is no page behind
   /// it.
   virtual void WriteIndexEntry(std::string linkName, std::string displayName,
                                const bool& hasData) = 0;
   virtual void WriteTableBreak() = 0;
   virtual void WriteTableTitle(std::string title, const bool& subTitle,
                                const bool& emphasised) = 0;
   virtual void BeginColumnTable(std::string tableWidth, std::string caption, bool sortable) = 0;
   virtual void BeginRowTable(std::string tableWidth, std::string labelColumnWidth,
                              std::string caption) = 0;
   /// The label of a property of the class, as GetTableHeaderLabel gives it.
   virtual void WriteHeaderCell(boost::shared_ptr<ICIMClass> cimClass,
                                TReportProperty property) = 0;
   virtual void EndTableHeader() = 0;
   /// False for the header row of a column table, true for every other row.
   virtual void BeginTableRow(const bool& dataRow) = 0;
   virtual void EndTableRow() = 0;
   virtual void EndTable() = 0;
   virtual void WriteValueCell(boost::shared_ptr<ICIMInstance> instance,
                               TReportProperty property) = 0;
   virtual void WriteTextCell(TReportProperty property, std::string text) = 0;
   virtual void WriteHeaderTextCell(std::string text, TReportProperty property) = 0;
   /// The reading of a numeric sensor, as GetNumericSensorValue gives it.
   virtual void WriteNumericSensorCell(boost::shared_ptr<ICIMInstance> instance,
                                       TReportProperty property) = 0;
   /// One row of the device analysis; the running number counts from 0.
   virtual void WriteCadenzaRow(boost::shared_ptr<ICIMInstance> instance, TReportProperty score,
                                TReportProperty type, TReportProperty cimType,
                                TReportProperty propertyName, TReportProperty value,
                                TReportProperty frequency, TReportProperty commonValues,
                                TReportProperty commonFrequencies, int runningNumber) = 0;
   /// The first act of the device analysis report.
   virtual void PrepareCadenzaReport() = 0;
   virtual void WriteRawDataCell(boost::shared_ptr<ICIMProperty> property) = 0;
   virtual void WriteDeclHeaderCell(boost::shared_ptr<const ICIMPropertyDecl> decl) = 0;
   virtual void WritePropertyValueCell(boost::shared_ptr<ICIMInstance> instance,
                                       boost::shared_ptr<ICIMProperty> property) = 0;
   virtual void WriteRegisterValueCell(boost::shared_ptr<ICIMInstance> instance,
                                       boost::shared_ptr<ICIMProperty> property) = 0;
   virtual void WriteEventLogTable(TInstances instances, std::string title,
                                   std::string linkName) = 0;
   /// Writes a table laid out in memory. Owner: the grid stays the caller's.
   virtual void WriteGrid(TTableGrid* grid) = 0;
   /// After the title of the device analysis report.
   virtual void WriteCadenzaHeader() = 0;
   /// The text that joins the elements of an array in this output format.
   virtual std::string GetArrayValueSeparatorText(
      TReportProperty::ArrayValueSeparator separator) = 0;
   /// Applied to the texts taken from the store before they reach a cell.
   virtual std::string EncodeValueText(std::string text) = 0;

   // ---- writer/WriterState.cpp
   // -----------------------------------------------------------------------

   /// Sets up the delta classes and labels of a comparison. Called ahead of Initialize, so it knows
   /// the store by its argument only. Throws: TQSXException where no label can be had.
   void BaseInitialize(boost::shared_ptr<ICIMNamespace> ns, TContext params);
   /// Forgets the data of the run. Twice is harmless.
   void BaseDispose();
   /// A date-time, or each of an array followed by one blank. The flag has no effect.
   std::string GetDateTime(const TCIMValue& value, bool noTimePrecision);

   // ---- writer/GenericReport.cpp
   // ---------------------------------------------------------------------

   void WriteGenericReport(TReportParameters params);
   /// The same with a link to the raw data in the title, in service mode.
   void WriteGenericReportWithLink(TReportParameters params, const std::string& rawLinkName);

   // ---- writer/TableLayout.cpp
   // -----------------------------------------------------------------------

   /// Lays the instances out in grids and writes them, sub-tables of associated classes between
   /// them. Throws: std::invalid_argument for a definition without properties.
   void WriteTable(TReportClass reportClass, TInstances instances, bool expandAssociations,
                   bool marked, TContext context);
   std::string GetTableHeaderLabel(ICIMClass& cimClass, TReportProperty property, TContext context);

   // ---- writer/WriterServices.cpp
   // --------------------------------------------------------------------

   /// The reading with its modifier worked in. Missing: "N/A". The flag has no effect.
   std::string GetNumericSensorValue(boost::shared_ptr<ICIMInstance> instance, bool reserved);
   bool IsLinux();
   /// Treats five classes on their own; true where it wrote the table.
   bool ClassFilter(std::vector<TReportClass>::iterator reportClass, TInstances instances,
                    bool& wroteTable);

   // ---- writer/InstanceAccess.cpp
   // --------------------------------------------------------------------

   /// The instances of a table in report order. Missing: empty where the class can't be had.
   TInstances GetInstances(TReportClass reportClass);
   /// The properties that a column shows. Missing: what can't be reached is logged and left out.
   TProperties GetProperties(boost::shared_ptr<ICIMInstance> instance,
                             const std::string& propertyName, const std::string& assocClass,
                             const std::string& assocTarget);
   /// Missing: the empty text, whatever fails.
   std::string GetPropertyValue(boost::shared_ptr<ICIMInstance> instance, std::string propertyName,
                                std::string separator);
   std::string GetPropertyValueFromAssociation(boost::shared_ptr<ICIMInstance> instance,
                                               std::string propertyName, std::string assocClass,
                                               std::string assocTarget, std::string separator);
   /// A property that can't be read counts as null.
   bool IsPropertyNull(boost::shared_ptr<ICIMInstance> instance, const std::string& propertyName);
   std::string GetUniqueId(boost::shared_ptr<ICIMInstance> instance, std::string propertyName);

   // ---- writer/ValueText.cpp
   // -------------------------------------------------------------------------

   std::string GetValuesFromProperties(TProperties properties, const std::string& separator,
                                       bool raw);
   std::string GetValueFromProperty(boost::shared_ptr<ICIMProperty> property, std::string separator,
                                    bool raw);
   std::string GetDisplayName(boost::shared_ptr<const ICIMPropertyDecl> decl);
   std::string EscapeString(std::string text);
   std::string TruncString(std::string text);
   std::string TruncString(std::string text, int length);
   std::string PadString(std::string text, int width, bool trimLeading);
   int GetNumberInString(std::string& text);
   int GetLenOfInt(int value, int base);
   std::string IntToStr(int value, int base);

   // ---- writer/RunDuration.cpp
   // -----------------------------------------------------------------------

   std::string ConvertStrToNumType(std::string value, std::string propertyName);
   void DivideStrToWords(std::string text, std::vector<std::string>& words);
   void SetValue(RunDuration& duration, std::vector<std::string> words);
   void ForwardCarry(RunDuration& duration);
   int Calculate(RunDuration duration);

   // ---- writer/delta/DeltaReport.cpp
   // ----------------------------------------------------------------

   /// Writes the comparison page of a definition. Throws: what the store throws, status 15 apart.
   void WriteGenericDeltaReport(TReportParameters params);
   /// The record, or the first below it, that has a finding of exactly that type.
   /// Missing: an empty handle.
   boost::shared_ptr<TInstanceDelta> FindDeltaInstanceWithDeltas(
      boost::shared_ptr<TInstanceDelta> record, unsigned char type);
   void WriteMissingOrExtraDeltaTable(boost::shared_ptr<TInstanceDelta> record, bool missing);

   // ---- writer/delta/DifferenceTable.cpp
   // ------------------------------------------------------------

   void WritePropertyDeltaTable(boost::shared_ptr<TInstanceDelta> record);

   // ---- writer/delta/DeltaSearch.cpp
   // ----------------------------------------------------------------

   /// Appends the findings of a class and its subclasses. Missing: an unknown class adds nothing.
   void FindDeltas(std::string className, TInstances& deltas);
   /// Fills the class delta and the tree below it.
   void CreateDeltaInstances(boost::shared_ptr<TClassDelta> classDelta);
   /// Prints the records on standard output, for whoever debugs a comparison.
   void DumpDeltas(boost::shared_ptr<TClassDelta> classDelta);

   // ---- writer/delta/AssociationDeltas.cpp
   // ----------------------------------------------------------

   /// A finding on an associated instance becomes a difference of the column that shows it.
   void CreateDeltaAssocProperties(boost::shared_ptr<TClassDelta> classDelta);
   void CreateDeltaAssocProperties(boost::shared_ptr<TClassDelta> classDelta,
                                   TReportProperty& property, std::string propertyName,
                                   std::string assocClass, std::string assocTarget);
   /// Pulls the parents of the records into the report, all the way up.
   void CreateDeltaBackAssocDependencies(boost::shared_ptr<TClassDelta> classDelta);
   /// Pulls the associated children of the records into the report.
   void CreateDeltaAssocDependencies(boost::shared_ptr<TClassDelta> classDelta);

   // ---- writer/storage/CorvaneReport.cpp
   // -------------------------------------------------------------

   void WriteCorvaneReport();

   // ---- writer/storage/CorvaneLogsReport.cpp
   // ---------------------------------------------------------

   void WriteCorvaneLogsReport();

   // ---- writer/storage/LSIReport.cpp
   // -----------------------------------------------------------------

   void WriteLSIReport();

   // ---- writer/storage/LSIIDEReport.cpp
   // --------------------------------------------------------------

   void WriteLSIIDEReport();

   // ---- writer/storage/MegaRaidReport.cpp
   // ------------------------------------------------------------

   /// Writes the raw-data page first, and that one's index entry stands for both.
   void WriteLSIMegaRaidReport();

   // ---- writer/storage/MegaRaidProbes.cpp
   // ------------------------------------------------------------

   /// Whether there is a page of the provider's model, and one of the tool's output, to link to.
   bool isMRVendorProviderPresent();
   bool isMRRawDataPresent();

   // ---- writer/storage/IntegratedRaidReport.cpp
   // ------------------------------------------------------

   /// In no schedule: a program that embeds the library calls it in place of WriteLSIReport.
   void WriteLSIIntegratedRaidReport();

   // ---- writer/storage/*RawData.cpp
   // ------------------------------------------------------------------
   //
   // The output of a vendor's tool: a page of commands, and a text file for each.
   // Throws: TQSXException with status 27 or 11 where a file can't be written.

   /// Fills the link to the page. Missing: without commands both texts stay as they were.
   void WriteLSIRawData(std::string& linkText, std::string& linkTarget);
   void WriteCorvaneManagerRawDataReport(std::string& linkText, std::string& linkTarget);
   /// Writes nothing unless the output format is "html".
   void WriteMegaLSIRawDataReport();

   // ---- writer/storage/DriveHealthReport.cpp
   // ---------------------------------------------------------

   void WriteDriveHealthReport();

   // ---- writer/platform/Environmentals.cpp
   // -----------------------------------------------------------

   /// The sensors of the system. The page is always there, its index entry always claims data.
   /// Throws: TQSXException for a sensor without name, reading or modifier.
   void WriteEnvironmentalsReport();
   /// The sensors of the service processors. Missing: an index entry without a page.
   void WriteEnvironmentals(TReportParametersBuilder builder);

   // ---- writer/platform/ServiceProcessorConfig.cpp
   // ---------------------------------------------------

   /// The network settings of the management controller. Throws: TQSXException with the status of
   /// the assertion hook where one of its four classes is missing.
   void WriteSPConfigReport();

   // ---- writer/platform/CustomFirmware.cpp
   // -----------------------------------------------------------

   /// All firmware levels, those of RAID controllers among them. Throws: as WriteSPConfigReport,
   /// for its eight classes.
   void WriteCustomFirmwareReport(TReportParametersBuilder builder);

   // ---- writer/platform/MergedDevices.cpp
   // ------------------------------------------------------------

   /// Every logical device with its kernel module, a table per device class.
   void WriteMergedDevicesReport();

   // ---- writer/platform/MergedLog.cpp
   // ----------------------------------------------------------------

   /// The records of the system and of the chassis in one table. Missing: nothing is written
   /// without the class of the system's records.
   void WriteCELMergedLogReport();

   // ---- writer/platform/LinuxLogs.cpp
   // ----------------------------------------------------------------

   /// A page for each log file.
   void WriteLinuxLogReport();

   // ---- writer/platform/ChipsetRegisters.cpp
   // ---------------------------------------------------------

   /// The dump of the chipset's error registers. Missing: an index entry without a page.
   void WriteQTARegisterReport();

   // ---- writer/platform/AdapterRawData.cpp
   // -----------------------------------------------------------

   /// The output of an adapter's commands, each in a text file beside the page.
   /// Missing: an index entry without a page. Throws: TQSXException, status 27 or 11, where a text
   /// file can't be written.
   void WriteFibreChannelReport();
   void WriteIScsiRawDataReport();
   /// The same in HTML and service mode only, without an index entry: a catalogue report links to
   /// the page.
   void WriteQlogicRawDataReport();
   void WriteEmulexReport();

   // ---- writer/platform/DeviceAnalysis.cpp
   // -----------------------------------------------------------

   /// The findings of the device analysis, the highest score first. Throws: TQSXException where
   /// the class is missing.
   void WriteCadenzaReport();

   // ---- writer/platform/BIOSSettings.cpp
   // -------------------------------------------------------------

   void WriteBIOSEnumeration();

protected:
   // The concrete writer owns its construction and destruction.
   TWriter() = default;
   ~TWriter() = default;

   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::string fOutputDirectory;
   /// Fixed data files lie below it.
   std::string fBaseDirectory;
   /// "mek" switches on the raw data links and the service tables.
   std::string fMode;
   /// Tested against "html" only.
   std::string fOutputFormat;
   /// In a comparison: the compared classes that have findings, by name.
   std::map<std::string, boost::shared_ptr<ICIMInstance>> fDeltaClasses;
   /// In a comparison: the display label of each namespace.
   std::vector<std::string> fNamespaceLabels;
};

/// Orders the results of the update tool by Type, and by Name within a Type.
/// Throws: TQSXException where one of the two can't be read as a text.
QSX_API std::vector<boost::shared_ptr<ICIMInstance>> PSResultSort(
   std::vector<boost::shared_ptr<ICIMInstance>>& instances);
QSX_API bool ps_comp_name(boost::shared_ptr<ICIMInstance> a, boost::shared_ptr<ICIMInstance> b);
QSX_API bool ps_comp_type(boost::shared_ptr<ICIMInstance> a, boost::shared_ptr<ICIMInstance> b);

/// Writes the definition as a plain or, when comparing, as a comparison report.
QSX_API void WriteGenericReport(TWriter* writer, bool comparing, TReportParameters params);

/// Whether the address of a chipset register, the first three fields of its value joined, belongs
/// to the group of machine check and miscellaneous registers.
QSX_API bool QTARegisterAddressInMisc(std::string value);
/// The first three characters of that address.
QSX_API std::string QTARegisterGetCategory(std::string value);

/// Set when the integrated RAID report has been written. Nothing in the library reads it.
QSX_API extern bool wroteLSIReport;
