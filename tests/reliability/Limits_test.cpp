#include "cli/TToolRun.h"

using testing::HasSubstr;

class Limits : public TToolTest
{};

TEST_F(Limits, AreHeldAndNamedByTheCommand)
{
   Write("a.mof",
         "class A { [Key] string Name; string T; };\n"
         "class B : A { }; class C : B { };\n"
         "instance of A { Name = \"12345\"; };\n"
         "instance of A { Name = \"2\"; T = \"x\"; };\n");
   Write("array.mof", "class A { uint8 N[] = {1, 2, 3}; };");
   Write("outer.mof", "#pragma include(\"inner.mof\")\n");
   Write("inner.mof", "#pragma include(\"array.mof\")\n");
   Write("deep.xml", "<CIM><DECLARATION><DECLGROUP/></DECLARATION></CIM>");
   RunShell(
      "gzip -kn a.mof; { cat a.mof; head -c 20000000 /dev/zero | tr '\\0' ' '; } | gzip >b.gz");
   const auto size = [this](const char* name) {
      return std::to_string(std::filesystem::file_size(fFolder + "/" + name));
   };

   const struct
   {
      const char* fInput;
      const char* fLimit;
      std::string fAt;
      const char* fError;
   } cases[] = {
      {"a.mof", "file-bytes", size("a.mof"), "expected a file of at most"},
      {"a.mof.gz", "expanded-bytes", size("a.mof"), "bytes once decompressed"},
      {"a.mof", "text-bytes", "5", "bytes in one text"},
      {"a.mof", "name-bytes", "4", "bytes in one name"},
      {"a.mof", "depth", "3", "classes above each other"},
      {"deep.xml", "depth", "3", "elements inside"},
      {"a.mof", "classes", "3", "classes"},
      {"a.mof", "instances", "2", "instances"},
      {"a.mof", "properties", "2", "properties of one class or instance"},
      {"array.mof", "array-items", "3", "items in one array"},
      {"outer.mof", "include-depth", "2", "inside"},
      {"outer.mof", "files", "3", "files"},
   };

   for (const auto& row : cases) {
      SCOPED_TRACE(std::string(row.fInput) + ", " + row.fLimit);
      const std::string command =
         std::string("check --strict ") + row.fInput + " --limit " + row.fLimit + "=";
      const TResult at = Run(command + row.fAt);
      EXPECT_EQ(0, at.fExitCode) << at.fError;
      const TResult past = Run(command + std::to_string(std::stoi(row.fAt) - 1));
      EXPECT_EQ(3, past.fExitCode);
      EXPECT_THAT(past.fError, HasSubstr(row.fError));
   }
   EXPECT_EQ(3, Run("check b.gz").fExitCode);
   EXPECT_EQ(0, Run("check b.gz --limit expansion-ratio=2K").fExitCode);
   for (const char* wrong : {"depth", "depth=", "depth=0", "depth=-1", "depth=3x", "dept=3",
                             "depth=99999999999999999999", "depth=99999999999999G"})
      EXPECT_EQ(2, Run(std::string("check a.mof --limit ") + wrong).fExitCode) << wrong;
}
