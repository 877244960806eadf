#include "machine/TFileProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <utility>

#include "machine/RegularFile.h"

namespace NZANQSX20 {

namespace {

using TClock = std::chrono::steady_clock;

/// Ahead of a path.
struct TRequestHead
{
   EQuestion fQuestion;
   std::uint64_t fOffset;
   std::uint64_t fSize;
   std::uint64_t fPathLength;
};

/// Ahead of a detail and a text.
struct TAnswerHead
{
   EReason fReason;
   std::uint64_t fDetailLength;
   std::uint64_t fTextLength;
};

bool SendAll(int socket, const void* bytes, std::size_t size)
{
   const char* at = static_cast<const char*>(bytes);
   while (size > 0) {
      const ssize_t count = send(socket, at, size, MSG_NOSIGNAL);
      if (count < 0 && errno == EINTR)
         continue;
      if (count <= 0)
         return false;
      at += count;
      size -= static_cast<std::size_t>(count);
   }
   return true;
}

/// Missing: false at the deadline and when the other end has gone.
bool ReceiveAll(int socket, void* bytes, std::size_t size, const TClock::time_point* deadline)
{
   char* at = static_cast<char*>(bytes);
   while (size > 0) {
      if (deadline != nullptr) {
         const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(*deadline - TClock::now())
               .count();
         pollfd waiting = {socket, POLLIN, 0};
         if (left <= 0)
            return false;
         if (poll(&waiting, 1, static_cast<int>(left)) <= 0)
            continue;
      }
      const ssize_t count = recv(socket, at, size, 0);
      if (count < 0 && errno == EINTR)
         continue;
      if (count <= 0)
         return false;
      at += count;
      size -= static_cast<std::size_t>(count);
   }
   return true;
}

bool ReceiveText(int socket, std::string& text, std::size_t size,
                 const TClock::time_point* deadline)
{
   text.resize(size);
   return ReceiveAll(socket, text.data(), size, deadline);
}

/// The life of the other process: it ends with this one.
[[noreturn]] void Serve(int socket, const TFileProcess::TAnswer& answer)
{
   prctl(PR_SET_PDEATHSIG, SIGKILL);
   // Nobody who reads this program's output is to wait for a process that hangs.
   if (const int null = open("/dev/null", O_RDWR); null >= 0)
      for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
         dup2(null, stream);
   while (true) {
      TRequestHead head = {};
      TFileRequest request;
      if (!ReceiveAll(socket, &head, sizeof head, nullptr) ||
          !ReceiveText(socket, request.fPath, head.fPathLength, nullptr))
         _exit(0);
      request.fQuestion = head.fQuestion;
      request.fOffset = head.fOffset;
      request.fSize = head.fSize;
      const TReading reading = answer(request);
      const TAnswerHead answerHead = {reading.fReason, reading.fDetail.size(),
                                      reading.fText.size()};
      const std::string rest = reading.fDetail + reading.fText;
      if (!SendAll(socket, &answerHead, sizeof answerHead) ||
          !SendAll(socket, rest.data(), rest.size()))
         _exit(0);
   }
}

bool SendRequest(int socket, const TFileRequest& request)
{
   const TRequestHead head = {request.fQuestion, request.fOffset, request.fSize,
                              request.fPath.size()};
   std::string message(reinterpret_cast<const char*>(&head), sizeof head);
   message += request.fPath;
   return SendAll(socket, message.data(), message.size());
}

bool ReceiveAnswer(int socket, TClock::time_point deadline, TReading& reading)
{
   TAnswerHead head = {};
   if (!ReceiveAll(socket, &head, sizeof head, &deadline) ||
       !ReceiveText(socket, reading.fDetail, head.fDetailLength, &deadline) ||
       !ReceiveText(socket, reading.fText, head.fTextLength, &deadline))
      return false;
   reading.fReason = head.fReason;
   return true;
}

std::string GetFolder(const std::string& path)
{
   return path.substr(0, path.rfind('/') + 1);
}

}  // namespace

TFileProcess::TFileProcess(TAnswer answer, std::chrono::milliseconds deadline)
   : fAnswer(std::move(answer)), fDeadline(deadline)
{}

TFileProcess::~TFileProcess()
{
   GiveUp();
}

bool TFileProcess::Start()
{
   std::array<int, 2> ends = {-1, -1};
   if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
      return false;
   const pid_t process = fork();
   if (process == 0) {
      close(ends[0]);
      Serve(ends[1], fAnswer);
   }
   const int error = errno;
   close(ends[1]);
   if (process < 0) {
      close(ends[0]);
      errno = error;
      return false;
   }
   fSocket = ends[0];
   fProcess = process;
   return true;
}

/// One that hangs in the kernel dies when that lets it go.
void TFileProcess::GiveUp()
{
   if (fProcess == 0)
      return;
   close(fSocket);
   kill(fProcess, SIGKILL);
   constexpr int kTries = 50;
   for (int i = 0; i < kTries && waitpid(fProcess, nullptr, WNOHANG) == 0; ++i)
      usleep(1000);
   fSocket = -1;
   fProcess = 0;
}

TReading TFileProcess::Ask(const TFileRequest& request)
{
   TReading reading;
   reading.fSource = request.fPath;
   const std::string folder = GetFolder(request.fPath);
   if (fStuckFolders.count(folder) > 0) {
      reading.fReason = EReason::kTimedOut;
      return reading;
   }
   if (fProcess == 0 && !Start()) {
      SetReason(reading, errno);
      return reading;
   }
   if (SendRequest(fSocket, request) && ReceiveAnswer(fSocket, TClock::now() + fDeadline, reading))
      return reading;
   GiveUp();
   fStuckFolders.insert(folder);
   return {"", EReason::kTimedOut, request.fPath};
}

}  // namespace NZANQSX20
