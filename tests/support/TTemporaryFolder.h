#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

/// A folder of a test's own, gone with this object.
class TTemporaryFolder
{
public:
   TTemporaryFolder()
   {
      std::string pattern = std::filesystem::temp_directory_path() / "qsxreport-XXXXXX";
      fPath = mkdtemp(pattern.data());
   }

   TTemporaryFolder(const TTemporaryFolder&) = delete;
   TTemporaryFolder& operator=(const TTemporaryFolder&) = delete;

   ~TTemporaryFolder() { std::filesystem::remove_all(fPath); }

   const std::string& GetPath() const { return fPath; }

   std::string GetPath(const std::string& file) const { return fPath + "/" + file; }

   /// Missing: the empty text.
   std::string Read(const std::string& file) const
   {
      std::ifstream stream(GetPath(file), std::ios::binary);
      return {std::istreambuf_iterator<char>(stream), {}};
   }

private:
   std::string fPath;
};
