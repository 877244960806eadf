#pragma once

#include <string>

#include <boost/shared_ptr.hpp>

#include "store/TMemoryStore.h"

/// All that a store holds as text, a line per class, declared property and property value, so that
/// two stores are the same when their texts are.
std::string DescribeStore(const boost::shared_ptr<NZANQSX20::TMemoryStore>& store);

/// The lines of the instances alone.
std::string DescribeInstances(const boost::shared_ptr<NZANQSX20::TMemoryStore>& store);

/// With which class declares what itself, and the order of the instances over all classes.
std::string DescribeStoreAndOrder(const boost::shared_ptr<NZANQSX20::TMemoryStore>& store);
