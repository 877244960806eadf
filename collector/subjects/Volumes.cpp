#include <algorithm>
#include <map>
#include <string>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/Subjects.h"
#include "text/Json.h"

namespace NZANQSX20 {

namespace {

const TNeed kVolumes = {"File systems in use", {"ZANSG_LogicalDisk"}};
const TNeed kRemoteSizes = {"Sizes of file systems of other machines", {"ZANSG_LogicalDisk"}};

/// File systems whose server may be gone; asking for their size could take forever.
constexpr const char* kRemoteTypes =
   "nfs,nfs4,cifs,smb3,smbfs,ceph,glusterfs,fuse.glusterfs,fuse.sshfs,afs,9p,ocfs2,gfs2,lustre,"
   "beegfs,fuse.s3fs,ncpfs,davfs";

/// Units: bytes. By the folder that the file system is mounted on.
struct TUse
{
   std::uint64_t fSize = 0;
   std::uint64_t fFree = 0;
};

using TUses = std::map<std::string, TUse>;

bool IsRemote(const std::string& type)
{
   const std::string list = ',' + std::string(kRemoteTypes) + ',';
   return list.find(',' + type + ',') != std::string::npos;
}

TReading RunFindmnt(const TMachine& machine, const std::string& columns, const std::string& types)
{
   std::vector<std::string> arguments = {"-J", "-b", "-l", "--real", "-o", columns};
   if (!types.empty())
      arguments.insert(arguments.end(), {"-t", types});
   // The code says no more than that nothing was found.
   return machine.RunTool("findmnt", arguments, EExit::kAny);
}

void AddUses(const TReading& reading, TUses& uses)
{
   const rapidjson::Document json = ParseJson(reading.fText);
   for (const rapidjson::Value& system : GetElements(GetMember(json, "filesystems"))) {
      const auto size = GetNumber(system, "size");
      const auto free = GetNumber(system, "avail");
      if (size && free)
         uses[GetText(system, "target")] = {*size, *free};
   }
}

void AddVolume(TCollected& collected, const rapidjson::Value& system, const TUses& uses)
{
   constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;
   TEntry volume = collected.Add("ZANSG_LogicalDisk");
   volume.Set("DeviceID", GetText(system, "target"))
      .Set("OtherIdentifyingInfo", GetText(system, "source"))
      .Set("FileSystemName", GetText(system, "fstype"));
   const auto use = uses.find(GetText(system, "target"));
   if (use != uses.end())
      volume.Set("FreeSpace", use->second.fFree / kMegabyte)
         .Set("TotalSpace", use->second.fSize / kMegabyte);
}

}  // namespace

void CollectVolumes(const TMachine& machine, TCollected& collected)
{
   // The names alone come from the kernel's table and wait for no server.
   const TReading reading = RunFindmnt(machine, "TARGET,SOURCE,FSTYPE", {});
   if (!collected.Has(reading, kVolumes))
      return;
   const rapidjson::Document json = ParseJson(reading.fText);
   const auto systems = GetElements(GetMember(json, "filesystems"));
   TUses uses;
   const TReading local =
      RunFindmnt(machine, "TARGET,SIZE,AVAIL", std::string("no") + kRemoteTypes);
   if (collected.Has(local, kVolumes))
      AddUses(local, uses);
   const bool hasRemote = std::any_of(
      systems.begin(), systems.end(),
      [](const rapidjson::Value& system) { return IsRemote(GetText(system, "fstype")); });
   if (hasRemote) {
      const TReading remote = RunFindmnt(machine, "TARGET,SIZE,AVAIL", kRemoteTypes);
      if (collected.Has(remote, kRemoteSizes))
         AddUses(remote, uses);
   }
   for (const rapidjson::Value& system : systems)
      AddVolume(collected, system, uses);
}

}  // namespace NZANQSX20
