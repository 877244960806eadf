#include "DataFolder.h"

#include <filesystem>
#include <system_error>

std::string GetDataFolder()
{
   namespace fs = std::filesystem;
   std::error_code error;
   const fs::path program = fs::read_symlink("/proc/self/exe", error);
   if (!error) {
      const fs::path beside = program.parent_path().parent_path() / "share" / "qsxreport";
      if (fs::is_directory(beside, error))
         return beside.string();
   }
   return QSX_DATA_DIR;
}
