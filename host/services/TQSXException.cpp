#include "TQSXException.h"

#include <map>

namespace NZANQSX20 {

const std::string& TQSXStatusCode::TranslateStatusCode() const
{
   static const std::map<int, std::string> kTexts = {{1, "General failure"},
                                                     {11, "Cannot open"},
                                                     {13, "Type mismatch"},
                                                     {15, "Not found"},
                                                     {27, "Access denied"}};
   const auto known = kTexts.find(fStatusCode);
   if (known != kTexts.end())
      return known->second;

   // Texts of unnamed statuses are made once and kept, as the reference outlives the exception.
   static std::map<int, std::string> numbered;
   std::string& text = numbered[fStatusCode];
   if (text.empty())
      text = "Status " + std::to_string(fStatusCode);
   return text;
}

const char* TQSXException::what() const noexcept
{
   return fStatusCode.TranslateStatusCode().c_str();
}

}  // namespace NZANQSX20
