#include "writer/RawDataFiles.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr int kStatusCannotOpen = 0xb;
constexpr int kStatusAccessDenied = 0x1b;

constexpr int kTableWidth = 75;
constexpr int kCommandColumnWidth = 80;
constexpr int kResultColumnWidth = 20;

struct TCloseFile
{
   void operator()(std::FILE* file) const { std::fclose(file); }
};

using TFile = std::unique_ptr<std::FILE, TCloseFile>;

/// A failure of a text file. what() names the file and the system's reason.
class TTextFileError : public TQSXException
{
public:
   TTextFileError(int status, const std::string& path, int error)
      : TQSXException(status), fText("cannot write " + path + ": " + std::strerror(error))
   {}

   const char* what() const noexcept override { return fText.c_str(); }

private:
   std::string fText;
};

/// Opens a regular file for writing. A link in its place is not followed, and a pipe or a device
/// is refused without waiting for it: the output directory may be one that others can write to.
TFile OpenTextFile(const std::string& path)
{
   const int descriptor =
      open(path.c_str(),
           O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC, 0666);
   if (descriptor < 0)
      throw TTextFileError(errno == EACCES ? kStatusAccessDenied : kStatusCannotOpen, path, errno);
   struct stat status = {};
   std::FILE* file = nullptr;
   if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode))
      file = fdopen(descriptor, "w");
   if (file == nullptr) {
      close(descriptor);
      throw TTextFileError(kStatusCannotOpen, path, EINVAL);
   }
   return TFile(file);
}

[[noreturn]] void ReportWriteFailure(const std::string& path)
{
   const int error = errno;
   TRootObject::GetCoreLogger()->Log(NZANQSX20::kLogError, "Cannot write raw data file " + path +
                                                              ": " + std::strerror(error) +
                                                              ". Its text is incomplete.");
   throw TTextFileError(kStatusCannotOpen, path, error);
}

void WriteLines(const std::string& path, const boost::shared_ptr<ICIMInstance>& instance)
{
   TFile file = OpenTextFile(path);
   for (const std::string& line : instance->GetProperty("RawResults", {})->GetValueStrings()) {
      // A failure of any line stays on record in the stream; one test at the end sees it.
      std::fwrite(line.data(), 1, line.size(), file.get());
      std::fputc('\n', file.get());
   }
   const bool failed = std::fflush(file.get()) != 0 || std::ferror(file.get()) != 0;
   if (failed || std::fclose(file.release()) != 0)
      ReportWriteFailure(path);
}

TTableGrid MakeGrid(const TRawDataTable& table, std::size_t commands)
{
   TTableGrid grid;
   grid.fColumnWidths = {kCommandColumnWidth, kResultColumnWidth};
   grid.fTableWidth = kTableWidth;
   grid.fFirstRowIsHeader = true;
   grid.fCells = T2DArray<TTableCell>(commands + 1, 2);
   grid.fRows = static_cast<int>(commands + 1);
   grid.fColumns = 2;
   grid.fCells(0, 0).fText = table.fCommandTitle;
   grid.fCells(0, 1).fText = table.fResultTitle;
   return grid;
}

}  // namespace

TTableGrid WriteRawDataFiles(const std::string& outputDirectory, const TRawDataTable& table,
                             const std::vector<boost::shared_ptr<ICIMInstance>>& instances,
                             const TCommandCell& commandCell)
{
   TTableGrid grid = MakeGrid(table, instances.size());
   for (std::size_t i = 0; i < instances.size(); ++i) {
      const std::string fileName = table.fFileStem + std::to_string(i) + ".txt";
      grid.fCells(i + 1, 0).fText = commandCell(instances[i]);
      grid.fCells(i + 1, 1).fText = "<a href=\"" + fileName + "\">View Results</a>";
      WriteLines(outputDirectory + TOSSpecific::kFileSeparator + fileName, instances[i]);
   }
   return grid;
}

std::string MakeCourierCell(const std::string& text)
{
   return "<font face=\"Courier\">" + text + "</font>";
}
