#include <utility>

#include "definitions/TReportParameters.h"

// The association class comes before the target here, unlike in the order of the fields.
TReportParameters::TReportProperty::TReportProperty(std::string property, std::string columnWidth,
                                                    std::string associationClass,
                                                    std::string associationTarget,
                                                    std::string labelOverride)
   : fProperty(std::move(property)),
     fColumnWidth(std::move(columnWidth)),
     fAssociationTarget(std::move(associationTarget)),
     fAssociationClass(std::move(associationClass)),
     fLabelOverride(std::move(labelOverride))
{}
