#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <set>
#include <string>

#include "machine/TReading.h"
#include "machine/TRootFiles.h"

namespace NZANQSX20 {

constexpr std::chrono::milliseconds kReadDeadline(3000);

/// A process of its own that asks the files. A read that hangs, in a dead network file system or a
/// broken device, hangs there: at the deadline the process is given up and another takes its place.
///
/// A thread could not be given up: a program ends only when all its threads have left the kernel.
class TFileProcess
{
public:
   using TAnswer = std::function<TReading(const TFileRequest&)>;

   /// answer runs in the other process, on a copy of what is in memory when that is started.
   explicit TFileProcess(TAnswer answer, std::chrono::milliseconds deadline = kReadDeadline);
   ~TFileProcess();
   TFileProcess(const TFileProcess&) = delete;
   TFileProcess& operator=(const TFileProcess&) = delete;

   /// Missing: reason kTimedOut at the deadline, and at once for what lies in a folder where
   ///          something has timed out before.
   TReading Ask(const TFileRequest& request);

private:
   bool Start();
   void GiveUp();

   TAnswer fAnswer;
   std::chrono::milliseconds fDeadline;
   pid_t fProcess = 0;
   int fSocket = -1;
   std::set<std::string> fStuckFolders;
};

}  // namespace NZANQSX20
