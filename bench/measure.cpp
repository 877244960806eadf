// Runs a command and prints its processor seconds, seconds and KiB of memory. Small itself: a
// process counts the memory of the one that started it as its own. Usage: measure COMMAND
// ARGUMENT...
#include <chrono>
#include <cstdio>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

int main(int, char** argv)
{
   const auto begin = std::chrono::steady_clock::now();
   const pid_t process = fork();
   if (process == 0) {
      execvp(argv[1], argv + 1);
      _exit(127);
   }
   int status = 0;
   rusage usage = {};
   if (process < 0 || wait4(process, &status, 0, &usage) < 0)
      return 1;
   const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
   const auto seconds = [](const timeval& time) {
      return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
   };
   std::printf("%.6f %.6f %ld\n", seconds(usage.ru_utime) + seconds(usage.ru_stime), wall.count(),
               usage.ru_maxrss);
   return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
