#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace NZANQSX20 {

class TCollected;
class TMachine;

/// A part of a drive with a device of its own.
struct TPartition
{
   /// "sda1"
   std::string fName;
   std::uint64_t fNumber = 0;
   /// Units: bytes.
   std::uint64_t fStart = 0;
   std::uint64_t fSize = 0;
   /// Plain words: "Linux filesystem". Missing: empty.
   std::string fKind;
   /// "0x83", or the name of a type of the other scheme. Missing: empty.
   std::string fTypeCode;
};

/// A block device as the system sees it. Missing texts are empty.
struct TDrive
{
   /// "sda"
   std::string fName;
   std::string fVendor;
   std::string fModel;
   std::string fSerialNumber;
   std::string fFirmware;
   /// "running", "live"
   std::string fState;
   /// "SATA disk", "NVMe drive"
   std::string fKind;
   /// "SCSI 0:0:0:0", "PCI 0000:03:00.0"
   std::string fLocation;
   /// Units: bytes.
   std::uint64_t fSize = 0;
   /// Of the partition table: "gpt", "dos".
   std::string fScheme;
   std::vector<TPartition> fPartitions;

   std::string GetPath() const { return "/dev/" + fName; }
};

/// The drives of the machine, without optical ones, and without what is made of files or memory.
/// Names a gap in the collection when the tool that knows the types of partitions is missing.
std::vector<TDrive> ReadDrives(const TMachine& machine, TCollected& collected);

}  // namespace NZANQSX20
