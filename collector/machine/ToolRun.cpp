#include "machine/ToolRun.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>

#include "machine/RegularFile.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

using TClock = std::chrono::steady_clock;

constexpr std::size_t kErrorCap = 4096;
/// How long a killed program may take to end; one that hangs in the kernel is left to itself.
constexpr std::chrono::milliseconds kPatience(500);

/// Both ends of a pipe.
struct TPipe
{
   TPipe()
   {
      std::array<int, 2> ends = {-1, -1};
      if (pipe2(ends.data(), O_CLOEXEC) != 0)
         ends = {-1, -1};
      fIn = ends[1];
      fOut = ends[0];
   }

   ~TPipe()
   {
      CloseIn();
      if (fOut >= 0)
         close(fOut);
   }

   TPipe(const TPipe&) = delete;
   TPipe& operator=(const TPipe&) = delete;

   void CloseIn()
   {
      if (fIn >= 0)
         close(fIn);
      fIn = -1;
   }

   int fIn = -1;
   int fOut = -1;
};

std::vector<char*> MakePointers(std::vector<std::string>& words)
{
   std::vector<char*> pointers;
   for (std::string& word : words)
      pointers.push_back(word.data());
   pointers.push_back(nullptr);
   return pointers;
}

/// Missing: 0 when the program can't be started; the reading then tells why.
pid_t Start(const std::string& path, std::vector<std::string> words, const TPipe& output,
            const TPipe& errors, TReading& reading)
{
   posix_spawn_file_actions_t actions;
   posix_spawn_file_actions_init(&actions);
   posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
   posix_spawn_file_actions_adddup2(&actions, output.fIn, STDOUT_FILENO);
   posix_spawn_file_actions_adddup2(&actions, errors.fIn, STDERR_FILENO);
   posix_spawn_file_actions_addchdir_np(&actions, "/");

   posix_spawnattr_t attributes;
   posix_spawnattr_init(&attributes);
   sigset_t none;
   sigset_t all;
   sigemptyset(&none);
   sigfillset(&all);
   posix_spawnattr_setsigmask(&attributes, &none);
   posix_spawnattr_setsigdefault(&attributes, &all);
   posix_spawnattr_setpgroup(&attributes, 0);
   posix_spawnattr_setflags(&attributes,
                            POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

   std::vector<std::string> environment = {"LC_ALL=C", "PATH=/usr/sbin:/usr/bin:/sbin:/bin"};
   pid_t process = 0;
   const int error = posix_spawn(&process, path.c_str(), &actions, &attributes,
                                 MakePointers(words).data(), MakePointers(environment).data());
   posix_spawnattr_destroy(&attributes);
   posix_spawn_file_actions_destroy(&actions);
   if (error == 0)
      return process;
   SetReason(reading, error);
   return 0;
}

/// Takes what is there. Missing: false at the end of the stream.
bool Take(int stream, std::string& text, std::size_t cap)
{
   std::array<char, 64 * 1024> block;
   const ssize_t count = read(stream, block.data(), block.size());
   if (count < 0)
      return errno == EINTR || errno == EAGAIN;
   text.append(block.data(), std::min(static_cast<std::size_t>(count), cap + 1 - text.size()));
   return count > 0;
}

/// Reads both streams to their ends, the deadline or the cap.
void TakeOutput(int output, int errors, TClock::time_point deadline, TReading& reading)
{
   std::array<pollfd, 2> streams = {pollfd{output, POLLIN, 0}, pollfd{errors, POLLIN, 0}};
   std::string errorText;
   while (streams[0].fd >= 0 || streams[1].fd >= 0) {
      const auto left =
         std::chrono::duration_cast<std::chrono::milliseconds>(deadline - TClock::now()).count();
      if (left <= 0) {
         reading.fReason = EReason::kTimedOut;
         break;
      }
      if (poll(streams.data(), streams.size(), static_cast<int>(left)) <= 0)
         continue;
      if (streams[0].revents != 0 && !Take(output, reading.fText, kToolOutputCap))
         streams[0].fd = -1;
      if (streams[1].revents != 0 && !Take(errors, errorText, kErrorCap))
         streams[1].fd = -1;
      if (reading.fText.size() > kToolOutputCap) {
         reading.fText.resize(kToolOutputCap);
         reading.fReason = EReason::kTooLong;
         break;
      }
   }
   reading.fDetail = std::string(Trim(errorText.substr(0, errorText.find('\n'))));
}

/// Whether the program has ended by the time.
bool WaitUntil(pid_t process, TClock::time_point time, int& status)
{
   while (true) {
      const pid_t ended = waitpid(process, &status, WNOHANG);
      if (ended == process)
         return true;
      if (TClock::now() >= time)
         return false;
      const timespec pause = {0, 2'000'000};
      nanosleep(&pause, nullptr);
   }
}

void Finish(pid_t process, TClock::time_point deadline, TReading& reading)
{
   int status = 0;
   const bool hasEnded = reading && WaitUntil(process, deadline, status);
   // The group may hold more than the program.
   kill(-process, SIGKILL);
   if (!hasEnded) {
      WaitUntil(process, TClock::now() + kPatience, status);
      if (reading)
         reading.fReason = EReason::kTimedOut;
      return;
   }
   if (WIFEXITED(status)) {
      reading.fExitCode = WEXITSTATUS(status);
      return;
   }
   reading.fReason = EReason::kFailed;
   reading.fDetail = "ended by signal " + std::to_string(WTERMSIG(status));
}

}  // namespace

TReading RunProgram(const std::string& path, const std::string& name,
                    const std::vector<std::string>& arguments, std::chrono::milliseconds deadline)
{
   TReading reading;
   reading.fSource = path;
   TPipe output;
   TPipe errors;
   if (output.fOut < 0 || errors.fOut < 0) {
      SetReason(reading, errno);
      return reading;
   }
   std::vector<std::string> words = {name};
   words.insert(words.end(), arguments.begin(), arguments.end());
   const auto end = TClock::now() + deadline;
   const pid_t process = Start(path, std::move(words), output, errors, reading);
   if (process == 0)
      return reading;
   output.CloseIn();
   errors.CloseIn();
   TakeOutput(output.fOut, errors.fOut, end, reading);
   Finish(process, end, reading);
   return reading;
}

}  // namespace NZANQSX20
