#include "store/ChangeRecord.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/MakeStore.h"
#include "writer/StoreWalk.h"

namespace {

using NZANQSX20::DescribeChanges;
using NZANQSX20::TChangeRecord;

constexpr const char* kSlots = R"(
   class ZANSG_SystemSlot {
      [Key] string Tag;
      [ValueMap { "3", "4" }, Values { "Available", "In use" }] uint16 CurrentUsage;
   };
   instance of ZANSG_SystemSlot { Tag = "1"; CurrentUsage = 3; };
   instance of ZANSG_SystemSlot { Tag = "2"; };)";

/// "ZANSG_SystemSlot.Tag="1" CurrentUsage: Available to In use" and the like.
std::vector<std::string> Describe(const NZANQSX20::TMemoryStore& store)
{
   std::vector<std::string> lines;
   for (const TChangeRecord& change : DescribeChanges(store))
      lines.push_back(change.fKind == TChangeRecord::kAdded ? "added " + change.fInstance
                      : change.fKind == TChangeRecord::kRemoved
                         ? "removed " + change.fInstance
                         : change.fInstance + " " + change.fProperty + ": " + change.fFrom +
                              " to " + change.fTo);
   return lines;
}

TEST(ChangeRecord, TellsEachValueOnceFromWhatItWasToWhatItIs)
{
   const auto store = MakeStore(kSlots);
   const auto cimNamespace = NZANQSX20::OpenNamespace(store);
   const auto slots = FindInstances(cimNamespace, "ZANSG_SystemSlot");
   slots[0]->SetProperty("Tag", std::string("9"), {});
   slots[0]->SetProperty("Tag", std::string("1"), {});
   EXPECT_TRUE(DescribeChanges(*store).empty()) << "nobody asked for a record yet";

   store->RecordChanges();
   slots[0]->SetProperty("CurrentUsage", TCIMValue(static_cast<unsigned short>(7)), {});
   slots[0]
      ->GetProperty("CurrentUsage", {})
      ->SetValue(TCIMValue(static_cast<unsigned short>(4)), {});
   slots[1]->SetProperty("CurrentUsage", TCIMValue(static_cast<unsigned short>(4)), {});
   slots[1]->SetProperty("Note", std::string("x"), {});
   slots[1]->SetProperty("Note", std::string(), {});
   EXPECT_THAT(Describe(*store),
               testing::ElementsAre(R"(ZANSG_SystemSlot.Tag="1" CurrentUsage: Available to In use)",
                                    R"(ZANSG_SystemSlot.Tag="2" CurrentUsage:  to In use)"));
}

TEST(ChangeRecord, TellsAWholeInstanceAsOne)
{
   const auto store = MakeStore(kSlots);
   const auto cimNamespace = NZANQSX20::OpenNamespace(store);
   const auto slots = FindInstances(cimNamespace, "ZANSG_SystemSlot");
   store->RecordChanges();
   const auto added = FindClass(cimNamespace, "ZANSG_SystemSlot")->CreateInstance({});
   added->SetProperty("Tag", std::string("3"), {});
   added->Save({});
   added->SetProperty("CurrentUsage", TCIMValue(static_cast<unsigned short>(4)), {});
   slots[0]->SetProperty("CurrentUsage", TCIMValue(static_cast<unsigned short>(4)), {});
   slots[0]->Delete({});
   slots[1]->Delete({});
   slots[1]->Save({});
   EXPECT_THAT(Describe(*store), testing::ElementsAre(R"(added ZANSG_SystemSlot.Tag="3")",
                                                      R"(removed ZANSG_SystemSlot.Tag="1")"));
}

}  // namespace
