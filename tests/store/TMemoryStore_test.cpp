#include "store/TMemoryStore.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CIMStore.h"
#include "store/TInstanceDraft.h"
#include "support/TTestStore.h"

using NZANQSX20::EDeclared;
using NZANQSX20::TInstanceDraft;
using NZANQSX20::TMemoryStore;
using NZANQSX20::TSlot;
using NZANQSX20::TStoredClass;
using NZANQSX20::TStoredInstance;
using NZANQSX20::TStoredValue;
using testing::ElementsAre;
using testing::IsEmpty;
using TType = TCIMValue::TCIMType;

namespace {

template <typename TAction>
int GetStatus(TAction action)
{
   try {
      action();
   } catch (const TQSXException& exception) {
      return exception.fStatusCode.fStatusCode;
   }
   return 0;
}

TCIMValue Number(unsigned short number)
{
   return TCIMValue(number);
}

std::string Show(const boost::shared_ptr<ICIMInstance>& instance, const std::string& name)
{
   return instance->GetProperty(name, {})->GetValueString();
}

/// Devices of three classes and two kinds of links between them.
class TMachine : public TTestStore
{
public:
   TMachine()
   {
      AddClass("ZANSG_Device", "", {Key("ID"), Property("Name", TType::kString)});
      AddClass("ZANSG_Disk", "ZANSG_Device", {Property("Size", TType::kUInt32)});
      AddClass("ZANSG_Fan", "ZANSG_Device");
      AddClass("ZANSG_FastDisk", "ZANSG_Disk");
      AddClass("ZANSG_Link", "",
               {Reference("Antecedent", "ZANSG_Device"), Reference("Dependent", "ZANSG_Device")});
      AddClass("ZANSG_DiskLink", "ZANSG_Link", {Reference("Dependent", "ZANSG_Disk")});
   }

   TInstanceHandle Add(const std::string& className, const std::string& id)
   {
      return AddInstance(className, {{"ID", id}});
   }

   TInstanceHandle Link(const std::string& className, const std::string& antecedent,
                        const std::string& dependent)
   {
      return AddInstance(className,
                         {{"Antecedent", PathTo(antecedent)}, {"Dependent", PathTo(dependent)}});
   }
};

}  // namespace

TEST(TSchema, TellsWhichDeclarationHolds)
{
   TTestStore store;
   EXPECT_EQ(EDeclared::kNew, store.AddClass("B", "A", {TTestStore::Key("K")}));
   EXPECT_EQ(EDeclared::kAgain, store.AddClass("B", "", {}));
   ASSERT_EQ(1u, store.GetStore().GetSchema().GetPlaceholders().size());
   EXPECT_EQ(EDeclared::kSuperclassCycle, store.AddClass("A", "B"));
   EXPECT_EQ(EDeclared::kNew, store.AddClass("A", ""));
   EXPECT_THAT(store.GetStore().GetSchema().GetPlaceholders(), IsEmpty());
   EXPECT_EQ(15, GetStatus([&] { store.GetClass("C"); }));
}

TEST(TSchema, ALateSuperclassKeepsTheSlotsOfItsSubclass)
{
   TMemoryStore store;
   store.GetSchema().Declare({"B", "A", {}, {TTestStore::Property("Own", TType::kUInt8)}});
   TStoredClass& subclass = *store.GetSchema().Find("B");
   const TSlot late = subclass.GetSlot("Late");
   EXPECT_EQ(nullptr, subclass.FindProperty(late));
   TInstanceDraft draft(subclass);
   draft.Set(late, store.MakeString("early value"));
   const TStoredInstance& instance = store.Add(draft);

   store.GetSchema().Declare({"A", "", {}, {TTestStore::Property("Late", TType::kString)}});
   ASSERT_NE(nullptr, subclass.FindProperty(late));
   EXPECT_EQ("early value", instance.Find(late)->GetText());
   EXPECT_THAT(subclass.GetDeclaredSlots(), ElementsAre(late, subclass.GetSlot("Own")));
}

TEST(TMemoryStore, EnumeratesItsOwnInstancesThenSubclassesDepthFirst)
{
   TMachine machine;
   machine.Add("ZANSG_Fan", "f");
   machine.Add("ZANSG_FastDisk", "x");
   machine.Add("ZANSG_Disk", "d");
   machine.Add("ZANSG_Device", "o");
   EXPECT_THAT(machine.GetInstances("ZANSG_Device", true),
               ElementsAre("ZANSG_Device.ID=\"o\"", "ZANSG_Disk.ID=\"d\"",
                           "ZANSG_FastDisk.ID=\"x\"", "ZANSG_Fan.ID=\"f\""));
   EXPECT_THAT(machine.GetInstances("ZANSG_Device", false), ElementsAre("ZANSG_Device.ID=\"o\""));
   EXPECT_THAT(machine.GetSubclasses("ZANSG_Device", true),
               ElementsAre("ZANSG_Disk", "ZANSG_FastDisk", "ZANSG_Fan"));
   EXPECT_THAT(machine.GetSubclasses("ZANSG_Device", false),
               ElementsAre("ZANSG_Disk", "ZANSG_Fan"));
   EXPECT_THAT(machine.GetInstances("ZANSG_Link", true), IsEmpty());
}

TEST(TMemoryStore, ReadsPropertiesThroughInstanceDefaultAndNull)
{
   TTestStore store;
   NZANQSX20::TPropertyDecl size = TTestStore::Property("Size", TType::kUInt32);
   size.fDefault = TCIMValue::Unsigned(TType::kUInt32, 7);
   store.AddClass("A", "", {TTestStore::Property("First", TType::kString), size});
   store.AddClass(
      "B", "A",
      {TTestStore::Property("Own", TType::kString), TTestStore::Property("First", TType::kString)});
   const auto instance = store.AddInstance("B", {{"Extra2", "y"}, {"Own", "o"}, {"Extra1", "x"}});
   EXPECT_EQ("7", Show(instance, "Size"));
   EXPECT_FALSE(instance->GetProperty("First", {})->HasValue());
   EXPECT_EQ(15, GetStatus([&] { instance->GetProperty("Absent", {}); }));
   EXPECT_THAT(TTestStore::GetPropertyNames(instance),
               ElementsAre("First", "Size", "Own", "Extra2", "Extra1"));

   instance->SetProperty("Size", TCIMValue(), {});
   EXPECT_TRUE(instance->GetProperty("Size", {})->GetValue({}).IsNull());
   EXPECT_EQ(TType::kUInt32, instance->GetProperty("Size", {})->GetType({}));
   instance->SetProperty("Size", Number(9), {});
   EXPECT_EQ(TType::kUInt32, instance->GetProperty("Size", {})->GetValue({}).GetType());

   bool found = true;
   const auto decl = instance->GetProperty("Extra1", {})->GetDecl({});
   EXPECT_EQ(15, GetStatus([&] { decl->GetQualifier("Key", found, {}); }));
   EXPECT_FALSE(found);
}

TEST(TMemoryStore, ChangesAreSeenByEveryLaterRead)
{
   TMachine machine;
   const auto disk = machine.GetClass("ZANSG_Disk")->CreateInstance({});
   disk->SetProperty("ID", "d", {});
   EXPECT_THAT(machine.GetInstances("ZANSG_Disk", false), IsEmpty());
   disk->Save({});
   disk->Save({});
   EXPECT_THAT(machine.GetInstances("ZANSG_Disk", false), ElementsAre("ZANSG_Disk.ID=\"d\""));

   const auto reader = machine.FindInstance("ZANSG_Disk.ID=\"d\"")->GetProperty("Name", {});
   const TCIMValue& value = reader->GetValue({});
   disk->GetProperty("Name", {})->SetValue("renamed", {});
   EXPECT_EQ("renamed", reader->GetValueString());
   EXPECT_EQ("renamed", reader->GetValue({}).ToString(10));
   EXPECT_EQ("renamed", value.ToString(10));

   disk->SetProperty("ID", "e", {});
   EXPECT_FALSE(machine.FindInstance("ZANSG_Disk.ID=\"d\""));
   disk->Delete({});
   EXPECT_FALSE(machine.FindInstance("ZANSG_Disk.ID=\"e\""));
   EXPECT_THAT(machine.GetInstances("ZANSG_Disk", false), IsEmpty());
   EXPECT_EQ("renamed", Show(disk, "Name"));
   disk->Save({});
   EXPECT_THAT(machine.GetInstances("ZANSG_Disk", false), ElementsAre("ZANSG_Disk.ID=\"e\""));
}

TEST(TMemoryStore, LooksPathsUpInTheClassThenInItsSubclasses)
{
   TMachine machine;
   machine.Add("ZANSG_FastDisk", "a");
   const auto path = [&](const std::string& text) {
      const auto found = machine.FindInstance(text);
      return found ? found->GetReference({}).GetPath() : "nothing";
   };
   EXPECT_EQ("ZANSG_FastDisk.ID=\"a\"", path("//h/n:ZANSG_Device.ID=\"a\""));
   machine.Add("ZANSG_Disk", "a");
   EXPECT_EQ("ZANSG_Disk.ID=\"a\"", path("ZANSG_Device.ID=\"a\""));
   EXPECT_EQ("nothing", path("ZANSG_Fan.ID=\"a\""));
   EXPECT_EQ("nothing", path("ZANSG_Absent.ID=\"a\""));
   EXPECT_EQ("nothing", path("ZANSG_Disk.ID=\"a\",Name=\"a\""));
   // The key is a text: sources that write it as a number mean the same instance.
   machine.Add("ZANSG_Fan", "5");
   EXPECT_EQ("ZANSG_Fan.ID=\"5\"", path("ZANSG_Fan.ID=5"));

   machine.AddClass("ZANSG_Plain", "");
   machine.AddInstance("ZANSG_Plain", {})->Delete({});
   machine.AddInstance("ZANSG_Plain", {});
   EXPECT_EQ("nothing", path("ZANSG_Plain.@=0"));
   EXPECT_EQ("ZANSG_Plain.@=1", path("ZANSG_Plain.@=1"));
}

TEST(TMemoryStore, TheFirstOfTwoInstancesAnswersToThePath)
{
   TMachine machine;
   const auto first = machine.AddInstance("ZANSG_Fan", {{"ID", "a"}, {"Name", "first"}});
   machine.AddInstance("ZANSG_Fan", {{"ID", "a"}, {"Name", "second"}});
   machine.Add("ZANSG_Disk", "d");
   const auto duplicates = machine.GetStore().FindDuplicatePaths();
   ASSERT_EQ(1u, duplicates.size());
   EXPECT_EQ("ZANSG_Fan.ID=\"a\"", duplicates[0].fPath);

   EXPECT_EQ(2u, machine.GetInstances("ZANSG_Fan", false).size());
   EXPECT_EQ("first", Show(machine.FindInstance("ZANSG_Fan.ID=\"a\""), "Name"));
   first->Delete({});
   EXPECT_EQ("second", Show(machine.FindInstance("ZANSG_Fan.ID=\"a\""), "Name"));
   EXPECT_THAT(machine.GetStore().FindDuplicatePaths(), IsEmpty());
}

TEST(TMemoryStore, ManyInstancesOfOnePathCostNoMoreThanManyPaths)
{
   TMachine machine;
   TMemoryStore& store = machine.GetStore();
   TInstanceDraft draft(*store.GetSchema().Find("ZANSG_Fan"));
   constexpr int kCount = 50000;
   for (int i = 0; i < kCount; ++i)
      store.Add(draft);
   // Each deletion makes the next one answer; a walk over the rest each time would take minutes.
   for (int i = 0; i < kCount - 1; ++i)
      store.Delete(*store.FindByPath("ZANSG_Fan.ID=NULL"));
   EXPECT_EQ(1u, store.CountInstances());
   EXPECT_NE(nullptr, store.FindByPath("ZANSG_Device.ID=NULL"));
}

TEST(TMemoryStore, WalksAssociationsWithTheirFilters)
{
   TMachine machine;
   const auto fan = machine.Add("ZANSG_Fan", "f");
   machine.Add("ZANSG_Disk", "d");
   machine.Add("ZANSG_FastDisk", "x");
   machine.Link("ZANSG_DiskLink", "ZANSG_Fan.ID=\"f\"", "ZANSG_Disk.ID=\"x\"");
   machine.Link("ZANSG_Link", "ZANSG_Disk.ID=\"d\"", "ZANSG_Fan.ID=\"f\"");
   machine.Link("ZANSG_Link", "ZANSG_Fan.ID=\"f\"", "ZANSG_Disk.ID=\"d\"");
   machine.Link("ZANSG_Link", "ZANSG_Fan.ID=\"f\"", "ZANSG_Disk.ID=\"gone\"");
   machine.Link("ZANSG_Link", "ZANSG_Fan.ID=\"f\"", "ZANSG_Fan.ID=\"f\"");
   const std::string fast = "ZANSG_FastDisk.ID=\"x\"";
   const std::string disk = "ZANSG_Disk.ID=\"d\"";
   const std::string self = "ZANSG_Fan.ID=\"f\"";

   EXPECT_THAT(TTestStore::GetAssociators(fan), ElementsAre(fast, disk, self));
   EXPECT_THAT(TTestStore::GetAssociators(fan, "ZANSG_DiskLink"), ElementsAre(fast));
   EXPECT_THAT(TTestStore::GetAssociators(fan, "ZANSG_Link", "ZANSG_Disk"),
               ElementsAre(fast, disk));
   EXPECT_THAT(TTestStore::GetAssociators(fan, "", "ZANSG_Disk", "Dependent"), ElementsAre(disk));
   EXPECT_THAT(TTestStore::GetAssociators(fan, "", "ZANSG_Disk", "", "Antecedent"),
               ElementsAre(disk));
   EXPECT_THAT(TTestStore::GetAssociators(fan, "ZANSG_Absent"), IsEmpty());
   EXPECT_THAT(TTestStore::GetAssociators(fan, "", "ZANSG_Absent"), IsEmpty());

   // An instance that a reference waited for takes its place in the order of the references.
   machine.Add("ZANSG_Disk", "gone");
   EXPECT_THAT(TTestStore::GetAssociators(fan),
               ElementsAre(fast, disk, "ZANSG_Disk.ID=\"gone\"", self));
   machine.FindInstance(disk)->Delete({});
   EXPECT_THAT(TTestStore::GetAssociators(fan), ElementsAre(fast, "ZANSG_Disk.ID=\"gone\"", self));
   const auto link = machine.Link("ZANSG_Link", self, disk);
   EXPECT_EQ(3u, TTestStore::GetAssociators(fan).size());
   machine.Add("ZANSG_Disk", "d");
   EXPECT_THAT(TTestStore::GetAssociators(fan),
               ElementsAre(fast, disk, "ZANSG_Disk.ID=\"gone\"", self));
   // A reference that changes leads elsewhere at once.
   link->SetProperty("Antecedent", machine.PathTo(fast), {});
   EXPECT_THAT(TTestStore::GetAssociators(machine.FindInstance(fast)), ElementsAre(self, disk));
}

TEST(TMemoryStore, WalksAssociatedClassesOfAncestorsAndDescendants)
{
   TMachine machine;
   EXPECT_THAT(machine.GetAssociatedClasses("ZANSG_Fan"),
               ElementsAre("ZANSG_Device", "ZANSG_Disk"));
   EXPECT_THAT(machine.GetAssociatedClasses("ZANSG_FastDisk", "ZANSG_DiskLink"),
               ElementsAre("ZANSG_Disk", "ZANSG_Device"));
   EXPECT_THAT(machine.GetAssociatedClasses("ZANSG_Link"), IsEmpty());
}

TEST(TMemoryStore, PathsThatNestInACircleEnd)
{
   TTestStore test;
   NZANQSX20::TPropertyDecl key = TTestStore::Key("Other", TType::kReference);
   key.fReferenceClass = "A";
   test.AddClass("A", "", {key});
   TMemoryStore& store = test.GetStore();
   TStoredClass& circle = *store.GetSchema().Find("A");
   TInstanceDraft draft(circle);
   TStoredInstance& first = store.Add(draft);
   draft.Set(circle.GetSlot("Other"), store.MakeReference(first));
   TStoredInstance& second = store.Add(draft);
   store.Set(first, circle.GetSlot("Other"), store.MakeReference(second));

   EXPECT_EQ(0u, store.GetPath(first).find("A.Other=\"A.Other="));
   EXPECT_EQ(&first, store.FindByPath(store.GetPath(first)));
   EXPECT_EQ(&second, store.Resolve(*first.Find(circle.GetSlot("Other"))));
   EXPECT_THAT(TTestStore::GetAssociators(test.FindInstance(store.GetPath(first))), IsEmpty());
}
