#pragma once

#include <string>
#include <vector>

/// What the head of a report tells about the collected system. Missing: empty texts.
struct TRunFacts
{
   std::string fMachine;
   std::string fProduct;
   std::string fSerialNumber;
   std::string fSystem;
   std::string fKernel;
   std::string fCollected;
   std::string fTimeZone;
   std::string fUpTime;
   std::string fCollectedBy;
   /// In a comparison: a label for each system, the base first.
   std::vector<std::string> fComparedSystems;

   bool IsComparison() const { return !fComparedSystems.empty(); }

   /// The name that stands in titles: the machine's, or the compared systems'.
   std::string GetName() const;
};
