#pragma once

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "IdentifierShapes.h"
#include "StoreTexts.h"
#include "TLiteralSearch.h"
#include "TStandIns.h"
#include "store/TMemoryStore.h"

namespace NZANQSX20 {

/// The identifiers of one collection, each with the stand-in that takes its place.
///
///    TMask mask(key, terms);
///    mask.Learn(store);
///    mask.Apply(store);
///
/// Shape: what identifies is told by kind of property (MaskRules) and by shape (IdentifierShapes),
///        and then replaced everywhere, in keys, references and free text.
class TMask
{
public:
   /// terms are texts of the user's own, of three bytes at least; case does not matter.
   TMask(const TMaskKey& key, const std::vector<std::string>& terms);

   /// Finds the identifiers and gives each its stand-in; called once.
   void Learn(TMemoryStore& store);

   /// Puts the stand-ins in place. Units: the count of texts that changed.
   std::size_t Apply(TMemoryStore& store) const;

   /// "Class.Property" of the first text in which an identifier is left. Missing: empty.
   std::string FindLeft(TMemoryStore& store) const;

   struct TEntry
   {
      EMaskKind fKind;
      std::string fOriginal;
      std::string fStandIn;
   };

   /// The map, in order of kinds and originals.
   std::vector<TEntry> GetEntries() const;

   /// Names of hosts, domains and users, in lower case, that are replaced only in properties that
   /// identify, as they are too short to mean the same in free text.
   std::vector<std::string> GetShortNames() const;

private:
   struct TLiteral
   {
      EMaskKind fKind;
      EWhere fWhere;
      std::string fStandIn;
   };

   using TIdentifierName = std::pair<EMaskKind, std::string>;

   void LearnText(const TStoreText& text);
   void LearnVersions(std::string_view text);
   void LearnValue(EMaskKind kind, std::string_view value);
   bool LearnDigits(EMaskKind kind, std::string_view value);
   void LearnNames(EMaskKind kind, std::string_view value);
   void LearnHost(std::string_view name);
   void LearnLiteral(EMaskKind kind, std::string_view text);
   void LearnAllCases(EMaskKind kind, std::string_view text);

   void AssignIdentifiers();
   void AssignIPv4();
   void AssignLiterals();
   void AddReversedDomains();
   bool IsFree(const std::string& text) const;
   std::string MakeStandIn(EMaskKind kind, const std::string& canonical, unsigned attempt) const;

   const std::string* FindStandIn(const TIdentifier& identifier) const;
   bool Replace(const TStoreText& text, std::string& replaced) const;
   template <typename TReplacer>
   void Scan(const TStoreText& text, TReplacer replacer) const;

   const TStandIns fStandIns;
   std::vector<std::string> fTerms;
   /// By kind and canonical text.
   std::map<TIdentifierName, std::string> fIdentifiers;
   std::map<std::string, TLiteral> fLiterals;
   /// What looks like an address and is a version.
   std::set<std::string> fVersions;
   /// What stands for something, so that nothing else gets the same one.
   std::set<std::string> fTaken;
   TLiteralSearch fSearch;
   std::vector<const std::map<std::string, TLiteral>::value_type*> fByNumber;
   std::unordered_map<std::string_view, const std::string*> fHexIdentifiers;
};

}  // namespace NZANQSX20
