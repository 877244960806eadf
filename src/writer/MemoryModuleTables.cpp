#include "writer/MemoryModuleTables.h"

#include <algorithm>

namespace {

constexpr std::size_t kModulesPerTable = 8;

}  // namespace

void WriteMemoryModuleTables(TWriter& writer, const TWriter::TReportClass& reportClass,
                             const TWriter::TInstances& instances)
{
   for (std::size_t start = 0; start < instances.size(); start += kModulesPerTable) {
      const std::size_t end = std::min(start + kModulesPerTable, instances.size());
      writer.WriteTable(reportClass, {instances.data() + start, instances.data() + end}, true,
                        false, {});
   }
}
