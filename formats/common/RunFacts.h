#pragma once

#include <string>
#include <vector>

/// One of the systems of a comparison. Missing: empty texts.
struct TComparedSystem
{
   /// Differs from all others.
   std::string fLabel;
   std::string fSerialNumber;
   std::string fSystem;
   std::string fCollected;
   std::string fTimeZone;
   /// The last part of the collection's path.
   std::string fFile;
};

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
   /// In a comparison: the base first.
   std::vector<TComparedSystem> fComparedSystems;

   bool IsComparison() const { return !fComparedSystems.empty(); }

   /// The name that stands in titles: the machine's, or the compared systems'.
   std::string GetName() const;
};
