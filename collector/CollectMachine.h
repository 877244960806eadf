#pragma once

#include <functional>
#include <string>

#include <boost/shared_ptr.hpp>

#include "store/TMemoryStore.h"

namespace NZANQSX20 {

class TMachine;

/// Of the program that collects. Missing: empty.
struct TCollectorVersion
{
   std::string fVersion;
   std::string fBuild = {};
};

/// A machine as a collection, one subject after the other.
///
/// Missing: what can't be had is an instance of QSX_NotCollected; a subject that fails loses what
///          it had not added yet and is one, too.
/// begin:   is called with the name of each subject.
boost::shared_ptr<TMemoryStore> CollectMachine(
   const TMachine& machine, const TCollectorVersion& version,
   const std::function<void(const std::string& subject)>& begin = {});

}  // namespace NZANQSX20
