#pragma once

#include <map>
#include <string>

#include "CIMStore.h"

class TWriter;

/// One run over one collected system, or over several in a delta repository.
class TReport
{
public:
   /// Run parameters: "mode" (its text replaces "default") and "KMC" (any value sets the flag).
   TReport(boost::shared_ptr<ICIMNamespace> cimNamespace, std::map<std::string, TCIMValue> params,
           std::string outputDirectory);

   /// The whole run: corrections, catalogue, start of the writer, schedule, end of the writer.
   /// Throws: what the schedule does not answer; the writer is then not disposed.
   void Write(TWriter* writer, std::map<std::string, TCIMValue> params);

   // ---- Corrections of the collected data, one file each; no TQSXException leaves them
   // -----------------

   void fixPCISlots();
   void fixPCISlots2();
   void fixCriticalDetailforRaidDiskRemoval();
   void fixProductNameofComputerSystem();
   /// The run parameters are the context of Delete.
   void fixRedundantMonitorInfo(std::map<std::string, TCIMValue> params);

private:
   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::string fReserved;
   std::string fOutputDirectory;
   std::string fMode = "default";
   bool fIsKMC = false;
};
