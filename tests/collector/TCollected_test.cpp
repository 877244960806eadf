#include "TCollected.h"

#include <stdexcept>

#include <gtest/gtest.h>

using namespace NZANQSX20;

namespace {

TEST(TCollected, RefusesWhatTheSchemaDoesNotDeclare)
{
   TCollected collected;
   EXPECT_THROW(collected.Add("ZANSG_Unknown"), std::logic_error);
   EXPECT_THROW(collected.Add("ZANSG_ComputerSystem").Set("Unknown", "x"), std::logic_error);
   EXPECT_THROW(collected.Add("ZANSG_ComputerSystem").Set("Name", 1), std::logic_error);
   EXPECT_THROW(collected.Add("QSX_NotCollected").Set("Classes", "x"), std::logic_error);
}

TEST(TCollected, LeavesUnsetWhatIsUnknownOrDoesNotFit)
{
   TCollected collected;
   collected.Add("QSX_NotCollected").Set("Subject", "").Set("Reason", 65536).Set("Reason", -1);
   collected.Add("ZANSG_ComputerSystem").Set("Name", std::string("a\xffz\x01"));
   const auto store = collected.Finish();
   EXPECT_EQ(store->GetPath(*store->GetSchema().Find("QSX_NotCollected")->GetInstances()[0]),
             "QSX_NotCollected.Source=\"\",Subject=\"\"");
   EXPECT_EQ(store->GetPath(*store->GetSchema().Find("ZANSG_ComputerSystem")->GetInstances()[0]),
             "ZANSG_ComputerSystem.Name=\"a\\\\xFFz\\\\x01\"");
}

TEST(TCollected, NamesAGapOnceWithAllItsClasses)
{
   TCollected collected;
   const TReading missing = {"", EReason::kNotPresent, "/sys/x", "No such file", 0};
   EXPECT_FALSE(collected.HasIfPresent(missing, {"Cards", {"ZANSG_Card"}}));
   EXPECT_FALSE(collected.Has(missing, {"Cards", {"ZANSG_Card"}}));
   EXPECT_FALSE(collected.Has(missing, {"Cards", {"ZANSG_ComputerSystem"}}));
   const auto store = collected.Finish();
   const TStoredClass& gaps = *store->GetSchema().Find("QSX_NotCollected");
   ASSERT_EQ(gaps.GetInstances().size(), 1u);
   TSlot slot = 0;
   ASSERT_TRUE(gaps.FindSlot("Classes", slot));
   EXPECT_EQ(gaps.GetInstances()[0]->Find(slot)->GetCount(), 2u);
}

}  // namespace
