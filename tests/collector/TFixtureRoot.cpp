#include "collector/TFixtureRoot.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "text/Text.h"

namespace fs = std::filesystem;

namespace {

constexpr off_t kEndless = off_t{1} << 40;

std::string Unescape(const std::string& text)
{
   std::string result;
   for (std::size_t at = 0; at < text.size(); ++at) {
      if (text.compare(at, 2, "\\x") == 0) {
         result += static_cast<char>(std::stoi(text.substr(at + 2, 2), nullptr, 16));
         at += 3;
      } else {
         result += text[at];
      }
   }
   return result;
}

void WriteContent(const std::string& path, std::string content)
{
   constexpr std::string_view kNoLineEnd = "\n\\\n";
   if (NZANQSX20::EndsWith(content, kNoLineEnd))
      content.resize(content.size() - kNoLineEnd.size());
   std::ofstream(path, std::ios::binary) << Unescape(content);
}

/// heading: what stands behind "== ".
void MakeEntry(const std::string& root, const std::string& heading, const std::string& content)
{
   const std::size_t end = heading.find(' ');
   const std::string path = root + heading.substr(0, end);
   const std::string kind = end == std::string::npos ? "" : heading.substr(end + 1);
   fs::create_directories(fs::path(path).parent_path());
   if (kind.empty())
      WriteContent(path, content);
   else if (kind.rfind("-> ", 0) == 0)
      fs::create_symlink(kind.substr(3), path);
   else if (kind == "fifo")
      mkfifo(path.c_str(), 0600);
   else if (kind == "folder")
      fs::create_directories(path);
   else if (kind == "sparse") {
      WriteContent(path, "");
      if (truncate(path.c_str(), kEndless) != 0)
         throw std::runtime_error(path + " can't be made that long");
   } else
      throw std::runtime_error("unknown kind of entry: " + heading);
}

}  // namespace

TFixtureRoot::TFixtureRoot(const std::string& text)
{
   std::string folder = (fs::temp_directory_path() / "qsxreport-root-XXXXXX").string();
   if (mkdtemp(folder.data()) == nullptr)
      throw std::runtime_error("no folder for the fixture");
   fPath = folder;
   std::istringstream lines(text);
   std::string line;
   std::string heading;
   std::string content;
   const auto finish = [&] {
      if (!heading.empty())
         MakeEntry(fPath, heading, content);
      content.clear();
   };
   while (std::getline(lines, line)) {
      if (line.rfind("== ", 0) == 0) {
         finish();
         heading = line.substr(3);
      } else
         content += line + '\n';
   }
   finish();
}

TFixtureRoot::~TFixtureRoot()
{
   std::error_code ignored;
   fs::remove_all(fPath, ignored);
}

std::string TFixtureRoot::ReadTree(const std::string& name)
{
   std::ifstream file(std::string(QSX_TREES) + '/' + name + ".tree", std::ios::binary);
   if (!file)
      throw std::runtime_error("no tree " + name);
   std::ostringstream text;
   text << file.rdbuf();
   return text.str();
}
