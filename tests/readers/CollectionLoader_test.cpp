#include "readers/CollectionLoader.h"

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <zlib.h>
#include <zstd.h>

#include "readers/ExpectedClasses.h"
#include "run/TReport.h"
#include "store/UnknownClass.h"
#include "support/DescribeStore.h"
#include "support/MakeStore.h"
#include "support/TRecordingWriter.h"
#include "support/TTemporaryFolder.h"

namespace NZANQSX20 {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::string kMof = "class A { [Key] string N; }; instance of A { N = \"x\"; };";

std::string Gzip(const std::string& text)
{
   z_stream stream = {};
   deflateInit2(&stream, 9, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY);
   std::string packed(deflateBound(&stream, text.size()), '\0');
   stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(text.data()));
   stream.avail_in = static_cast<uInt>(text.size());
   stream.next_out = reinterpret_cast<Bytef*>(packed.data());
   stream.avail_out = static_cast<uInt>(packed.size());
   deflate(&stream, Z_FINISH);
   packed.resize(stream.total_out);
   deflateEnd(&stream);
   return packed;
}

std::string Zstandard(const std::string& text)
{
   std::string packed(ZSTD_compressBound(text.size()), '\0');
   packed.resize(ZSTD_compress(packed.data(), packed.size(), text.data(), text.size(), 3));
   return packed;
}

std::string Utf16(const std::string& ascii)
{
   std::string wide = "\xFF\xFE";
   for (const char letter : ascii)
      wide += {letter, '\0'};
   return wide;
}

void Write(const TTemporaryFolder& folder, const std::string& file, const std::string& content)
{
   std::filesystem::create_directories(std::filesystem::path(folder.GetPath(file)).parent_path());
   std::ofstream(folder.GetPath(file), std::ios::binary) << content;
}

/// The message of the error that loading ends with, the folder's own path left out.
std::string GetError(const TTemporaryFolder& folder, const std::string& file,
                     const TReadLimits& limits = {})
{
   try {
      LoadCollection({folder.GetPath(file)}, limits);
      return {};
   } catch (const TReadError& error) {
      std::string text = error.what();
      for (std::size_t found; (found = text.find(folder.GetPath() + "/")) != std::string::npos;)
         text.erase(found, folder.GetPath().size() + 1);
      return text;
   }
}

TEST(CollectionLoader, TellsTheFormatFromTheContent)
{
   const std::string xml =
      "<CIM><DECLARATION><CLASS NAME=\"A\"><PROPERTY NAME=\"N\" TYPE=\"string\">"
      "<QUALIFIER NAME=\"Key\" TYPE=\"boolean\"/></PROPERTY></CLASS><INSTANCE CLASSNAME=\"A\">"
      "<PROPERTY NAME=\"N\" "
      "TYPE=\"string\"><VALUE>x</VALUE></PROPERTY></INSTANCE></DECLARATION></CIM>";

   const struct
   {
      std::string fContent;
      const char* fFormat;
      const char* fCompression;
   } cases[] = {
      {kMof, "MOF", ""},
      {"\xEF\xBB\xBF" + kMof, "MOF", ""},
      {Utf16(kMof), "MOF", ""},
      {Gzip(kMof), "MOF", "gzip"},
      {Gzip(kMof.substr(0, 9)) + Gzip(kMof.substr(9)), "MOF", "gzip"},
      {Zstandard(kMof.substr(0, 9)) + Zstandard(kMof.substr(9)), "MOF", "Zstandard"},
      {"\xEF\xBB\xBF\n " + xml, "CIM-XML", ""},
      {Utf16(xml), "CIM-XML", ""},
      {Gzip(xml), "CIM-XML", "gzip"},
      {Zstandard(xml), "CIM-XML", "Zstandard"},
   };

   const std::string expected = DescribeStore(MakeStore(kMof));
   const TTemporaryFolder folder;
   for (const auto& each : cases) {
      Write(folder, "a.dat", each.fContent);
      const TCollection collection = LoadCollection({folder.GetPath("a.dat")});
      EXPECT_EQ(DescribeStore(collection.fStore), expected) << each.fFormat << each.fCompression;
      EXPECT_STREQ(collection.fFiles.front().fFormat, each.fFormat);
      EXPECT_STREQ(collection.fFiles.front().fCompression, each.fCompression);
      EXPECT_EQ(collection.fFiles.front().fInstances, 1U);
   }
}

TEST(CollectionLoader, RefusesDamagedAndHostileFiles)
{
   const std::string large(40'000'000, ' ');
   TReadLimits small;
   small.fExpandedBytes = 99;
   small.fFileBytes = 50;
   const TReadLimits normal;

   const struct
   {
      std::string fContent;
      const TReadLimits& fLimits;
      const char* fError;
   } cases[] = {
      {Gzip(kMof).substr(0, 40), normal,
       "a: is cut off: expected more gzip data, found the end of the file"},
      {Zstandard(kMof).substr(0, 40), normal, "a: is cut off: expected more Zstandard data, found"},
      {Gzip(kMof) + "junk", normal, "a: is no valid gzip file: incorrect header check"},
      {Zstandard(kMof) + "junk", normal, "a: is no valid Zstandard file: Unknown frame descriptor"},
      {"\x1F\x8B" + kMof, normal, "a: is no valid gzip file: "},
      {Gzip(large), normal,
       "a: expected at most 250 decompressed bytes for each compressed one, found more"},
      {Zstandard(large), normal,
       "a: expected at most 250 decompressed bytes for each compressed one, found more"},
      {Gzip(std::string(100, ' ')), small,
       "a: expected at most 99 bytes once decompressed, found more"},
      {kMof, small, "a: expected a file of at most 50 bytes, found more"},
      {Utf16(kMof) + "\x01", normal, "a: expected UTF-16, found none at byte 114"},
      {kMof.substr(0, 50), normal,
       "a:1:50: expected '\"' at the end of the text that begins here, found the end"},
      {std::string("MZ\0\1", 4), normal,
       "a:1:1: expected 'class', 'instance of', 'qualifier' or '#pragma', found 'MZ'"},
   };

   const TTemporaryFolder folder;
   for (const auto& each : cases) {
      Write(folder, "a", each.fContent);
      EXPECT_THAT(GetError(folder, "a", each.fLimits), HasSubstr(each.fError));
   }
   EXPECT_EQ(GetError(folder, "b"), "b: cannot be opened: No such file or directory");
   // Nothing of it is stored, and nothing is read.
   std::filesystem::resize_file(folder.GetPath("a"), std::uintmax_t{1} << 40);
   EXPECT_EQ(GetError(folder, "a"), "a: expected a file of at most 4294967296 bytes, found more");
}

TEST(CollectionLoader, WarnsOfACollectionOfNothing)
{
   const TTemporaryFolder folder;
   Write(folder, "above/below/a.mof", kMof);
   Write(folder, "comment.mof", "// nothing");
   for (const char* name : {"above", "comment.mof"})
      EXPECT_THAT(LoadCollection({folder.GetPath(name)}).fWarnings,
                  ElementsAre(HasSubstr(std::string(name) +
                                        ": warning: it holds no class and no instance")));
}

TEST(CollectionLoader, FolderIsOneNamespaceInByteOrderOfNames)
{
   const TTemporaryFolder folder;
   Write(folder, "b.mof", "instance of A { N = \"b\"; }; instance of A { N = \"b\"; };");
   Write(folder, "B.xml.gz",
         Gzip("<CIM><DECLARATION><INSTANCE CLASSNAME='A'><PROPERTY NAME='N' "
              "TYPE='string'><VALUE>B</VALUE></PROPERTY></INSTANCE></DECLARATION></CIM>"));
   Write(folder, "z.mof", "class A { [Key] string N; };");
   Write(folder, "below/c.mof", "no collection");
   ::mkfifo(folder.GetPath("a.fifo").c_str(), 0600);
   const TCollection collection = LoadCollection({folder.GetPath(), folder.GetPath("z.mof")});
   EXPECT_EQ(DescribeInstances(collection.fStore),
             "A.N=\"B\"\n   N 13 {B}\n"
             "A.N=\"b\"\n   N 13 {b}\n"
             "A.N=\"b\"\n   N 13 {b}\n");
   EXPECT_THAT(collection.fWarnings,
               ElementsAre(HasSubstr("several instances of A have one path")));
   EXPECT_EQ(collection.fFiles.size(), 3U);
}

TEST(CollectionLoader, UnreadableFileIsAnErrorWhenNamedAndAWarningInAFolder)
{
   const TTemporaryFolder folder;
   Write(folder, "a", kMof);
   ::chmod(folder.GetPath("a").c_str(), 0);
   ::chmod(folder.GetPath().c_str(), 0755);
   // Nothing is unreadable for root.
   const uid_t user = ::geteuid();
   constexpr uid_t kNobody = 65534;
   ASSERT_EQ(user == 0 ? ::seteuid(kNobody) : 0, 0);
   EXPECT_EQ(GetError(folder, "a"), "a: cannot be opened: Permission denied");
   const std::vector<std::string> warnings = LoadCollection({folder.GetPath()}).fWarnings;
   ASSERT_EQ(::seteuid(user), 0);
   EXPECT_THAT(warnings, ElementsAre(HasSubstr("a: warning: cannot be opened; it is passed over"),
                                     HasSubstr("holds no class")));
}

TEST(CollectionLoader, IncludesStayInsideTheFolderOfTheIncludingFile)
{
   const TTemporaryFolder folder;
   Write(folder, "outside.mof", "class Outside { };");
   Write(folder, "in/deep/b.mof",
         "#pragma include (\"c.mof\")\n#pragma include (\"c.mof\")\nclass B : C { };");
   Write(folder, "in/deep/c.mof", "#pragma include (\"b.mof\") class C { };");
   Write(folder, "in/a.mof", "#pragma include (\"deep/b.mof\") class A : B { };");
   std::filesystem::create_symlink("../outside.mof", folder.GetPath("in/link.mof"));
   std::filesystem::create_directory_symlink("..", folder.GetPath("in/up"));

   const TCollection collection = LoadCollection({folder.GetPath("in/a.mof")});
   EXPECT_EQ(DescribeStore(collection.fStore), "class C\nclass B : C\nclass A : B\n");
   EXPECT_THAT(collection.fWarnings, ElementsAre());

   const char* const outside = "expected a file inside the folder of this one, found ";
   const std::pair<std::string, const char*> cases[] = {
      {"../outside.mof", outside},
      {"deep/../../outside.mof", outside},
      {"link.mof", outside},
      {"up/outside.mof", outside},
      {folder.GetPath("in/a.mof"), outside},
      {"", outside},
      {"deep", "expected a regular file, found "},
      {"deep/b.mof\\x0000", "expected the name of a file, found "},
      {"none.mof", "expected a file that can be included, found 'none.mof': No such file"},
   };
   for (const auto& [name, error] : cases) {
      Write(folder, "in/try.mof", "\n#pragma include (\"" + name + "\")");
      EXPECT_THAT(GetError(folder, "in/try.mof"),
                  HasSubstr(std::string("in/try.mof:2:18: ") + error));
   }
}

TEST(CollectionLoader, IncludesHaveADepth)
{
   const TTemporaryFolder folder;
   for (int level = 0; level < 4; ++level)
      Write(folder, std::to_string(level),
            "#pragma include (\"" + std::to_string(level + 1) + "\")");
   Write(folder, "4", "");
   TReadLimits limits;
   limits.fIncludeDepth = 4;
   EXPECT_EQ(GetError(folder, "0", limits), "");
   limits.fIncludeDepth = 3;
   EXPECT_EQ(GetError(folder, "0", limits),
             "3:1:18: expected at most 3 files inside each other, found more");
   limits.fFiles = 3;
   EXPECT_THAT(GetError(folder, "0", limits), HasSubstr("expected at most 3 files, found more"));
}

TEST(ExpectedClasses, AreAddedOnlyWhereTheCollectionLacksThem)
{
   const auto store = MakeStore("class ZANSG_FRU { string Own; }; class X : CIM_BIOSElement { };");
   const std::vector<std::string> added = DeclareExpectedClasses(*store);
   EXPECT_THAT(added, testing::Contains("CIM_BIOSElement"));
   EXPECT_THAT(added, testing::Not(testing::Contains("ZANSG_FRU")));
   EXPECT_THAT(DescribeStore(store), HasSubstr("class ZANSG_FRU\n   Own 13"));
   EXPECT_TRUE(store->GetSchema().GetPlaceholders().empty());
   EXPECT_TRUE(DeclareExpectedClasses(*store).empty());
}

TEST(ExpectedClasses, SteerToTheSystemsSensorsWhereNothingElseIsToBeShown)
{
   const std::string system =
      "class CIM_NumericSensor { [Key] string Id; };"
      "class ZANSG_Fan : CIM_NumericSensor { };"
      "class ZANSG_SP_NumericSensor { [Key] string Id; };";
   const std::string sensor = "instance of ZANSG_Fan { Id = \"1\"; };";
   const std::string olderSensor = "instance of ZANSG_SP_NumericSensor { Id = \"1\"; };";
   const auto isAdded = [](const std::string& mof) {
      return testing::Value(DeclareExpectedClasses(*MakeStore(mof)),
                            testing::Contains("CIM_StaticIPAssignmentSettingData"));
   };
   EXPECT_TRUE(isAdded(system + sensor));
   EXPECT_FALSE(isAdded(system + sensor + olderSensor));
   EXPECT_FALSE(isAdded(system)) << "the index would claim sensors";
}

TEST(ExpectedClasses, AreNamedAfterARunThatTheirAbsenceEnded)
{
   const std::vector<std::string> expected = DeclareExpectedClasses(*MakeStore(""));
   std::vector<std::string> needed;
   for (const std::string& missing : expected) {
      std::string others;
      for (const std::string& name : expected)
         others += name != missing ? "class " + name + " { };" : "";
      try {
         TRecordingWriter writer;
         TReport(MakeNamespace(others), {}, ".").Write(&writer, {});
      } catch (const TQSXException& failure) {
         const bool isLookUp = missing == "ZANSG_CadenzaDevices";
         EXPECT_EQ(isLookUp ? kStatusNotFound : 1, failure.fStatusCode.fStatusCode);
         EXPECT_EQ(missing, GetUnknownClass());
         needed.push_back(missing);
      }
   }
   // As docs/embedding.md lists them.
   EXPECT_THAT(needed, ElementsAre("ZANSG_FirmwareElement", "CIM_BIOSElement", "ZANSG_PostBIOSVPD",
                                   "ZANSG_DiagnosticVPD", "ZANSG_SPROMFirmwareVPDMain",
                                   "ZANSG_SPROMFirmwareVPDBootROM", "ZANSG_HardwareRevisionLevel",
                                   "ZANSG_FRU", "ZANSG_CadenzaDevices"));
}

}  // namespace

}  // namespace NZANQSX20
