#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>

/// A thread that does tasks one after the other, in the order in which they come.
///
/// Owner:  what a task refers to is the task's alone until it is done. The destructor waits for the
///         task in work and drops those that wait.
/// Throws: what a task threw, from the next call on; the tasks behind it are dropped.
class TTaskThread
{
public:
   using TTask = std::function<void()>;

   TTaskThread();
   ~TTaskThread();
   TTaskThread(const TTaskThread&) = delete;
   TTaskThread& operator=(const TTaskThread&) = delete;

   /// Waits while kMostWaiting tasks are ahead of this one.
   void Add(TTask task);

   /// Waits until every task is done.
   void Finish();

private:
   static constexpr std::size_t kMostWaiting = 8;

   void Work();
   void ThrowFailure() const;

   std::mutex fMutex;
   /// Somebody may go on: the thread, or who waits for it.
   std::condition_variable fTaskCame;
   std::condition_variable fTaskLeft;
   std::deque<TTask> fTasks;
   std::exception_ptr fFailure;
   bool fIsWorking = false;
   bool fIsOver = false;
   std::thread fThread;
};
