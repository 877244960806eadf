#pragma once

#include <map>
#include <string>
#include <vector>

#include "CIMStore.h"
#include "QSXExport.h"
#include "definitions/TReportParameters.h"
#include "writer/TTableGrid.h"

/// The logic of the reports of a hypervisor's collection. How they look lies with the concrete
/// writer that derives from it.
///
/// It stands beside TWriter and differs from it in this: no trace in the log, no special cases by
/// class or property, the secondary target tried only after a cell's text is made, and no text for
/// a date-time whose declaration lacks NOTIMEPRECISION.
///
/// Owner: used by one thread, for one run at a time.
class QSX_API TWriter_vmwesxi
{
public:
   using TReportClass = TReportParameters::TReportClass;
   using TReportProperty = TReportParameters::TReportProperty;
   using TInstances = std::vector<boost::shared_ptr<ICIMInstance>>;
   using TProperties = std::vector<boost::shared_ptr<ICIMProperty>>;

   // ---- Output operations, the concrete writer's
   // ---------------------------------------------------------------
   //
   // Those with a name of TWriter's do what they do there.

   /// Start of the run. Sets fNamespace and fOutputDirectory.
   virtual void Initialize(boost::shared_ptr<ICIMNamespace> cimNamespace, TContext params,
                           std::string outputDirectory) = 0;
   virtual void BeginIndex() = 0;
   /// A run never calls it: its groups follow each other unclosed.
   virtual void EndIndexGroup() = 0;
   virtual void BeginIndexGroup(std::string heading) = 0;
   virtual void EndIndex() = 0;
   virtual void OpenReportFile(std::string path) = 0;
   virtual void CloseReportFile() = 0;
   virtual void BeginReportBody() = 0;
   virtual void EndReportBody() = 0;
   virtual void WriteReportTitle(std::string title, std::string linkText,
                                 std::string linkTarget) = 0;
   virtual void WriteIndexEntry(std::string linkName, std::string displayName,
                                const bool& hasData) = 0;
   virtual void WriteTableTitle(std::string title, const bool& subTitle,
                                const bool& emphasised) = 0;
   virtual void WriteGrid(TTableGrid* grid) = 0;
   // Nothing calls these four; they keep the places of those behind them.
   virtual void ReservedOperation14() = 0;
   virtual void ReservedOperation15() = 0;
   virtual void ReservedOperation16() = 0;
   virtual void ReservedOperation17() = 0;
   virtual std::string GetArrayValueSeparatorText(
      TReportProperty::ArrayValueSeparator separator) = 0;
   virtual std::string EncodeValueText(std::string text) = 0;
   // The five reports of a run. A concrete writer normally passes them to WriteGenericReport.
   virtual void WriteSystemOverviewReport(TReportParameters params) = 0;
   virtual void WriteHardwareInventoryReport(TReportParameters params) = 0;
   virtual void WriteRegisteredProfileReport(TReportParameters params) = 0;
   virtual void WriteHealthStatusReport(TReportParameters params) = 0;
   virtual void WritePrivilegeLogReport(TReportParameters params) = 0;

   // ---- hypervisor/TWriter_vmwesxi.cpp
   // -------------------------------------------------------------------------

   /// Missing: a table without instances is left out; the page and its index entry are there in any
   /// case.
   void WriteGenericReport(TReportParameters params);
   /// Throws: std::invalid_argument for a definition without properties.
   void WriteTable(TReportClass reportClass, TInstances instances, bool expandAssociations,
                   bool marked, TContext context);
   std::string GetTableHeaderLabel(ICIMClass& cimClass, TReportProperty property, TContext context);
   /// The instances of a table in report order. Missing: empty where the class can't be had.
   TInstances GetInstances(TReportClass reportClass);
   std::string GetValuesFromProperties(TProperties properties, const std::string& separator,
                                       bool raw);
   std::string GetValueFromProperty(boost::shared_ptr<ICIMProperty> property, std::string separator,
                                    bool raw);

protected:
   // The concrete writer owns its construction and destruction.
   TWriter_vmwesxi() = default;
   ~TWriter_vmwesxi() = default;

   boost::shared_ptr<ICIMNamespace> fNamespace;
   // Nothing here reads the three reserved texts.
   std::string fReserved1;
   std::string fReserved2;
   std::string fOutputDirectory;
   std::string fReserved3;
};
