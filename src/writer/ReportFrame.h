#pragma once

#include <initializer_list>
#include <string>

#include "writer/TWriter.h"

using TInstanceHandle = boost::shared_ptr<ICIMInstance>;
using TClassHandle = boost::shared_ptr<ICIMClass>;
using TNamespaceHandle = boost::shared_ptr<ICIMNamespace>;

/// The frame that hand-written reports share: a page, and tables whose rows are the properties of
/// one instance.

/// Opens the page of that link name and its body.
void OpenReportPage(TWriter& writer, const std::string& outputDirectory,
                    const std::string& linkName);

/// Ends the body and closes the page.
void CloseReportPage(TWriter& writer);

/// One row of a row table, told as data.
struct TReportRow
{
   const char* fProperty;
   /// With both: the property is one of the target's, reached through the association.
   const char* fAssocClass = "";
   const char* fAssocTarget = "";
   /// In place of the declared one.
   const char* fLabel = "";
   const char* fWidth = "0%";

   operator TReportParameters::TReportProperty() const;
};

using TReportRows = std::initializer_list<TReportRow>;

/// A property as a label and a value.
void WriteRow(TWriter& writer, const TClassHandle& labelClass, const TInstanceHandle& instance,
              const TReportParameters::TReportProperty& property);

/// The value of one property under the label of another.
void WriteRow(TWriter& writer, const TClassHandle& labelClass,
              const TReportParameters::TReportProperty& labelProperty,
              const TInstanceHandle& instance, const TReportParameters::TReportProperty& property);

/// Every row, whether it holds a value or not.
void WriteAllRows(TWriter& writer, const TClassHandle& labelClass, const TInstanceHandle& instance,
                  TReportRows rows);

/// The rows without the null ones. "Version" is always written: the versions stand in associated
/// instances, and the test asks the instance itself.
void WriteFilledRows(TWriter& writer, const TClassHandle& labelClass,
                     const TInstanceHandle& instance, TReportRows rows);

/// A table of one label that stands in for a report without data.
void WriteMessageTable(TWriter& writer, const std::string& message,
                       const std::string& propertyName);
