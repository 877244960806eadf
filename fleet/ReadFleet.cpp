#include "ReadFleet.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

#include "ReadManifest.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* kManifest = "manifest.json";
constexpr std::size_t kDeepest = 16;

class TFleetReader
{
public:
   TFleetReader(const std::string& folder, const std::vector<TFleetFormat>& formats,
                const std::function<void(const std::string& place)>& onRead)
      : fFolder(folder), fFormats(formats), fOnRead(onRead)
   {}

   TFleet Read()
   {
      fFleet.fName = fs::canonical(fFolder).filename().string();
      ReadFolders(ListFolders(fFolder), "", 1);
      return std::move(fFleet);
   }

private:
   /// The names of the folders in it, in byte order.
   static std::vector<std::string> ListFolders(const fs::path& folder)
   {
      std::vector<std::string> names;
      for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
         std::error_code ignored;
         const std::string name = entry.path().filename().string();
         if (name.front() != '.' && fs::is_directory(entry.symlink_status(ignored)))
            names.push_back(name);
      }
      std::sort(names.begin(), names.end());
      return names;
   }

   bool HasManifest(const std::string& place) const
   {
      std::error_code ignored;
      return fs::exists(fs::symlink_status(fFolder / place / kManifest, ignored));
   }

   void ReadFolders(const std::vector<std::string>& names, const std::string& above,
                    std::size_t depth)
   {
      const std::set<std::string> further = FindFurtherFormats(names, above);
      for (const std::string& name : names) {
         const std::string place = above + name;
         if (further.count(name) > 0)
            continue;
         if (HasManifest(place))
            ReadReport(place, above);
         else if (depth == kDeepest)
            AddGap(place, "lies too deep to be looked into");
         else
            Descend(place, depth + 1);
      }
   }

   /// A folder that can't be read costs what is below it.
   void Descend(const std::string& place, std::size_t depth)
   {
      std::vector<std::string> names;
      try {
         names = ListFolders(fFolder / place);
      } catch (const fs::filesystem_error& failure) {
         return AddGap(place, "can't be read: " + failure.code().message());
      }
      ReadFolders(names, place + '/', depth);
   }

   /// The folders of a report's formats behind its first one.
   std::set<std::string> FindFurtherFormats(const std::vector<std::string>& names,
                                            const std::string& above) const
   {
      std::set<std::string> further;
      bool hasFirst = false;
      for (const TFleetFormat& format : fFormats) {
         const bool isThere = std::binary_search(names.begin(), names.end(), format.fName) &&
                              HasManifest(above + format.fName);
         if (isThere && hasFirst)
            further.insert(format.fName);
         hasFirst |= isThere;
      }
      return further;
   }

   void ReadReport(const std::string& place, const std::string& above)
   {
      fOnRead(place);
      try {
         AddMachine(ReadManifest((fFolder / place / kManifest).string()), place, above);
      } catch (const TManifestError& failure) {
         AddGap(place, std::string(kManifest) + ' ' + failure.what());
      }
   }

   void AddMachine(TReadManifest read, const std::string& place, const std::string& above)
   {
      TFleetMachine& machine = fFleet.fMachines.emplace_back(std::move(read.fMachine));
      machine.fPlace = place;
      machine.fEntry = FindEntry(place);
      if (machine.fName.empty())
         machine.fName = place.substr(above.size());
      for (const TReadManifest::TLevel& level : read.fFirmware) {
         const auto number = fFleet.fFirmware.Find(machine.fModel, level.fName, level.fVersion);
         if (number != TFirmwareLevels::kNone)
            machine.fLevels.push_back(number);
      }
      std::sort(machine.fLevels.begin(), machine.fLevels.end());
      machine.fLevels.erase(std::unique(machine.fLevels.begin(), machine.fLevels.end()),
                            machine.fLevels.end());
      machine.fLevels.shrink_to_fit();
   }

   std::string FindEntry(const std::string& place) const
   {
      std::error_code ignored;
      for (const TFleetFormat& format : fFormats)
         if (fs::is_regular_file(fFolder / place / format.fEntry, ignored))
            return format.fEntry;
      return kManifest;
   }

   void AddGap(const std::string& place, const std::string& reason)
   {
      fFleet.fGaps.push_back({place, reason});
   }

   const fs::path fFolder;
   const std::vector<TFleetFormat>& fFormats;
   const std::function<void(const std::string& place)>& fOnRead;
   TFleet fFleet;
};

}  // namespace

TFleet ReadFleet(const std::string& folder, const std::vector<TFleetFormat>& formats,
                 const std::function<void(const std::string& place)>& onRead)
{
   return TFleetReader(folder, formats, onRead).Read();
}
