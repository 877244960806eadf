#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

using TLines = std::vector<std::string>;

/// What a run came to.
struct TOutcome
{
   /// Nothing left the run.
   static constexpr int kNone = -2;
   /// An empty handle was used: after a class lookup that gave one, and where a report goes on
   /// without the class that it did not get.
   static constexpr int kAssertion = 1;

   int fStatus = kNone;
   /// What left the run where it was no failure of the store.
   std::string fForeign;
   std::uint64_t fCalls = 0;
   /// The calls on the writer, where it records them.
   TLines fLines;
   /// How many of the lines were there when the first call failed.
   std::size_t fLinesBefore = 0;
   /// What was written, by the name of the page.
   std::map<std::string, std::string> fPages;
   /// In their order: the pages by their names, and the calls that belong to none, under no name.
   std::vector<std::pair<std::string, std::string>> fOutline;
   /// The pages by the last store call that served them.
   std::map<std::uint64_t, std::string> fPageOfCall;
};
