#include "Interrupt.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>
#include <utility>

namespace {

constexpr std::array<int, 3> kSignals = {SIGINT, SIGTERM, SIGHUP};
/// Written to the pipe by the destructor; no signal has this number.
constexpr unsigned char kStop = 0;

// The handler may only write: the thread at the other end of the pipe does the work.
int gPipe[2] = {-1, -1};
std::array<struct sigaction, kSignals.size()> gFormer;

void Send(unsigned char message)
{
   // A full pipe holds a message already.
   const ssize_t written = write(gPipe[1], &message, 1);
   static_cast<void>(written);
}

extern "C" void OnSignal(int number)
{
   const int error = errno;
   Send(static_cast<unsigned char>(number));
   errno = error;
}

unsigned char Receive()
{
   unsigned char message = kStop;
   while (read(gPipe[0], &message, 1) < 0 && errno == EINTR) {
   }
   return message;
}

void InstallHandlers()
{
   struct sigaction action = {};
   action.sa_handler = OnSignal;
   action.sa_flags = SA_RESTART;
   sigemptyset(&action.sa_mask);
   for (std::size_t i = 0; i < kSignals.size(); ++i) {
      sigaction(kSignals[i], nullptr, &gFormer[i]);
      // What the caller has set to be ignored, as nohup does, stays ignored.
      if (gFormer[i].sa_handler != SIG_IGN)
         sigaction(kSignals[i], &action, nullptr);
   }
}

void RestoreHandlers()
{
   for (std::size_t i = 0; i < kSignals.size(); ++i)
      sigaction(kSignals[i], &gFormer[i], nullptr);
}

/// Takes the folder away under the hands of whoever writes into it, then removes it.
void RemoveWork(const std::string& folder)
{
   const std::string aside = folder + ".interrupted";
   std::error_code ignored;
   std::filesystem::rename(folder, aside, ignored);
   std::filesystem::remove_all(ignored ? folder : aside, ignored);
}

}  // namespace

TInterruptCleanup::TInterruptCleanup(std::string folder) : fFolder(std::move(folder))
{
   if (pipe2(gPipe, O_CLOEXEC) != 0)
      throw std::system_error(errno, std::generic_category(), "pipe");
   fThread = std::thread([this] { Watch(); });
   InstallHandlers();
}

TInterruptCleanup::~TInterruptCleanup()
{
   RestoreHandlers();
   Send(kStop);
   // A signal that came first is answered first, and the program then ends inside this call.
   fThread.join();
   close(gPipe[0]);
   close(gPipe[1]);
}

void TInterruptCleanup::Watch()
{
   const int number = Receive();
   if (number == kStop)
      return;
   // Never given back: whoever waits for it is not to go on.
   fMutex.lock();
   RemoveWork(fFolder);
   std::signal(number, SIG_DFL);
   kill(getpid(), number);
   while (true)
      pause();
}

TInterruptsHeld::TInterruptsHeld()
{
   sigset_t signals;
   sigemptyset(&signals);
   for (const int number : kSignals)
      sigaddset(&signals, number);
   pthread_sigmask(SIG_BLOCK, &signals, &fFormer);
}

TInterruptsHeld::~TInterruptsHeld()
{
   pthread_sigmask(SIG_SETMASK, &fFormer, nullptr);
}
