#pragma once

#include <map>
#include <string>
#include <vector>

#include "CollectMachine.h"
#include "collector/TFixtureRoot.h"
#include "machine/TMachine.h"
#include "support/DescribeStore.h"

/// What is collected below a root tree, by the path of each instance.
///
///    TCollectedTree tree("== /proc/sys/net/ipv4/ip_forward\n1\n");
///    EXPECT_EQ(tree.Get("ZANSG_IPService.Name=\"ip\"", "RoutingEnabled"), "TRUE");
class TCollectedTree
{
public:
   explicit TCollectedTree(const std::string& text)
   {
      const TFixtureRoot root(text);
      const NZANQSX20::TMachine machine(root.GetPath());
      Take(DescribeInstances(NZANQSX20::CollectMachine(machine, {"test"})));
   }

   /// Missing: "no such instance", and an empty text for a null.
   std::string Get(const std::string& path, const std::string& property) const
   {
      const auto instance = fInstances.find(path);
      if (instance == fInstances.end())
         return "no such instance";
      const auto value = instance->second.find(property);
      return value == instance->second.end() ? "" : value->second;
   }

   /// Of all instances of a class, in the order of their paths.
   std::vector<std::string> GetAll(const std::string& className, const std::string& property) const
   {
      std::vector<std::string> values;
      for (const auto& [path, instance] : fInstances)
         if (path.rfind(className + '.', 0) == 0)
            values.push_back(Get(path, property));
      return values;
   }

private:
   /// Lines "Class.Key=..." with lines "   Property 13 {text}" below.
   void Take(const std::string& text)
   {
      std::string path;
      std::size_t end = 0;
      for (std::size_t at = 0; at < text.size(); at = end + 1) {
         end = std::min(text.find('\n', at), text.size());
         const std::string line = text.substr(at, end - at);
         const std::size_t value = line.find('{');
         if (line.rfind("   ", 0) != 0)
            fInstances[path = line];
         else if (value != std::string::npos && line.back() == '}')
            fInstances[path][line.substr(3, line.find(' ', 3) - 3)] =
               line.substr(value + 1, line.size() - value - 2);
      }
   }

   std::map<std::string, std::map<std::string, std::string>> fInstances;
};
