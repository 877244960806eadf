#include "Gaps.h"

#include <fmt/format.h>

#include "common/Gaps.h"

std::vector<std::string> DescribeGaps(const boost::shared_ptr<NZANQSX20::TMemoryStore>& store)
{
   std::vector<std::string> lines;
   for (const TGap& gap : ReadGaps(NZANQSX20::OpenNamespace(store)))
      lines.push_back(fmt::format("{}: {} ({}{}{})", gap.fSubject, gap.fReason, gap.fSource,
                                  gap.fDetail.empty() ? "" : ": ", gap.fDetail));
   return lines;
}
