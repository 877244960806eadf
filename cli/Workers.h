#pragma once

#include <cstddef>
#include <functional>
#include <string>

/// How a worker process ended.
struct TWorkerEnd
{
   /// The number of its task.
   std::size_t fTask = 0;
   int fExitCode = 0;
   /// The signal that ended it, or 0.
   int fSignal = 0;
   /// What it wrote to standard error; of a long text the beginning.
   std::string fMessages;
};

/// Runs tasks in processes of their own, several at a time: what one does to itself harms no other.
///
/// Shape:  the program forks; run is called in the new process with the number of the task, and its
///         result is that process's exit code. onEnd is called in this process, in the order in
///         which tasks end.
///         On an interrupt (SIGINT, SIGTERM, SIGHUP) the workers are told, waited for, and the
///         program then ends by the signal.
/// Owner:  the program has no other thread at the time of the call.
/// Throws: std::system_error when no process can be made; what onEnd throws. The workers that run
///         are stopped and waited for.
void RunInWorkers(std::size_t tasks, std::size_t jobs, const std::function<int(std::size_t)>& run,
                  const std::function<void(const TWorkerEnd&)>& onEnd);
