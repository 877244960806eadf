#pragma once

#include "CIMStore.h"
#include "common/RunFacts.h"

/// Reads the facts of a collection; what can't be read stays empty.
/// The context selects one of several collections.
TRunFacts ReadRunFacts(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                       const TContext& context = {});

/// Reads the facts of each of the compared systems. The labels differ; a file that is not told is
/// left out.
std::vector<TComparedSystem> ReadComparedSystems(
   const boost::shared_ptr<ICIMNamespace>& cimNamespace, const std::vector<std::string>& labels,
   const std::vector<std::string>& files);
