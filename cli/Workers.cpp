#include "Workers.h"

#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <system_error>
#include <utility>
#include <vector>

#include <fcntl.h>

namespace {

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};
constexpr std::size_t kKeptMessageBytes = 64 * 1024;

volatile std::sig_atomic_t gInterrupt = 0;

extern "C" void OnInterrupt(int number)
{
   gInterrupt = number;
}

/// Notes interrupts as long as it lives.
class TInterruptNote
{
public:
   TInterruptNote()
   {
      gInterrupt = 0;
      struct sigaction action = {};
      action.sa_handler = OnInterrupt;
      sigemptyset(&action.sa_mask);
      for (std::size_t i = 0; i < kSignals.size(); ++i) {
         sigaction(kSignals[i], nullptr, &fFormer[i]);
         // What the caller has set to be ignored, as nohup does, stays ignored.
         if (fFormer[i].sa_handler != SIG_IGN)
            sigaction(kSignals[i], &action, nullptr);
      }
   }

   ~TInterruptNote() { Restore(); }

   TInterruptNote(const TInterruptNote&) = delete;
   TInterruptNote& operator=(const TInterruptNote&) = delete;

   void Restore() const
   {
      for (std::size_t i = 0; i < kSignals.size(); ++i)
         sigaction(kSignals[i], &fFormer[i], nullptr);
   }

private:
   std::array<struct sigaction, kSignals.size()> fFormer;
};

struct TWorker
{
   pid_t fProcess = -1;
   int fPipe = -1;
   TWorkerEnd fEnd;
};

[[noreturn]] void FailSystem(const char* what)
{
   throw std::system_error(errno, std::generic_category(), what);
}

class TPool
{
public:
   explicit TPool(const std::function<int(std::size_t)>& run) : fRun(run) {}

   ~TPool() { Stop(SIGTERM); }

   TPool(const TPool&) = delete;
   TPool& operator=(const TPool&) = delete;

   std::size_t CountRunning() const { return fWorkers.size(); }

   void Start(std::size_t task)
   {
      int ends[2];
      if (pipe2(ends, O_CLOEXEC) != 0)
         FailSystem("pipe");
      // What waits in a buffer would be written by both.
      std::cout.flush();
      std::fflush(nullptr);
      const pid_t process = fork();
      if (process == 0)
         Work(task, ends[1]);
      close(ends[1]);
      if (process < 0) {
         close(ends[0]);
         FailSystem("fork");
      }
      TWorker& worker = fWorkers.emplace_back();
      worker.fProcess = process;
      worker.fPipe = ends[0];
      worker.fEnd.fTask = task;
   }

   /// Waits until a worker says something or ends, or an interrupt comes; the ends go to onEnd.
   void Attend(const std::function<void(const TWorkerEnd&)>& onEnd)
   {
      std::vector<pollfd> pipes;
      for (const TWorker& worker : fWorkers)
         pipes.push_back({worker.fPipe, POLLIN, 0});
      // An interrupt that comes just ahead of the call is met a moment later.
      constexpr int kMilliseconds = 200;
      if (poll(pipes.data(), pipes.size(), kMilliseconds) <= 0)
         return;
      for (std::size_t i = pipes.size(); i-- > 0;) {
         if (pipes[i].revents == 0 || Listen(fWorkers[i]))
            continue;
         const TWorkerEnd end = Reap(fWorkers[i]);
         fWorkers.erase(fWorkers.begin() + static_cast<std::ptrdiff_t>(i));
         onEnd(end);
      }
   }

   /// Tells all workers and waits for them.
   void Stop(int number)
   {
      for (const TWorker& worker : fWorkers)
         kill(worker.fProcess, number);
      for (TWorker& worker : fWorkers)
         Reap(worker);
      fWorkers.clear();
   }

private:
   [[noreturn]] void Work(std::size_t task, int messages) const
   {
      // Without the parent nobody would tell what became of the task.
      prctl(PR_SET_PDEATHSIG, SIGTERM);
      for (const int number : kSignals)
         if (std::signal(number, SIG_DFL) == SIG_IGN)
            std::signal(number, SIG_IGN);
      dup2(messages, STDERR_FILENO);
      const int exitCode = fRun(task);
      std::cout.flush();
      std::cerr.flush();
      std::fflush(nullptr);
      _exit(exitCode);
   }

   /// Missing: false at the end of what the worker has to say.
   static bool Listen(TWorker& worker)
   {
      std::array<char, 4096> block;
      const ssize_t got = read(worker.fPipe, block.data(), block.size());
      if (got < 0)
         return errno == EINTR;
      std::string& messages = worker.fEnd.fMessages;
      const std::size_t room = kKeptMessageBytes - std::min(messages.size(), kKeptMessageBytes);
      messages.append(block.data(), std::min(static_cast<std::size_t>(got), room));
      return got != 0;
   }

   static TWorkerEnd Reap(TWorker& worker)
   {
      close(worker.fPipe);
      int status = 0;
      while (waitpid(worker.fProcess, &status, 0) < 0 && errno == EINTR) {
      }
      worker.fEnd.fSignal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
      worker.fEnd.fExitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 0;
      return std::move(worker.fEnd);
   }

   const std::function<int(std::size_t)>& fRun;
   std::vector<TWorker> fWorkers;
};

}  // namespace

void RunInWorkers(std::size_t tasks, std::size_t jobs, const std::function<int(std::size_t)>& run,
                  const std::function<void(const TWorkerEnd&)>& onEnd)
{
   const TInterruptNote interrupts;
   TPool pool(run);
   for (std::size_t next = 0; next < tasks || pool.CountRunning() > 0;) {
      while (gInterrupt == 0 && next < tasks && pool.CountRunning() < jobs)
         pool.Start(next++);
      if (gInterrupt == 0)
         pool.Attend(onEnd);
      if (gInterrupt != 0) {
         const int number = gInterrupt;
         pool.Stop(number);
         interrupts.Restore();
         raise(number);
      }
   }
}
