#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <thread>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "CoreServices.h"

extern char** environ;

namespace NZANQSX20 {

const std::string TOSSpecific::kFileSeparator = "/";

namespace {

using TClock = std::chrono::steady_clock;

/// What a program prints beyond this is dropped.
constexpr std::size_t kMaxOutput = 1024 * 1024;

class TFileDescriptor
{
public:
   TFileDescriptor() = default;
   TFileDescriptor(const TFileDescriptor&) = delete;
   TFileDescriptor& operator=(const TFileDescriptor&) = delete;

   ~TFileDescriptor() { Close(); }

   void Close()
   {
      if (fDescriptor >= 0)
         close(fDescriptor);
      fDescriptor = -1;
   }

   int fDescriptor = -1;
};

/// What the child sees: nothing on standard input, the pipe as standard output, no standard error,
/// a process group of its own, and no signal blocked or ignored.
class TSpawnSettings
{
public:
   explicit TSpawnSettings(int output)
   {
      posix_spawn_file_actions_init(&fActions);
      posix_spawn_file_actions_addopen(&fActions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
      posix_spawn_file_actions_adddup2(&fActions, output, STDOUT_FILENO);
      posix_spawn_file_actions_addopen(&fActions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

      sigset_t none;
      sigset_t all;
      sigemptyset(&none);
      sigfillset(&all);
      posix_spawnattr_init(&fAttributes);
      posix_spawnattr_setsigmask(&fAttributes, &none);
      posix_spawnattr_setsigdefault(&fAttributes, &all);
      posix_spawnattr_setpgroup(&fAttributes, 0);
      constexpr int kFlags = POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF;
      posix_spawnattr_setflags(&fAttributes, static_cast<short>(kFlags));
   }

   ~TSpawnSettings()
   {
      posix_spawnattr_destroy(&fAttributes);
      posix_spawn_file_actions_destroy(&fActions);
   }

   TSpawnSettings(const TSpawnSettings&) = delete;
   TSpawnSettings& operator=(const TSpawnSettings&) = delete;

   posix_spawn_file_actions_t fActions;
   posix_spawnattr_t fAttributes;
};

int GetMillisecondsLeft(TClock::time_point end)
{
   const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - TClock::now());
   return left.count() > 0 ? static_cast<int>(left.count()) : 0;
}

/// Reads to the end of the output, or as much of it as there is room for. Missing: false when the
/// time ran out or a read failed.
bool ReadOutput(int descriptor, TClock::time_point end, std::string& output)
{
   std::array<char, 4096> buffer;
   for (;;) {
      pollfd waiting = {descriptor, POLLIN, 0};
      const int ready = poll(&waiting, 1, GetMillisecondsLeft(end));
      if (ready < 0 && errno == EINTR)
         continue;
      if (ready <= 0)
         return false;
      const ssize_t count = read(descriptor, buffer.data(), buffer.size());
      if (count < 0 && errno == EINTR)
         continue;
      if (count < 0)
         return false;
      const std::size_t room = kMaxOutput - output.size();
      output.append(buffer.data(), std::min(static_cast<std::size_t>(count), room));
      if (count == 0 || output.size() == kMaxOutput)
         return true;
   }
}

/// Waits for the end of a process that has closed its output. Missing: false when the time ran out.
bool WaitUntil(pid_t process, TClock::time_point end)
{
   for (;;) {
      const pid_t ended = waitpid(process, nullptr, WNOHANG);
      if (ended == process || (ended < 0 && errno != EINTR))
         return true;
      if (GetMillisecondsLeft(end) == 0)
         return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
   }
}

void Kill(pid_t process)
{
   kill(-process, SIGKILL);
   while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
   }
}

}  // namespace

std::string TOSSpecific::SpawnProcess(std::string program, std::vector<std::string> arguments,
                                      int timeout)
{
   std::vector<char*> argv = {&program[0]};
   for (std::string& argument : arguments)
      argv.push_back(&argument[0]);
   argv.push_back(nullptr);

   int pipeEnds[2];
   if (pipe2(pipeEnds, O_CLOEXEC) != 0)
      return std::string();
   TFileDescriptor readEnd;
   TFileDescriptor writeEnd;
   readEnd.fDescriptor = pipeEnds[0];
   writeEnd.fDescriptor = pipeEnds[1];

   const TClock::time_point end = TClock::now() + std::chrono::seconds(timeout);
   TSpawnSettings settings(writeEnd.fDescriptor);
   pid_t process = 0;
   if (posix_spawnp(&process, program.c_str(), &settings.fActions, &settings.fAttributes,
                    argv.data(), environ) != 0)
      return std::string();
   writeEnd.Close();

   std::string output;
   const bool isRead = ReadOutput(readEnd.fDescriptor, end, output);
   // A program that still prints finds its output closed, which ends it.
   readEnd.Close();
   if (isRead && WaitUntil(process, end))
      return output;
   Kill(process);
   return std::string();
}

}  // namespace NZANQSX20
