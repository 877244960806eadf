#include "common/PageNames.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <set>
#include <vector>

namespace {

TEST(PageNames, OrdinaryLinkNamesStayAsTheyAre)
{
   TPageNames names;
   for (const std::string name :
        {"system_overview", "Qlogic", "syslog_boot.log", "lsi_rawData_index"})
      EXPECT_EQ(names.Assign(name), name);
   EXPECT_EQ(names.Assign("fileloader.html"), "fileloader");
}

TEST(PageNames, EveryNameIsSafeAndOfItsOwn)
{
   const std::vector<std::string> linkNames = {"index",
                                               "",
                                               "..",
                                               "../../etc/passwd",
                                               "/etc/passwd",
                                               ".hidden",
                                               "con",
                                               "COM1",
                                               "a",
                                               "A",
                                               "a",
                                               "a-2",
                                               "syslog_a b",
                                               "syslog_a/b",
                                               "a?b",
                                               "a*b",
                                               "x\ny",
                                               std::string("x\0y", 3),
                                               "nul.txt",
                                               "\xD0\xB6\xD1\x83",
                                               "\xFF\xFE",
                                               std::string(5000, 'x'),
                                               std::string(5000, 'x') + "y",
                                               "a~2",
                                               "syslog_\"><b>"};
   TPageNames names;
   TPageNames again;
   names.Reserve("index");
   again.Reserve("index");
   std::set<std::string> folded = {"index"};
   for (const std::string& linkName : linkNames) {
      const std::string name = names.Assign(linkName);
      EXPECT_EQ(name, again.Assign(linkName)) << "the same on every run";
      EXPECT_LE(name.size(), 100u);
      EXPECT_NE(name.substr(0, 1), ".");
      EXPECT_TRUE(std::all_of(name.begin(), name.end(), [](unsigned char c) {
         return std::isalnum(c) || c == '_' || c == '-' || c == '.';
      })) << name;
      std::string lower = name;
      std::transform(lower.begin(), lower.end(), lower.begin(),
                     [](unsigned char c) { return std::tolower(c); });
      EXPECT_TRUE(folded.insert(lower).second) << name;
      EXPECT_TRUE(lower != "con" && lower != "com1" && lower != "nul.txt");
   }
}

}  // namespace
