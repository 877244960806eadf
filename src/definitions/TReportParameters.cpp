#include "definitions/TReportParameters.h"

#include <cstdlib>
#include <utility>

void TReportParameters::SetClasses(std::vector<TReportClass> classes)
{
   fClasses = std::move(classes);
}

int TReportParameters::ConvertPercent(std::string text)
{
   return static_cast<int>(std::strtol(text.substr(0, text.find('%')).c_str(), nullptr, 10));
}
