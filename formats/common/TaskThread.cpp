#include "common/TaskThread.h"

#include <csignal>
#include <utility>

#include <pthread.h>

namespace {

/// Signals are for the threads that were there before: a new thread has the mask of its maker.
class TBlockedSignals
{
public:
   TBlockedSignals()
   {
      sigset_t all;
      sigfillset(&all);
      pthread_sigmask(SIG_SETMASK, &all, &fBefore);
   }

   ~TBlockedSignals() { pthread_sigmask(SIG_SETMASK, &fBefore, nullptr); }

   TBlockedSignals(const TBlockedSignals&) = delete;
   TBlockedSignals& operator=(const TBlockedSignals&) = delete;

private:
   sigset_t fBefore;
};

}  // namespace

TTaskThread::TTaskThread()
{
   const TBlockedSignals blocked;
   fThread = std::thread([this] { Work(); });
}

TTaskThread::~TTaskThread()
{
   {
      const std::lock_guard lock(fMutex);
      fIsOver = true;
      fTasks.clear();
   }
   fTaskCame.notify_one();
   fThread.join();
}

void TTaskThread::Add(TTask task)
{
   {
      std::unique_lock lock(fMutex);
      fTaskLeft.wait(lock, [this] { return fTasks.size() < kMostWaiting; });
      ThrowFailure();
      fTasks.push_back(std::move(task));
   }
   fTaskCame.notify_one();
}

void TTaskThread::Finish()
{
   std::unique_lock lock(fMutex);
   fTaskLeft.wait(lock, [this] { return fTasks.empty() && !fIsWorking; });
   ThrowFailure();
}

void TTaskThread::Work()
{
   std::unique_lock lock(fMutex);
   while (true) {
      fTaskCame.wait(lock, [this] { return fIsOver || !fTasks.empty(); });
      if (fIsOver)
         return;
      TTask task = std::move(fTasks.front());
      fTasks.pop_front();
      fIsWorking = true;
      lock.unlock();
      std::exception_ptr failure;
      try {
         task();
      } catch (...) {
         failure = std::current_exception();
      }
      task = nullptr;
      lock.lock();
      fIsWorking = false;
      if (failure) {
         fFailure = failure;
         fTasks.clear();
      }
      fTaskLeft.notify_one();
   }
}

void TTaskThread::ThrowFailure() const
{
   if (fFailure)
      std::rethrow_exception(fFailure);
}
