#include "comparison/TDeltaRepository.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CIMStore.h"
#include "support/MakeStore.h"

namespace NZANQSX20 {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;

using TInstances = std::vector<boost::shared_ptr<ICIMInstance>>;
using TLines = std::vector<std::string>;

TInstances ReadInstances(const boost::shared_ptr<ICIMNamespace>& ns, const std::string& name,
                         unsigned short index = 0)
{
   const TContext context = {{"nsIndex", TCIMValue(index)}};
   TInstances instances;
   ns->GetClass(name, context)
      ->EnumerateInstances(TAddToVectorCallback<ICIMInstance>(instances), false, context);
   return instances;
}

/// Collections compared, each a MOF text, the base first.
class TCompared
{
public:
   explicit TCompared(const TLines& texts, const TLines& ignored = {}) : fRepository(Read(texts))
   {
      TIgnoredProperties names;
      for (const std::string& name : ignored)
         names.Add(name);
      fCount = fRepository.FindDifferences(names);
      fUnknown = names.FindUnknown(fRepository.GetSchema().GetClasses());
      fNamespace = fRepository.Open();
   }

   /// With the findings of another text.
   TCompared(const TLines& texts, const std::string& findings, bool isStrict)
      : fRepository(Read(texts))
   {
      fCount = fRepository.TakeFindings(*MakeStore(findings), isStrict, fWarnings);
      fNamespace = fRepository.Open();
   }

   /// A line per finding: type, path, property, namespaces.
   TLines GetFindings() const
   {
      TLines lines;
      for (const auto& finding : ReadInstances(fNamespace, kDeltaName)) {
         std::string line;
         for (const char* name : {"Type", "InstanceName", "Property", "NamespaceIndices"}) {
            const std::string text = finding->GetProperty(name, {})->GetValue({}).ToString(10);
            line += (line.empty() || text.empty() ? "" : " ") + text;
         }
         lines.push_back(line);
      }
      return lines;
   }

   std::size_t fCount = 0;
   TLines fWarnings;
   TLines fUnknown;
   boost::shared_ptr<ICIMNamespace> fNamespace;

private:
   static std::vector<boost::shared_ptr<TMemoryStore>> Read(const TLines& texts)
   {
      std::vector<boost::shared_ptr<TMemoryStore>> stores;
      for (const std::string& text : texts)
         stores.push_back(MakeStore(text));
      return stores;
   }

   TDeltaRepository fRepository;
};

const std::string kDisk = R"(
   class Disk { [Key] string N; uint32 Size; string Text = "d"; [Volatile] uint32 Load; };
   class Slow : Disk { uint32 Speed; };
)";

std::string Disk(const std::string& name, const std::string& values = "")
{
   return "instance of Disk { N = \"" + name + "\"; " + values + " };\n";
}

std::string Slow(const std::string& values)
{
   return "instance of Slow { N = \"s\"; " + values + " };\n";
}

}  // namespace

TEST(TDeltaRepository, FindsWhatDiffers)
{
   const struct
   {
      const char* fReason;
      TLines fCollections;
      TLines fIgnored;
      TLines fFindings;
   } cases[] = {
      {"with itself", {Disk("a", "Size = 1;"), Disk("a", "Size = 1;")}, {}, {}},
      {"the base in its order, then the others'",
       {Disk("b") + Disk("a"), Disk("d") + Disk("c"), Disk("c") + Disk("b")},
       {},
       {"1 Disk.N=\"b\" 1", "1 Disk.N=\"a\" 1,2", "2 Disk.N=\"d\" 1", "2 Disk.N=\"c\" 1,2"}},
      {"properties in order of declaration, with the base ahead of what differs from it",
       {Disk("a", "Text = \"x\"; Size = 1;"), Disk("a", "Text = \"x\"; Size = 2;"),
        Disk("a", "Text = \"y\"; Size = 3;")},
       {},
       {"4 Disk.N=\"a\" Size 0,1,2", "4 Disk.N=\"a\" Text 0,2"}},
      {"missing here and different there",
       {Disk("a", "Size = 1;"), "", Disk("a", "Size = 2;")},
       {},
       {"1 Disk.N=\"a\" 1", "4 Disk.N=\"a\" Size 0,2"}},
      {"the declared default is a value", {Disk("a"), Disk("a", "Text = \"d\";")}, {}, {}},
      {"null is not the default",
       {Disk("a"), Disk("a", "Text = null;")},
       {},
       {"4 Disk.N=\"a\" Text 0,1"}},
      {"of two instances of one path the first",
       {Disk("a", "Size = 1;"), Disk("a", "Size = 1;") + Disk("a", "Size = 2;")},
       {},
       {}},
      {"volatile, in subclasses too",
       {Disk("a", "Load = 1;") + Slow("Load = 1;"), Disk("a", "Load = 2;") + Slow("Load = 2;")},
       {},
       {}},
      {"a bare name in every class",
       {Disk("a", "Size = 1;") + Slow("Size = 1;"), Disk("a", "Size = 2;") + Slow("Size = 2;")},
       {"Size"},
       {}},
      {"a class with its subclasses",
       {Disk("a", "Size = 1;") + Slow("Size = 1; Speed = 1;"),
        Disk("a", "Size = 2;") + Slow("Size = 2; Speed = 2;")},
       {"Disk.Size"},
       {"4 Slow.N=\"s\" Speed 0,1"}},
      {"a subclass without its ancestor",
       {Disk("a", "Size = 1;") + Slow("Size = 1;"), Disk("a", "Size = 2;") + Slow("Size = 2;")},
       {"Slow.Size"},
       {"4 Disk.N=\"a\" Size 0,1"}},
   };

   for (const auto& c : cases) {
      SCOPED_TRACE(c.fReason);
      TLines collections;
      for (const std::string& instances : c.fCollections)
         collections.push_back(kDisk + instances);
      const TCompared compared(collections, c.fIgnored);
      EXPECT_THAT(compared.GetFindings(), ElementsAreArray(c.fFindings));
      EXPECT_EQ(c.fFindings.size(), compared.fCount);
   }
}

TEST(TDeltaRepository, TellsIgnoredNamesThatNoClassHas)
{
   const TCompared compared({kDisk, kDisk},
                            {"Disk.Speed", "Speed", "Slow.Size", "Slow.X", "Tape.Size"});
   EXPECT_THAT(compared.fUnknown, ElementsAre("Slow.X", "Tape.Size"));
}

TEST(TDeltaRepository, AValueOfAnotherTypeDiffers)
{
   const std::string key = "class A { [Key] string N; ";
   EXPECT_THAT(TCompared({key + "uint32 V; }; instance of A { N = \"x\"; V = 1; };",
                          key + "string V; }; instance of A { N = \"x\"; V = \"1\"; };"})
                  .GetFindings(),
               ElementsAre("4 A.N=\"x\" V 0,1"));
}

TEST(TDeltaRepository, LeavesAssociationsOut)
{
   const std::string declarations =
      kDisk + "class On { [Key] Disk ref A; [Key] Disk ref B; }; class Below : On { };" + Disk("a");
   const std::string link =
      "instance of Below { A = \"Disk.N=\\\"a\\\"\"; B = \"Disk.N=\\\"a\\\"\"; };";
   EXPECT_THAT(TCompared({declarations, declarations + link}).GetFindings(), IsEmpty());
}

TEST(TDeltaRepository, EveryClassIsKnownEverywhere)
{
   const TCompared compared(
      {"class Slow : Disk { uint32 Speed; };",
       "class Disk { [Key] string N; string Text = \"second\"; };" + Disk("b"),
       kDisk + "class Last { [Key] string N; }; instance of Last { N = \"z\"; };" + Disk("b")});
   // The base knows Disk as a superclass only: the declaration proper of the second counts, the
   // third's default for Text does not.
   EXPECT_THAT(compared.GetFindings(), ElementsAre("2 Disk.N=\"b\" 1,2", "2 Last.N=\"z\" 2"));
   EXPECT_THAT(ReadInstances(compared.fNamespace, "Last"), IsEmpty());
   EXPECT_EQ(1u, ReadInstances(compared.fNamespace, "Last", 2).size());
   EXPECT_EQ("second", ReadInstances(compared.fNamespace, "Disk", 2)
                          .front()
                          ->GetProperty("Text", {})
                          ->GetValue({})
                          .ToString(10));
}

TEST(TDeltaRepository, LeavesOutFindingsThatTheCollectionsBringAlong)
{
   const std::string finding =
      "class ZANSG_Delta { [Key] uint32 DeltaID; };\n"
      "instance of ZANSG_Delta { DeltaID = 7; };\n";
   const TCompared compared({finding + kDisk + Disk("a"), finding + kDisk});
   EXPECT_THAT(compared.GetFindings(), ElementsAre("1 Disk.N=\"a\" 1"));
   EXPECT_THAT(ReadInstances(compared.fNamespace, kDeltaName, 1), IsEmpty());
}

TEST(TDeltaRepository, AFindingIsOneObjectWhicheverWayItIsMet)
{
   const TCompared compared({kDisk + Disk("a"), kDisk});
   const TInstances findings = ReadInstances(compared.fNamespace, kDeltaName);
   TInstances associated;
   ReadInstances(compared.fNamespace, kDeltaClassName)
      .front()
      ->EnumerateAssociators(TAddToVectorCallback<ICIMInstance>(associated), kDeltaAssociationName,
                             kDeltaName, "", "", {});
   ASSERT_EQ(1u, findings.size());
   EXPECT_EQ(findings, associated);
   EXPECT_EQ(findings, ReadInstances(compared.fNamespace, kDeltaName));
}

namespace {

const std::string kFindings = R"(
   class ZANSG_DeltaClass { [Key] string ClassName; };
   class ZANSG_Delta { [Key] uint32 DeltaID; uint8 Type; string InstanceName; string Property;
                       uint16 NamespaceIndices[]; string Remark = "mine"; };
   class ZANSG_DeltaClassAssocToDelta { [Key] ZANSG_DeltaClass ref Antecedent;
                                        [Key] ZANSG_Delta ref Dependent; };
   instance of ZANSG_DeltaClass as $C { ClassName = "Disk"; };
)";

std::string Finding(const std::string& number, const std::string& values)
{
   return "instance of ZANSG_Delta as $D" + number + " { DeltaID = " + number + "; " + values +
          " };\ninstance of ZANSG_DeltaClassAssocToDelta { Antecedent = $C; Dependent = $D" +
          number + "; };\n";
}

}  // namespace

TEST(TDeltaRepository, TakesFindingsWithTheirDeclarations)
{
   const TCompared compared({kDisk + Disk("a", "Size = 1;"), kDisk + Disk("a", "Size = 1;")},
                            kFindings + Finding("1",
                                                "Type = 4; InstanceName = \"Disk.N=\\\"a\\\"\"; "
                                                "Property = \"Size\"; NamespaceIndices = {0, 1};"),
                            false);
   EXPECT_THAT(compared.GetFindings(), ElementsAre("4 Disk.N=\"a\" Size 0,1"));
   EXPECT_THAT(compared.fWarnings, IsEmpty());
   const auto finding = ReadInstances(compared.fNamespace, kDeltaName).front();
   EXPECT_EQ("mine", finding->GetProperty("Remark", {})->GetValue({}).ToString(10));
   TInstances classes;
   finding->EnumerateAssociators(TAddToVectorCallback<ICIMInstance>(classes), kDeltaAssociationName,
                                 kDeltaClassName, "", "", {});
   EXPECT_EQ(1u, classes.size());
}

TEST(TDeltaRepository, WarnsOfFindingsThatNameWhatIsNotThere)
{
   const struct
   {
      const char* fValues;
      const char* fWarning;
   } cases[] = {
      {"Type = 1; InstanceName = \"Disk.N=\\\"z\\\"\"; NamespaceIndices = {1};",
       "the instance Disk.N=\"z\""},
      {"Type = 1; InstanceName = \"Tape.N=\\\"a\\\"\"; NamespaceIndices = {1};",
       "the class \"Tape\""},
      {"Type = 4; InstanceName = \"Disk.N=\\\"a\\\"\"; Property = \"Speed\"; "
       "NamespaceIndices = {0, 1};",
       "the property \"Speed\""},
      {"Type = 1; InstanceName = \"Disk.N=\\\"a\\\"\"; NamespaceIndices = {1, 2};",
       "namespace 2 of 2"},
      {"Type = 1;", "the class \"\""},
   };

   const TLines collections = {kDisk + Disk("a"), kDisk + Disk("a")};
   for (const auto& c : cases) {
      SCOPED_TRACE(c.fWarning);
      const std::string findings = kFindings + Finding("1", c.fValues);
      const TCompared compared(collections, findings, false);
      EXPECT_THAT(compared.fWarnings, ElementsAre(HasSubstr(c.fWarning)));
      EXPECT_THAT(compared.GetFindings(), IsEmpty());
      EXPECT_EQ(1u, TCompared(collections, findings, true).GetFindings().size());
   }
}

}  // namespace NZANQSX20
