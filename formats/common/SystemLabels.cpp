#include "common/SystemLabels.h"

#include <algorithm>

namespace {

bool IsAlone(const std::vector<std::string>& texts, const std::string& text)
{
   return std::count(texts.begin(), texts.end(), text) == 1;
}

}  // namespace

std::string GetFileName(const std::string& path)
{
   const std::size_t end = path.find_last_not_of('/');
   if (end == std::string::npos)
      return path;
   const std::size_t slash = path.find_last_of('/', end);
   const std::size_t begin = slash == std::string::npos ? 0 : slash + 1;
   return path.substr(begin, end + 1 - begin);
}

void MakeLabelsDistinct(std::vector<std::string>& labels, const std::vector<std::string>& files)
{
   std::vector<std::string> names;
   for (const std::string& file : files)
      names.push_back(GetFileName(file));
   const std::vector<std::string> given = labels;
   for (std::size_t i = 0; i < labels.size(); ++i) {
      if (!given[i].empty() && IsAlone(given, given[i]))
         continue;
      std::string name = i < names.size() ? names[i] : "";
      const bool isFileAlone = !name.empty() && IsAlone(files, files[i]);
      if (isFileAlone && !IsAlone(names, name))
         name = files[i];
      if (!isFileAlone)
         name += (name.empty() ? "system " : ", system ") + std::to_string(i + 1);
      labels[i] += labels[i].empty() ? name : " (" + name + ")";
   }
}
