#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "catalogue/TReportParametersBuilder.h"
#include "writer/TWriter.h"

/// What the steps of a schedule write with and what their conditions look at.
struct TRun
{
   TWriter* fWriter;
   TReportParametersBuilder fBuilder;
   bool fComparing;
   int fOSType;
   std::string fVersion;
   std::string fMode;
   bool fIsKMC;
   bool fGroupOpen = false;
};

/// A test on a run. The right side of && is asked only where the left holds: a probe may log.
class TCondition
{
public:
   TCondition(std::function<bool(TRun&)> test) : fTest(std::move(test)) {}

   bool Holds(TRun& run) const { return fTest(run); }

   friend TCondition operator&&(const TCondition& a, const TCondition& b)
   {
      return TCondition([a, b](TRun& run) { return a.Holds(run) && b.Holds(run); });
   }

   friend TCondition operator!(const TCondition& a)
   {
      return TCondition([a](TRun& run) { return !a.Holds(run); });
   }

private:
   std::function<bool(TRun&)> fTest;
};

/// One row of a schedule: what is written, and when.
class TStep
{
public:
   explicit TStep(std::function<void(TRun&)> act) : fAct(std::move(act)) {}

   TStep When(TCondition condition) const;

   bool IsDue(TRun& run) const { return fCondition.Holds(run); }

   /// An empty act ends the schedule.
   bool IsEnd() const { return !fAct; }

   void Act(TRun& run) const { fAct(run); }

private:
   std::function<void(TRun&)> fAct;
   TCondition fCondition = TCondition([](TRun&) { return true; });
};

/// The rows that a schedule is made of.
namespace schedule {

/// A definition of the catalogue.
using TDefinition = TReportParameters (TReportParametersBuilder::*)();

/// Opens an index group; one that is open is closed first.
TStep Group(const std::string& heading);
/// The heading depends on the KMC flag.
TStep Group(const std::string& headingWithKMC, const std::string& headingWithout);
TStep EndGroup();
/// A definition through the free WriteGenericReport: plain, or as a comparison.
TStep Generic(TDefinition definition);
/// Never the comparison form.
TStep WithRawDataLink(TDefinition definition, const std::string& rawLinkName);
/// A report that the writer makes of a definition.
TStep Report(void (TWriter::*report)(TReportParameters), TDefinition definition);
TStep Report(void (TWriter::*report)());
TStep Report(void (TWriter::*report)(TReportParametersBuilder));
TStep Log(int level, const std::string& text);
/// Where one of the steps fails with a TQSXException, the fallback follows what it wrote.
TStep Guarded(std::vector<TStep> steps, std::vector<TStep> fallback);
/// Ends the schedule; a group stays open.
TStep End();

/// All reports in the order of the index.
const std::vector<TStep>& GetSchedule();

/// Writes the steps that are due, in order. Throws: what a report outside a guard throws.
void WriteSteps(const std::vector<TStep>& steps, TRun& run);

}  // namespace schedule
