#pragma once

#include <map>
#include <string>

#include "CIMStore.h"
#include "QSXExport.h"

class TWriter;

/// One run over one collected system, or over several in a delta repository.
class QSX_API TReport
{
public:
   /// Run parameters: "mode" (its text replaces "default") and "KMC" (any value sets the flag).
   TReport(boost::shared_ptr<ICIMNamespace> cimNamespace, std::map<std::string, TCIMValue> params,
           std::string outputDirectory);

   /// The whole run: corrections, catalogue, start of the writer, schedule, end of the writer.
   /// Throws: what the schedule does not answer; the writer is then not disposed.
   void Write(TWriter* writer, std::map<std::string, TCIMValue> params);

   // ---- Corrections of the collected data, one file each; no TQSXException leaves those of a run
   // ------------------------------------------------------------------------------------------

   /// A slot that an association joins to a device is in use.
   void fixPCISlots();
   /// A slot whose number a device tells as its own is in use.
   void fixPCISlots2();
   /// Adds the hint that a removed drive may belong to an array. Twice is harmless.
   void fixCriticalDetailforRaidDiskRemoval();
   /// Takes one dash from the end of the product name.
   void fixProductNameofComputerSystem();
   /// Removes the monitors of the remote supervisor adapter. The run parameters are the context of
   /// Delete.
   void fixRedundantMonitorInfo(std::map<std::string, TCIMValue> params);
   /// Fills what serial presence data lacks from the controller's records. No run calls it.
   /// Throws: what a class lookup or an enumeration throws; std::out_of_range where the bank or tag
   /// of a module has fewer than four characters.
   void fixMemInfo();

private:
   boost::shared_ptr<ICIMNamespace> fNamespace;
   std::string fReserved;
   std::string fOutputDirectory;
   std::string fMode = "default";
   bool fIsKMC = false;
};
