#pragma once

#include <string>

#include "definitions/TReportParameters.h"
#include "writer/StoreWalk.h"

/// How tables come to their instances and cells to their properties, with the quiet failure policy
/// of all writers. Only TQSXException is ever held back.

/// The instances of a table in report order. Missing: empty where the class can't be had, for
/// whatever status; a sort that fails is logged and leaves the store's order.
TInstances ReadInstances(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                         const TReportParameters::TReportClass& reportClass);

/// The instances of an associated table that belong to an instance of its parent, in report order.
/// Missing: a sort that fails is logged and leaves the store's order.
TInstances ReadAssociatedInstances(const boost::shared_ptr<ICIMInstance>& parent,
                                   const TReportParameters::TReportClass& reportClass);

/// Appends the properties that a column shows: one of the instance itself where both class texts
/// are empty, else one of each associated instance.
///
/// Missing: a property that the instance lacks is logged and left out. An association walk that
///          fails is logged and ends with what it has.
/// Throws:  any status but "not found" of the instance's own property.
void AddProperties(const boost::shared_ptr<ICIMInstance>& instance, const std::string& propertyName,
                   const std::string& assocClass, const std::string& assocTarget,
                   TProperties& properties);
