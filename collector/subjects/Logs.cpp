#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Journal.h"
#include "subjects/LogFiles.h"
#include "subjects/Subjects.h"

namespace NZANQSX20 {

/// The journal holds what the files hold, and more.
void CollectLogs(const TMachine& machine, TCollected& collected)
{
   if (CollectJournal(machine, collected))
      return;
   const bool hasFiles = CollectLogFiles(machine, collected);
   const bool hasMessages = CollectKernelMessages(machine, collected);
   if (!hasFiles && !hasMessages)
      collected.AddGap({"System logs", {"ZANSG_LinuxEventLogRecord", "ZANSG_LogRecord"}},
                       "/var/log", EReason::kNotPresent, "neither a journal nor log files");
}

}  // namespace NZANQSX20
