#pragma once

#include <gmock/gmock.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// Runs the built program in a folder of its own.
class TToolTest : public testing::Test
{
protected:
   struct TResult
   {
      int fExitCode;
      std::string fOutput;
      std::string fError;
   };

   TToolTest() : fFolder(mkdtemp((testing::TempDir() + "toolXXXXXX").data())) {}

   ~TToolTest() override { std::filesystem::remove_all(fFolder); }

   /// The arguments as a shell reads them, and what the shell does first.
   TResult Run(const std::string& arguments, const std::string& before = "")
   {
      return RunShell(before + " '" QSX_TOOL "' " + arguments);
   }

   /// A shell script in the folder. An exit by a signal is 128 and its number.
   TResult RunShell(const std::string& script)
   {
      const std::string command = "cd '" + fFolder + "' && { " + script + "\n} >'" + fFolder +
                                  ".out' 2>'" + fFolder + ".err'";
      const int status = std::system(command.c_str());
      TResult result;
      result.fExitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
      result.fOutput = ReadAndRemove(fFolder + ".out");
      result.fError = ReadAndRemove(fFolder + ".err");
      return result;
   }

   void Write(const std::string& name, const std::string& text)
   {
      std::ofstream(fFolder + '/' + name) << text;
   }

   std::string Read(const std::string& name) const
   {
      std::stringstream text;
      text << std::ifstream(fFolder + '/' + name).rdbuf();
      return text.str();
   }

   /// The names in the folder, hidden ones included, in byte order with a blank between them.
   std::string List(const std::string& name = "") const
   {
      std::vector<std::string> names;
      for (const auto& entry : std::filesystem::directory_iterator(fFolder + '/' + name))
         names.push_back(entry.path().filename());
      std::sort(names.begin(), names.end());
      std::string list;
      for (const std::string& found : names)
         list += (list.empty() ? "" : " ") + found;
      return list;
   }

   const std::string fFolder;

private:
   static std::string ReadAndRemove(const std::string& path)
   {
      std::stringstream text;
      text << std::ifstream(path).rdbuf();
      std::filesystem::remove(path);
      return text.str();
   }
};
