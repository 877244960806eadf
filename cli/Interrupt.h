#pragma once

#include <csignal>
#include <mutex>
#include <string>
#include <thread>

/// Removes a folder of unfinished work when the program is interrupted (SIGINT, SIGTERM, SIGHUP);
/// the program then ends by the signal, as if it had no handler.
///
/// Owner: at most one at a time, as signal handlers are the process's.
class TInterruptCleanup
{
public:
   /// Throws: std::system_error.
   explicit TInterruptCleanup(std::string folder);
   /// Signals have their former effect again. Does not come back once an interrupt is being
   /// answered, so that no error message of the dying run is shown.
   ~TInterruptCleanup();

   TInterruptCleanup(const TInterruptCleanup&) = delete;
   TInterruptCleanup& operator=(const TInterruptCleanup&) = delete;

   /// Held by a step that an interrupt must not cut in two.
   std::unique_lock<std::mutex> Hold() { return std::unique_lock<std::mutex>(fMutex); }

private:
   void Watch();

   std::string fFolder;
   std::mutex fMutex;
   std::thread fThread;
};

/// Holds back the signals that end a run; they come when it goes out of scope.
class TInterruptsHeld
{
public:
   TInterruptsHeld();
   ~TInterruptsHeld();
   TInterruptsHeld(const TInterruptsHeld&) = delete;
   TInterruptsHeld& operator=(const TInterruptsHeld&) = delete;

private:
   sigset_t fFormer;
};
