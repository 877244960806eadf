#pragma once

#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "store/TMemoryStore.h"

/// What the collection says it lacks (class QSX_NotCollected), a line each:
/// "Drive health: not installed (/usr/sbin/smartctl)". Missing: none where it has no such class.
std::vector<std::string> DescribeGaps(const boost::shared_ptr<NZANQSX20::TMemoryStore>& store);
