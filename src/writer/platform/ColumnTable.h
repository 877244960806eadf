#pragma once

#include <vector>

#include "CIMStore.h"
#include "definitions/TReportParameters.h"
#include "writer/StoreWalk.h"

class TWriter;

/// The columns of a table written cell by cell, in order.
using TColumns = std::vector<TReportParameters::TReportProperty>;

/// Writes the header row of a column table: the label of each column, and the end of the header.
void WriteColumnHeader(TWriter& writer, const boost::shared_ptr<ICIMClass>& cimClass,
                       const TColumns& columns);

/// Writes one row of values.
void WriteColumnRow(TWriter& writer, const boost::shared_ptr<ICIMInstance>& instance,
                    const TColumns& columns);

/// Writes a row for each instance, in their order.
void WriteColumnRows(TWriter& writer, const TInstances& instances, const TColumns& columns);
