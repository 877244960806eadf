#include "subjects/RelevantRecords.h"

#include "TCollected.h"

namespace NZANQSX20 {

void AddRelevantRecord(TCollected& collected, const std::string& log, const std::string& id,
                       const std::string& message)
{
   collected.Add("ZANSG_HeavyHittersLogRecord")
      .Set("LogName", log)
      .Set("RecordID", id)
      .Set("CreationClassName", "ZANSG_HeavyHittersLogRecord")
      .Set("LogCreationClassName", "ZANSG_HeavyHittersLog")
      .Set("Message", message);
}

}  // namespace NZANQSX20
