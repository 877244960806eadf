// Preloaded into the tool: one of its system calls that make or change a file fails.
//
// QSX_FAIL_CALL   which of them, counted from 1; without it the calls are counted and the number is
//                 written to QSX_FAIL_COUNT, a file
// QSX_FAIL_WITH   a number: the errno. "short": a write takes half of its bytes. "interrupt": a
// read
//                 or write does nothing because of a signal; of those from there on, every second
//                 one. "kill": the process is killed ahead of the call. "killed": after it.
// QSX_FAIL_ONWARD all calls from there on
// QSX_PLAIN_FILES a file system without nameless files, and which can't exchange two names; calls
//                 that ask for these are not counted

#include <dlfcn.h>
#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

constexpr int kDescriptors = 1024;
/// Open for writing. What goes to the standard streams is no output file.
bool gIsOutput[kDescriptors];
long gCalls = 0;

template <typename Function>
Function* GetNext(const char* name)
{
   return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

const char* GetWish(const char* name)
{
   const char* text = getenv(name);
   return text != nullptr ? text : "";
}

bool IsDue()
{
   ++gCalls;
   const long wanted = atol(GetWish("QSX_FAIL_CALL"));
   return wanted > 0 && (gCalls == wanted || (*GetWish("QSX_FAIL_ONWARD") && gCalls > wanted));
}

bool Wants(const char* wish)
{
   return strcmp(GetWish("QSX_FAIL_WITH"), wish) == 0;
}

/// Whether the call is to fail; errno is then set.
bool Fails()
{
   if (!IsDue() || Wants("short") || Wants("interrupt") || Wants("killed"))
      return false;
   if (Wants("kill"))
      raise(SIGKILL);
   errno = atoi(GetWish("QSX_FAIL_WITH"));
   return true;
}

/// Whether the read or write is to fail; errno is then set.
bool FailsTransfer()
{
   const long calls = gCalls;
   if (Fails())
      return true;
   if (!Wants("interrupt"))
      return false;
   const long wanted = atol(GetWish("QSX_FAIL_CALL"));
   const bool isDue = *GetWish("QSX_FAIL_ONWARD") ? gCalls >= wanted && (calls - wanted) % 2 != 0
                                                  : gCalls == wanted;
   if (isDue)
      errno = EINTR;
   return isDue;
}

/// A short write takes these.
size_t Shorten(size_t count)
{
   const long wanted = atol(GetWish("QSX_FAIL_CALL"));
   const bool isDue = gCalls == wanted || (*GetWish("QSX_FAIL_ONWARD") && gCalls > wanted);
   return isDue && Wants("short") ? (count + 1) / 2 : count;
}

bool IsOutput(int descriptor)
{
   return descriptor > STDERR_FILENO && descriptor < kDescriptors && gIsOutput[descriptor];
}

template <typename Open>
int OpenNoted(int flags, Open open)
{
   if ((flags & __O_TMPFILE) != 0 && *GetWish("QSX_PLAIN_FILES")) {
      errno = EOPNOTSUPP;
      return -1;
   }
   const bool writes = (flags & O_ACCMODE) != O_RDONLY;
   if (writes && Fails())
      return -1;
   const int descriptor = open();
   if (descriptor >= 0 && descriptor < kDescriptors)
      gIsOutput[descriptor] = writes;
   return descriptor;
}

mode_t GetMode(int flags, va_list arguments)
{
   return (flags & (O_CREAT | __O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

struct TCount
{
   ~TCount()
   {
      const char* path = getenv("QSX_FAIL_COUNT");
      if (path == nullptr)
         return;
      if (FILE* file = GetNext<FILE*(const char*, const char*)>("fopen")(path, "w")) {
         fprintf(file, "%ld\n", gCalls);
         GetNext<int(FILE*)>("fclose")(file);
      }
   }
} gCount;

}  // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
   va_list arguments;
   va_start(arguments, flags);
   const mode_t mode = GetMode(flags, arguments);
   va_end(arguments);
   static const auto next = GetNext<int(const char*, int, ...)>("open");
   return OpenNoted(flags, [&] { return next(path, flags, mode); });
}

int open64(const char* path, int flags, ...)
{
   va_list arguments;
   va_start(arguments, flags);
   const mode_t mode = GetMode(flags, arguments);
   va_end(arguments);
   static const auto next = GetNext<int(const char*, int, ...)>("open64");
   return OpenNoted(flags, [&] { return next(path, flags, mode); });
}

ssize_t write(int descriptor, const void* bytes, size_t count)
{
   static const auto next = GetNext<ssize_t(int, const void*, size_t)>("write");
   if (!IsOutput(descriptor))
      return next(descriptor, bytes, count);
   if (FailsTransfer())
      return -1;
   count = Shorten(count);
   const bool isDue = gCalls == atol(GetWish("QSX_FAIL_CALL"));
   const ssize_t written = next(descriptor, bytes, isDue && Wants("killed") ? count / 2 : count);
   if (isDue && Wants("killed"))
      raise(SIGKILL);
   return written;
}

/// What was written is read back.
ssize_t pread(int descriptor, void* bytes, size_t count, off_t offset)
{
   static const auto next = GetNext<ssize_t(int, void*, size_t, off_t)>("pread");
   if (!IsOutput(descriptor))
      return next(descriptor, bytes, count, offset);
   return FailsTransfer() ? -1 : next(descriptor, bytes, Shorten(count), offset);
}

ssize_t pread64(int descriptor, void* bytes, size_t count, off64_t offset)
{
   return pread(descriptor, bytes, count, offset);
}

int close(int descriptor)
{
   static const auto next = GetNext<int(int)>("close");
   if (!IsOutput(descriptor))
      return next(descriptor);
   gIsOutput[descriptor] = false;
   const bool fails = Fails();
   const int error = errno;
   const int result = next(descriptor);
   errno = fails ? error : errno;
   return fails ? -1 : result;
}

FILE* fopen(const char* path, const char* mode)
{
   static const auto next = GetNext<FILE*(const char*, const char*)>("fopen");
   return strpbrk(mode, "wa+") != nullptr && Fails() ? nullptr : next(path, mode);
}

FILE* fopen64(const char* path, const char* mode)
{
   return fopen(path, mode);
}

int fflush(FILE* file)
{
   static const auto next = GetNext<int(FILE*)>("fflush");
   return file != nullptr && fileno(file) > STDERR_FILENO && Fails() ? EOF : next(file);
}

int fclose(FILE* file)
{
   static const auto next = GetNext<int(FILE*)>("fclose");
   const bool fails = fileno(file) > STDERR_FILENO && Fails();
   const int error = errno;
   const int result = next(file);
   errno = fails ? error : errno;
   return fails ? EOF : result;
}

int fsync(int descriptor)
{
   static const auto next = GetNext<int(int)>("fsync");
   return Fails() ? -1 : next(descriptor);
}

int mkdir(const char* path, mode_t mode)
{
   static const auto next = GetNext<int(const char*, mode_t)>("mkdir");
   return Fails() ? -1 : next(path, mode);
}

char* mkdtemp(char* path)
{
   static const auto next = GetNext<char*(char*)>("mkdtemp");
   return Fails() ? nullptr : next(path);
}

int mkostemp(char* path, int flags)
{
   static const auto next = GetNext<int(char*, int)>("mkostemp");
   return OpenNoted(O_RDWR, [&] { return next(path, flags); });
}

int mkostemp64(char* path, int flags)
{
   return mkostemp(path, flags);
}

int fchmod(int descriptor, mode_t mode)
{
   static const auto next = GetNext<int(int, mode_t)>("fchmod");
   return Fails() ? -1 : next(descriptor, mode);
}

int chmod(const char* path, mode_t mode)
{
   static const auto next = GetNext<int(const char*, mode_t)>("chmod");
   return Fails() ? -1 : next(path, mode);
}

int rename(const char* from, const char* to)
{
   static const auto next = GetNext<int(const char*, const char*)>("rename");
   if (Fails())
      return -1;
   const int result = next(from, to);
   if (gCalls == atol(GetWish("QSX_FAIL_CALL")) && Wants("killed"))
      raise(SIGKILL);
   return result;
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned int flags)
{
   static const auto next =
      GetNext<int(int, const char*, int, const char*, unsigned int)>("renameat2");
   if (*GetWish("QSX_PLAIN_FILES")) {
      errno = EINVAL;
      return -1;
   }
   return Fails() ? -1 : next(fromFolder, from, toFolder, to, flags);
}

}  // extern "C"
