#include "run/TReport.h"

#include <utility>

#include "catalogue/TReportParametersBuilder.h"
#include "run/Schedule.h"
#include "writer/TWriter.h"

TReport::TReport(boost::shared_ptr<ICIMNamespace> cimNamespace,
                 std::map<std::string, TCIMValue> params, std::string outputDirectory)
   : fNamespace(std::move(cimNamespace)), fOutputDirectory(std::move(outputDirectory))
{
   const auto mode = params.find("mode");
   if (mode != params.end())
      fMode = static_cast<std::string>(mode->second);
   fIsKMC = params.count("KMC") != 0;
}

void TReport::Write(TWriter* writer, std::map<std::string, TCIMValue> params)
{
   const bool comparing =
      fNamespace->GetProvider({})->GetProviderType({}) == NZANQSX20::kDeltaRepository;
   if (!comparing) {
      fixPCISlots();
      fixPCISlots2();
      fixCriticalDetailforRaidDiskRemoval();
      fixProductNameofComputerSystem();
      fixRedundantMonitorInfo(params);
   }

   TReportParametersBuilder builder(fNamespace, fMode, fIsKMC);
   const int osType = builder.GetOSType();
   const std::string version = builder.GetDataSourceVersion();
   TRun run{writer, builder, comparing, osType, version, fMode, fIsKMC};

   writer->BaseInitialize(fNamespace, params);
   writer->Initialize(fNamespace, params, fOutputDirectory);
   writer->BeginIndex();
   schedule::WriteSteps(schedule::GetSchedule(), run);
   writer->EndIndex();
   writer->BaseDispose();
}
