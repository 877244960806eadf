#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/RunFacts.h"
#include "html/HtmlSink.h"

/// The systems of a comparison, each with a letter: A is the base.
class THtmlSystems
{
public:
   static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

   THtmlSystems() = default;
   explicit THtmlSystems(const TRunFacts& facts);

   bool IsEmpty() const { return fLabels.empty(); }

   std::size_t GetCount() const { return fLabels.size(); }

   const std::string& GetLabel(std::size_t system) const { return fLabels[system]; }

   /// A to Z, then AA, AB.
   static std::string GetLetter(std::size_t system);

   /// Missing: kNone.
   std::size_t Find(std::string_view label) const;

   /// The systems of a list of labels with ", " between them.
   /// Missing: empty where a part is no label.
   std::vector<std::size_t> FindList(std::string_view labels) const;

   /// More systems than these are told by their letters alone.
   static constexpr std::size_t kMostLabels = 8;

   /// Writes letter and label; among many systems, the label is only read aloud.
   void Write(THtmlSink& out, std::size_t system) const;
   void WriteWithLabel(THtmlSink& out, std::size_t system) const;

private:
   std::vector<std::string> fLabels;
};

/// What a heading of a comparison says of an instance.
struct TComparedHeading
{
   enum EKind
   {
      kOther,
      kDifferences,
      kMissing,
      kUnique
   };

   TComparedHeading(const std::string& text, const THtmlSystems& systems);

   EKind fKind = kOther;
   /// Missing from, or unique to.
   std::vector<std::size_t> fSystems;
};
