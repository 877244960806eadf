#include "TMask.h"

#include <gmock/gmock.h>

#include "MaskKey.h"
#include "support/DescribeStore.h"
#include "support/MakeStore.h"

using namespace NZANQSX20;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;

namespace {

constexpr TMaskKey kKey = {1, 2, 3};

constexpr const char* kClasses = R"(
   class T_ComputerSystem { [Key] string Name; string SerialNumber; string UUID; string Domain; };
   class T_Port { [Key] string DeviceID; string PermanentAddress; string IPv4Address[];
      string IPv6Address; string FirmwareVersion; string WorldWideName; };
   class T_On { [Key] T_ComputerSystem ref System; [Key] T_Port ref Port; };
   class T_Account { [Key] string Name; string UserID; };
   class T_Record { [Key] uint32 Number; string Message; string User; uint8 Raw[]; };
)";

struct TMasked
{
   boost::shared_ptr<TMemoryStore> fStore;
   std::string fText;
   std::vector<TMask::TEntry> fEntries;

   std::string FindStandIn(const std::string& original) const
   {
      for (const TMask::TEntry& entry : fEntries)
         if (entry.fOriginal == original)
            return entry.fStandIn;
      return "";
   }
};

TMasked MaskText(const std::string& instances, const std::vector<std::string>& terms = {},
                 const TMaskKey& key = kKey)
{
   TMasked masked;
   masked.fStore = MakeStore(kClasses + instances);
   TMask mask(key, terms);
   mask.Learn(*masked.fStore);
   mask.Apply(*masked.fStore);
   EXPECT_EQ("", mask.FindLeft(*masked.fStore));
   masked.fEntries = mask.GetEntries();
   masked.fText = DescribeInstances(masked.fStore);
   return masked;
}

/// What a message reads once it is masked.
std::string MaskMessage(const std::string& message, const std::string& others = "")
{
   const std::string text =
      MaskText("instance of T_Record { Number = 1; Message = \"" + message + "\"; };" + others)
         .fText;
   const std::size_t start = text.find("Message 13 {") + 12;
   return text.substr(start, text.find("}\n", start) - start);
}

}  // namespace

TEST(TMask, ReplacesWhatAPropertyNamesEverywhereSoThatRelationsSurvive)
{
   const TMasked masked = MaskText(R"(
      instance of T_ComputerSystem { Name = "db-brandt.corp.brandt.de"; SerialNumber = "KX83B7104";
         UUID = "6BA7B810-9DAD-11D1-80B4-00C04FD430C8"; };
      instance of T_Port { DeviceID = "eth0"; PermanentAddress = "02005E400A0B"; };
      instance of T_On { System = "T_ComputerSystem.Name=\"db-brandt.corp.brandt.de\"";
         Port = "T_Port.DeviceID=\"eth0\""; };
      instance of T_Account { Name = "CORP\\carla"; };
      instance of T_Record { Number = 1; User = "root"; Message = "DB-BRANDT: eth0 02:00:5e:40:0a:0b up, "
         "login of carla@corp.brandt.de, case KX83B7104/2, uuid 6ba7b8109dad11d180b400c04fd430c8, "
         "iqn.2004-10.de.brandt.corp:x, carlane, by-id/ata-KX83B7104_1"; };
   )");
   for (const char* original :
        {"brandt", "BRANDT", "KX83", "carla@", "carla}", "6ba7", "6BA7", "400a0b", "40:0a:0b"})
      EXPECT_THAT(masked.fText, Not(HasSubstr(original)));
   const std::string host = masked.FindStandIn("db-brandt");
   const std::string domain = masked.FindStandIn("corp.brandt.de");
   const std::string serial = masked.FindStandIn("KX83B7104");
   const std::string user = masked.FindStandIn("carla");
   EXPECT_THAT(host, MatchesRegex("[a-z]{2}-[a-z]{6}"));
   EXPECT_THAT(domain, MatchesRegex("[a-z]{4}\\.[a-z]{6}\\.de"));
   EXPECT_THAT(serial, MatchesRegex("[A-Z]{2}[0-9]{2}[A-Z][0-9]{4}"));
   EXPECT_THAT(masked.fText, HasSubstr("T_ComputerSystem.Name=\"" + host + '.' + domain + "\"\n"));
   EXPECT_THAT(masked.fText, HasSubstr("System 15 {T_ComputerSystem.Name=\"" + host));
   EXPECT_THAT(masked.fText,
               HasSubstr("login of " + user + '@' + domain + ", case " + serial + "/2"));
   EXPECT_THAT(masked.fText, HasSubstr("PermanentAddress 13 {02005E"));
   EXPECT_THAT(masked.fText, HasSubstr("carlane, by-id/ata-" + serial + "_1"));
   EXPECT_THAT(masked.fText, HasSubstr("User 13 {root}"));
}

TEST(TMask, KeepsWhatIdentifiesNobody)
{
   // Message, other instances, as it reads.
   const char* const cases[] = {
      "127.0.0.1 ::1 0.0.0.0 255.255.252.0 224.0.0.251 ff02::fb ff:ff:ff:ff:ff:ff",
      "driver version 4.2.0.1, BIOS: 2.0.3.9, pkg-1.2.3.4-5, 1.2.3.4.5, 10.300.1.1",
      "at 12:34:56 on 0000:3b:00.0, std::vector, 00000000-0000-0000-0000-000000000000",
      "serial To Be Filled By O.E.M., localhost, 4711",
   };
   for (const char* message : cases)
      EXPECT_EQ(message, MaskMessage(message, R"(instance of T_ComputerSystem { Name = "localhost";
                   SerialNumber = "To Be Filled By O.E.M."; };
                   instance of T_Account { Name = "Administrator"; };)"));
   // A version by its property is one everywhere; a short number is one where it names a thing.
   EXPECT_EQ("got 7.0.3.9, 10.9.8 and 4711 times",
             MaskMessage("got 7.0.3.9, 10.9.8 and 4711 times",
                         R"(instance of T_Port { DeviceID = "e"; FirmwareVersion = "7.0.3.9"; };
                            instance of T_ComputerSystem { Name = "x1"; SerialNumber = "4711"; };)"));
}

TEST(TMask, AddressesKeepTheirShapeAndTheirSubnets)
{
   const TMasked masked = MaskText(R"(
      instance of T_Port { DeviceID = "a"; IPv4Address = {"10.20.30.40", "10.20.30.41", "10.20.31.1",
         "10.20.30.0", "192.168.7.9"}; IPv6Address = "fe80::5eff:fe40:0a0b";
         PermanentAddress = "02-00-5E-40-0A-0B"; WorldWideName = "50060160BB201234"; };
      instance of T_Record { Number = 1;
         Message = "peer 10.20.30.40:22, 2001:db8:1:2::9/64 and [2001:db8:1:2:aaaa:bbbb:cccc:dddd], "
         "wwn-0x50060160bb201234"; };
   )");
   const std::string first = masked.FindStandIn("10.20.30.40");
   const std::string network = first.substr(0, first.rfind('.') + 1);
   EXPECT_THAT(first, MatchesRegex("10\\.[0-9]+\\.[0-9]+\\.[0-9]+"));
   EXPECT_THAT(masked.FindStandIn("10.20.30.41"), testing::StartsWith(network));
   EXPECT_EQ(network + "0", masked.FindStandIn("10.20.30.0"));
   EXPECT_THAT(masked.FindStandIn("10.20.31.1"), Not(testing::StartsWith(network)));
   EXPECT_THAT(masked.FindStandIn("192.168.7.9"), testing::StartsWith("192.168."));
   EXPECT_THAT(masked.fText, HasSubstr("peer " + first + ":22, "));

   const std::string mac = masked.FindStandIn("02005e400a0b");
   const std::string last = mac.substr(std::min(mac.find_first_not_of('0', 8), mac.size() - 1));
   EXPECT_EQ("fe80::5eff:fe" + mac.substr(6, 2) + ':' + last,
             masked.FindStandIn("fe80::5eff:fe40:a0b"));
   const std::string global = masked.FindStandIn("2001:db8:1:2::9");
   EXPECT_THAT(global, testing::EndsWith("::9"));
   EXPECT_THAT(masked.FindStandIn("2001:db8:1:2:aaaa:bbbb:cccc:dddd"),
               testing::StartsWith(global.substr(0, global.find("::"))));
   EXPECT_THAT(masked.FindStandIn("50060160bb201234"), testing::StartsWith("5006016"));
   EXPECT_THAT(masked.fText, HasSubstr("wwn-0x" + masked.FindStandIn("50060160bb201234")));
}

TEST(TMask, TermsAreReplacedWhateverTheirCase)
{
   const TMasked masked = MaskText(
      R"(instance of T_Record { Number = 1; Message = "Zander, ZANDER and zander; Zanderer"; };)",
      {"Zander"});
   const std::string term = masked.FindStandIn("zander");
   EXPECT_THAT(masked.fText, HasSubstr(masked.FindStandIn("Zander") + ", "));
   EXPECT_THAT(masked.fText, HasSubstr(" and " + term + "; Zanderer"));
}

TEST(TMask, ShortNamesAreReplacedWhereAPropertyIdentifiesAndAsTermsEverywhere)
{
   const std::string instances = R"(
      instance of T_ComputerSystem { Name = "vm"; };
      instance of T_Port { DeviceID = "e"; };
      instance of T_On { System = "T_ComputerSystem.Name=\"vm\""; Port = "T_Port.DeviceID=\"e\""; };
      instance of T_Account { Name = "VM\\jd"; };
      instance of T_Record { Number = 1; User = "jd@vm"; Message = "vm kernel: up, kvm, vmx, jd"; };)";
   const TMasked masked = MaskText(instances);
   const std::string host = masked.FindStandIn("vm");
   const std::string user = masked.FindStandIn("jd");
   EXPECT_THAT(host, MatchesRegex("[a-z][a-z]"));
   EXPECT_THAT(masked.fText, HasSubstr("Name 13 {" + host + "}"));
   EXPECT_THAT(masked.fText, HasSubstr("Name=\"" + host + "\""));
   EXPECT_THAT(masked.fText, HasSubstr(user + "@" + host));
   EXPECT_THAT(masked.fText, HasSubstr("vm kernel: up, kvm, vmx, jd"));

   const TMasked named = MaskText(instances, {"vm", "jd"});
   EXPECT_THAT(named.fText, HasSubstr(named.FindStandIn("vm") + " kernel: up, kvm, vmx, " +
                                      named.FindStandIn("jd") + "}"));
}

TEST(TMask, MoreShortNamesThanThereAreOfTheirLengthGetLongerStandIns)
{
   std::string accounts;
   for (char name = 'a'; name <= 'z'; ++name)
      accounts += std::string("instance of T_Account { Name = \"") + name + "\"; };";
   const TMasked masked = MaskText(accounts);
   for (char name = 'a'; name <= 'z'; ++name)
      EXPECT_THAT(masked.FindStandIn(std::string(1, name)), MatchesRegex("[a-z][a-z]"));
}

TEST(TMask, BytesThatSpellAnOriginalAreReplacedToo)
{
   const TMasked masked = MaskText(R"(
      instance of T_ComputerSystem { Name = "x1"; SerialNumber = "AB12CD34"; };
      instance of T_Record { Number = 1; Raw = {0, 65, 66, 49, 50, 67, 68, 51, 52, 255}; };)");
   EXPECT_THAT(masked.fText, Not(HasSubstr("65,66,49,50,67,68,51,52")));
   EXPECT_THAT(masked.fText, HasSubstr("Raw 3[] {0,"));
}

TEST(TMask, OneKeyGivesOneStandInAndAnotherKeyAnother)
{
   const std::string first =
      R"(instance of T_ComputerSystem { Name = "dbrandt"; SerialNumber = "AB12CD34"; };)";
   const std::string later = first + R"(instance of T_Account { Name = "carla"; };)";
   EXPECT_EQ(MaskText(first).FindStandIn("dbrandt"), MaskText(later).FindStandIn("dbrandt"));
   EXPECT_NE(MaskText(first).FindStandIn("dbrandt"),
             MaskText(first, {}, {9}).FindStandIn("dbrandt"));

   EXPECT_EQ("AB12CD34\n", FindMachineSecret(*MakeStore(kClasses + later)));
   EXPECT_THAT(FindMachineSecret(*MakeStore(kClasses)), IsEmpty());
   EXPECT_THAT(FindMachineSecret(
                  *MakeStore(kClasses + std::string(R"(instance of T_ComputerSystem { Name = "x";
                  SerialNumber = "To be filled by O.E.M."; UUID = "00000000"; };)"))),
               IsEmpty());
   EXPECT_EQ(DeriveMaskKey("a"), DeriveMaskKey("a"));
   EXPECT_NE(DeriveMaskKey("a"), DeriveMaskKey("b"));
}

TEST(TMask, AnOriginalThatIsLeftIsFound)
{
   const std::string instances = R"(instance of T_ComputerSystem { Name = "dbrandt"; };)";
   const auto store = MakeStore(kClasses + instances);
   TMask mask(kKey, {});
   mask.Learn(*store);
   EXPECT_EQ("T_ComputerSystem.Name", mask.FindLeft(*store));
   const auto reference = MakeStore(kClasses + std::string(R"(instance of T_On {
      System = "T_ComputerSystem.Name=\"dbrandt\""; };)"));
   EXPECT_EQ("T_On.System", mask.FindLeft(*reference));
}
