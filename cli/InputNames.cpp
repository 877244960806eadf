#include "InputNames.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace fs = std::filesystem;

namespace {

/// The path without links and detours, so that "." has a name.
std::vector<std::string> GetParts(const std::string& path)
{
   if (path == "-")
      return {"standard input"};
   std::error_code error;
   fs::path place = fs::weakly_canonical(fs::absolute(path, error), error);
   if (error)
      place = path;
   std::vector<std::string> parts;
   for (const fs::path& part : place.relative_path())
      parts.push_back(part.string());
   return parts;
}

std::string JoinLast(const std::vector<std::string>& parts, std::size_t count)
{
   std::string name;
   for (std::size_t i = parts.size() - std::min(count, parts.size()); i < parts.size(); ++i)
      name += (name.empty() ? "" : "/") + parts[i];
   return name;
}

}  // namespace

std::vector<std::string> NameInputs(const std::vector<std::string>& paths)
{
   std::vector<std::vector<std::string>> inputs;
   for (const std::string& path : paths)
      inputs.push_back(GetParts(path));
   std::vector<std::string> names;
   for (const auto& parts : inputs) {
      std::size_t count = 1;
      const auto isShared = [&](const std::vector<std::string>& other) {
         return other != parts && JoinLast(other, count) == JoinLast(parts, count);
      };
      while (count < parts.size() && std::any_of(inputs.begin(), inputs.end(), isShared))
         ++count;
      names.push_back(JoinLast(parts, count));
   }
   return names;
}
