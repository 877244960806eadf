#pragma once

#include <vector>

#include "CIMStore.h"

/// The columns of a table of records that has no definition: the properties of the first record
/// that have a value in any of them, in the order of their declarations. Missing: what can't be
/// read has no value. Properties that only name the record are left out.
std::vector<boost::shared_ptr<const ICIMPropertyDecl>> GetFilledColumns(
   const std::vector<boost::shared_ptr<ICIMInstance>>& records);
