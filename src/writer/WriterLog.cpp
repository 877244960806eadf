#include "writer/WriterLog.h"

#include <algorithm>

void LogStatus(std::string_view text, int status)
{
   const std::size_t cut = status < 0 ? 0 : static_cast<std::size_t>(status);
   text.remove_prefix(std::min(cut, text.size()));
   LogTrace(text);
}

void LogStatus(std::string_view text, const TQSXException& failure)
{
   LogStatus(text, failure.fStatusCode.fStatusCode);
}
