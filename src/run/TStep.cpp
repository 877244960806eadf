#include <utility>

#include "run/Schedule.h"

namespace {

void OpenGroup(TRun& run, const std::string& heading)
{
   if (run.fGroupOpen)
      run.fWriter->EndIndexGroup();
   run.fWriter->BeginIndexGroup(heading);
   run.fGroupOpen = true;
}

}  // namespace

TStep TStep::When(TCondition condition) const
{
   TStep conditional = *this;
   conditional.fCondition = std::move(condition);
   return conditional;
}

TStep schedule::Group(const std::string& heading)
{
   return TStep([heading](TRun& run) { OpenGroup(run, heading); });
}

TStep schedule::Group(const std::string& headingWithKMC, const std::string& headingWithout)
{
   return TStep([headingWithKMC, headingWithout](TRun& run) {
      OpenGroup(run, run.fIsKMC ? headingWithKMC : headingWithout);
   });
}

TStep schedule::EndGroup()
{
   return TStep([](TRun& run) {
      run.fWriter->EndIndexGroup();
      run.fGroupOpen = false;
   });
}

TStep schedule::Generic(TDefinition definition)
{
   return TStep([definition](TRun& run) {
      WriteGenericReport(run.fWriter, run.fComparing, (run.fBuilder.*definition)());
   });
}

TStep schedule::WithRawDataLink(TDefinition definition, const std::string& rawLinkName)
{
   return TStep([definition, rawLinkName](TRun& run) {
      run.fWriter->WriteGenericReportWithLink((run.fBuilder.*definition)(), rawLinkName);
   });
}

TStep schedule::Report(void (TWriter::*report)(TReportParameters), TDefinition definition)
{
   return TStep(
      [report, definition](TRun& run) { (run.fWriter->*report)((run.fBuilder.*definition)()); });
}

TStep schedule::Report(void (TWriter::*report)())
{
   return TStep([report](TRun& run) { (run.fWriter->*report)(); });
}

TStep schedule::Report(void (TWriter::*report)(TReportParametersBuilder))
{
   return TStep([report](TRun& run) { (run.fWriter->*report)(run.fBuilder); });
}

TStep schedule::Log(int level, const std::string& text)
{
   return TStep([level, text](TRun&) { TRootObject::GetCoreLogger()->Log(level, text); });
}

TStep schedule::Guarded(std::vector<TStep> steps, std::vector<TStep> fallback)
{
   return TStep([steps = std::move(steps), fallback = std::move(fallback)](TRun& run) {
      try {
         WriteSteps(steps, run);
      } catch (const TQSXException&) {
         WriteSteps(fallback, run);
      }
   });
}

TStep schedule::End()
{
   return TStep({});
}

void schedule::WriteSteps(const std::vector<TStep>& steps, TRun& run)
{
   for (const TStep& step : steps) {
      if (!step.IsDue(run))
         continue;
      if (step.IsEnd())
         return;
      step.Act(run);
   }
}
