#include <iostream>
#include <utility>

#include "definitions/TReportParameters.h"

using TReportClass = TReportParameters::TReportClass;

namespace {

/// " for the TITLE report definition (CIM class CLASS)"
std::string NameDefinition(const TReportClass& reportClass)
{
   return " for the " + reportClass.GetTitle() + " report definition (CIM class " +
          reportClass.GetClass() + ")";
}

void ValidateColumns(const TReportClass& reportClass)
{
   int sum = 0;
   for (const TReportParameters::TReportProperty& property : reportClass.GetProperties()) {
      const int width = TReportParameters::ConvertPercent(property.GetColumnWidth());
      if (width <= 1)
         std::cout << "Report: column '" << property.GetProperty() << "' width is less than 2%"
                   << NameDefinition(reportClass) << '\n';
      sum += width;
   }
   if (sum != 100)
      std::cout << "Report: columns add to " << sum << "%" << NameDefinition(reportClass) << '\n';
}

}  // namespace

void TReportClass::SetTitle(std::string title)
{
   fTitle = std::move(title);
   fHasTitle = true;
}

void TReportClass::SetAssociatorsFilter(const std::string& assocClass,
                                        const std::string& resultClass, const std::string& role,
                                        const std::string& resultRole)
{
   fAssocClass = assocClass;
   fResultClass = resultClass;
   fRole = role;
   fResultRole = resultRole;
}

void TReportClass::SetAssociatedClasses(std::vector<TReportClass> classes)
{
   fAssociatedClasses = std::move(classes);
}

void TReportClass::Reset()
{
   fHasTitle = false;
   fSubTitle = false;
   fTableWidth = "100%";
   SetAssociatorsFilter("", "", "", "");
   fUniqueIdProperty.clear();
   fHasAssociatedClass = false;
   fExcludeProps = false;
   fReportStyle = kColumnStyle;
   fInstanceSorter.Reset();
   fTableSortable = false;
   fMaxInstancesPerTable = kNoMaximum;
}

void TReportClass::Validate() const
{
   if (fReportStyle != kRowStyle)
      ValidateColumns(*this);
   else if (TReportParameters::ConvertPercent(fRowReportHeaderWidth) == 0)
      std::cout << "Report: Row report header width is 0%" << NameDefinition(*this) << '\n';
}
