#include <cstdint>
#include <string>

#include "TCollected.h"
#include "machine/TMachine.h"
#include "subjects/KernelModules.h"
#include "subjects/Subjects.h"
#include "text/Text.h"

namespace NZANQSX20 {

namespace {

constexpr const char* kFolder = "/sys/bus/usb/devices/";
constexpr const char* kClassHub = "09";

void AddHub(const TMachine& machine, TCollected& collected, const std::string& name,
            const std::string& product)
{
   collected.Add("ZANSG_USBHub")
      .Set("DeviceID", name)
      .Set("Description", product.empty() ? "USB hub " + name : product)
      .Set("NumberOfPorts", machine.ReadNumber(kFolder + name + "/maxchild"));
}

void AddDevice(const TMachine& machine, TCollected& collected, const std::string& name,
               const std::string& product)
{
   const std::string folder = kFolder + name;
   const std::string vendor = machine.ReadLine(folder + "/idVendor");
   const std::string model = machine.ReadLine(folder + "/idProduct");
   const std::string manufacturer = machine.ReadLine(folder + "/manufacturer");
   const std::string speed = machine.ReadLine(folder + "/speed");
   const std::string description = product.empty() ? "USB device " + vendor + ':' + model : product;
   collected.Add("ZANSG_USBDevice")
      .Set("DeviceID", name)
      .Set("VendorId", vendor)
      .Set("USBDeviceId", model)
      .Set("Manufacturer", manufacturer)
      .Set("Description", description)
      .Set("Speed", speed.empty() ? speed : speed + " Mb/s");
   TEntry device = collected.Add("ZANSG_LogicalDevice");
   device.Set("DeviceID", name)
      .Set("DeviceClass", "USB")
      .Set("ElementName", description)
      .Set("Manufacturer", manufacturer)
      .Set("SerialNumber", machine.ReadLine(folder + "/serial"))
      .Set("Location", "USB " + name);
   // Drivers take the interfaces of a device, the folders "1-2:1.0" in it.
   for (const std::string& part : machine.List(folder))
      if (StartsWith(part, name + ':'))
         AssociateModule(machine, collected, device, folder + '/' + part);
}

}  // namespace

/// A machine without the bus has nothing that could be missing.
void CollectUSB(const TMachine& machine, TCollected& collected)
{
   for (const std::string& name : machine.List(kFolder)) {
      const std::string folder = kFolder + name;
      // The other folders are the interfaces of a device.
      if (!machine.Exists(folder + "/idVendor"))
         continue;
      const std::string product = machine.ReadLine(folder + "/product");
      if (machine.ReadLine(folder + "/bDeviceClass") == kClassHub)
         AddHub(machine, collected, name, product);
      else
         AddDevice(machine, collected, name, product);
   }
}

}  // namespace NZANQSX20
