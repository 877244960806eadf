#pragma once

#include <functional>
#include <string>
#include <vector>

/// A value or an instance that was repaired ahead of being reported, or while it was.
struct TCorrection
{
   enum EKind
   {
      kChanged,
      kAdded,
      kRemoved
   };

   EKind fKind = kChanged;
   std::string fClass;
   /// The path of the instance.
   std::string fInstance;
   /// Missing: empty where it is about the instance as a whole.
   std::string fProperty;
   /// As a report shows the values. Missing: empty for no value, and of a whole instance.
   std::string fFrom;
   std::string fTo;

   /// Why this is done to such a value. Missing: empty for a change that is none of the library's
   /// corrections.
   std::string GetReason() const;
};

struct TRunOutcome;

/// What whoever read the collection knows of it, and what he wants to know of the run.
/// Missing: any of them may be empty.
struct TCollectionFacts
{
   /// Whether the collection itself declares the class. Missing: every class counts as collected.
   std::function<bool(const std::string& className)> fIsDeclared;
   /// Asked once, after the last report. Missing: nothing is told of corrections.
   std::function<std::vector<TCorrection>()> fGetCorrections;
   /// Told what came out, ahead of the end of the run.
   std::function<void(const TRunOutcome& outcome)> fOnOutcome;
};
