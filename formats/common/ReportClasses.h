#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "CIMStore.h"
#include "common/CollectionFacts.h"
#include "common/Gaps.h"
#include "common/ReportIndex.h"

/// The classes that each report draws from, by link name and by the name in the index.
using TReportClasses = std::map<std::string, std::vector<std::string>>;

/// Of the reports on a server, and on a hypervisor.
TReportClasses ReadReportClasses(const boost::shared_ptr<ICIMNamespace>& cimNamespace);
TReportClasses ReadHypervisorReportClasses(const boost::shared_ptr<ICIMNamespace>& cimNamespace);

/// Asks the builder's definitions at the first question, which comes at the end of a run.
/// Missing: an empty function where nobody knows what the collection declares.
std::function<bool(const TReportIndex::TEntry&)> MakeIsCollected(
   std::function<TReportClasses()> readClasses, const TCollectionFacts& facts,
   const std::vector<TGap>& gaps);

/// Whether somebody looked at what the report is about: the collection declares one of its classes
/// and does not say of any that it could not be had.
/// Missing: true for a report that is not known, and where nobody knows the declarations.
bool IsCollected(const TReportIndex::TEntry& entry, const TReportClasses& classes,
                 const TCollectionFacts& facts, const std::vector<TGap>& gaps);
