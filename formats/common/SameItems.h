#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "CIMStore.h"
#include "definitions/TReportParameters.h"
#include "writer/StoreWalk.h"

/// What the reports of a comparison have nothing to say about: the instances that no finding names.
///
/// Missing: nothing for a report without a definition in the catalogue, and for what the store
///          can't give.
class TSameItems
{
public:
   struct TTable
   {
      TReportParameters::TReportClass fClass;
      /// Of the base, in report order.
      TInstances fInstances;
   };

   /// Reads the findings, and the definitions of all reports that a comparison has.
   TSameItems(const boost::shared_ptr<ICIMNamespace>& cimNamespace, const std::string& mode,
              bool isKMC);

   /// The tables of a report, those without an instance left out.
   std::vector<TTable> Find(const std::string& linkName) const;

private:
   using TReportClass = TReportParameters::TReportClass;

   /// The properties that differ; the empty text where the instance is missing or unique.
   using TFindings = std::unordered_map<std::string, std::vector<std::string>>;

   void ReadFindings();
   void ReadDefinitions(const std::string& mode, bool isKMC);
   bool IsSame(const boost::shared_ptr<ICIMInstance>& instance,
               const TReportClass& reportClass) const;
   bool IsNamed(const boost::shared_ptr<ICIMInstance>& instance,
                const std::vector<TReportParameters::TReportProperty>& properties) const;

   boost::shared_ptr<ICIMNamespace> fNamespace;
   TFindings fFindings;
   std::map<std::string, TReportParameters> fDefinitions;
};
