#include "TMask.h"

#include <algorithm>

#include "NameText.h"
#include "NoIdentifiers.h"

namespace NZANQSX20 {

namespace {

bool IsDigit(char byte)
{
   return byte >= '0' && byte <= '9';
}

bool IsLetter(char byte)
{
   return IsWordByte(byte) && !IsDigit(byte);
}

bool IsName(std::string_view text)
{
   return std::all_of(text.begin(), text.end(),
                      [](char byte) { return IsWordByte(byte) || byte == '-' || byte == '_'; });
}

bool IsIdentifying(EMaskKind kind)
{
   return kind != EMaskKind::kNone && kind != EMaskKind::kVersion;
}

/// How far a text tells by itself that it is the identifier and nothing else.
EWhere FindWhere(EMaskKind kind, std::string_view text)
{
   constexpr std::size_t kShortName = 3;
   constexpr std::size_t kLong = 8;
   constexpr std::size_t kLongNumber = 6;
   const bool hasDigit = std::any_of(text.begin(), text.end(), IsDigit);
   const bool hasLetter = std::any_of(text.begin(), text.end(), IsLetter);
   const bool isOdd = text.size() >= kLong && hasDigit && hasLetter;
   if (kind == EMaskKind::kTerm)
      return isOdd ? EWhere::kAnywhere : EWhere::kWholeWords;
   if (kind == EMaskKind::kSecret && !isOdd)
      return EWhere::kIdentifyingOnly;
   if (!hasLetter)
      return text.size() < kLongNumber ? EWhere::kIdentifyingOnly : EWhere::kWholeWords;
   const bool isHostNumber = kind == EMaskKind::kHost && hasDigit && text.size() == kShortName;
   if (text.size() <= kShortName && !isHostNumber)
      return EWhere::kIdentifyingOnly;
   return isOdd && !IsOfNames(kind) && kind != EMaskKind::kContact ? EWhere::kAnywhere
                                                                   : EWhere::kWholeWords;
}

}  // namespace

TMask::TMask(const TMaskKey& key, const std::vector<std::string>& terms)
   : fStandIns(key), fTerms(terms)
{}

// What identifies.

void TMask::Learn(TMemoryStore& store)
{
   for (const std::string& term : fTerms)
      LearnAllCases(EMaskKind::kTerm, term);
   ForEachText(store, [this](const TStoreText& text, std::string&) {
      LearnText(text);
      return false;
   });
   AssignIdentifiers();
   AssignLiterals();
   AddReversedDomains();
}

void TMask::LearnText(const TStoreText& text)
{
   std::vector<TIdentifier> identifiers;
   FindIdentifiers(text.fText, text.fKind != EMaskKind::kVersion, identifiers);
   std::size_t size = 0;
   for (TIdentifier& identifier : identifiers) {
      if (!identifier.fIsCertain)
         continue;
      size += identifier.fSize;
      fIdentifiers.emplace(TIdentifierName(identifier.fKind, std::move(identifier.fCanonical)), "");
   }
   if (text.fKind == EMaskKind::kVersion)
      return LearnVersions(text.fText);
   const std::string_view value = TrimName(text.fText);
   const bool isWholeIdentifier = size > 0 && size + 2 >= value.size();
   if (IsIdentifying(text.fKind) && !isWholeIdentifier)
      LearnValue(text.fKind, value);
}

/// A version is one in free text, too, unless it may as well be an address of
/// the house.
void TMask::LearnVersions(std::string_view text)
{
   std::vector<TIdentifier> identifiers;
   FindIdentifiers(text, true, identifiers);
   for (const TIdentifier& identifier : identifiers)
      if (identifier.fKind == EMaskKind::kIPv4 && !TStandIns::IsPrivate(identifier.fCanonical))
         fVersions.insert(identifier.fCanonical);
}

void TMask::LearnValue(EMaskKind kind, std::string_view value)
{
   if (IdentifiesNobody(kind, value) || LearnDigits(kind, value))
      return;
   if (IsOfNames(kind))
      LearnNames(kind, value);
   else
      LearnLiteral(kind, value);
}

/// An identifier of digits without marks, where the property says what it is.
bool TMask::LearnDigits(EMaskKind kind, std::string_view value)
{
   const std::string digits = GetHexDigits(value);
   EMaskKind found = EMaskKind::kNone;
   if (digits.size() == 12 && kind == EMaskKind::kMAC)
      found = EMaskKind::kMAC;
   else if (digits.size() == 16 && (kind == EMaskKind::kMAC || kind == EMaskKind::kWWN))
      found = EMaskKind::kWWN;
   else if (digits.size() == 32 && (kind == EMaskKind::kWWN || kind == EMaskKind::kUUID))
      found = kind;
   if (found == EMaskKind::kNone)
      return false;
   fIdentifiers.emplace(TIdentifierName(found, digits), "");
   return true;
}

/// "DOMAIN\name", "name@domain", "host.domain".
void TMask::LearnNames(EMaskKind kind, std::string_view value)
{
   while (!value.empty() && value[0] == '\\')
      value.remove_prefix(1);
   const std::size_t backslash = value.find('\\');
   const std::size_t at = value.find('@');
   if (backslash != std::string_view::npos) {
      LearnHost(value.substr(0, backslash));
      return LearnNames(kind, value.substr(backslash + 1));
   }
   if (kind == EMaskKind::kUser && at != std::string_view::npos) {
      LearnAllCases(kind, value.substr(0, at));
      value.remove_prefix(at + 1);
      kind = EMaskKind::kDomain;
   }
   if (kind == EMaskKind::kUser)
      return LearnAllCases(kind, value);
   if (kind == EMaskKind::kHost)
      return LearnHost(value);
   if (value.find('.') != std::string_view::npos || IsName(value))
      LearnAllCases(kind, value);
}

void TMask::LearnHost(std::string_view name)
{
   const std::size_t dot = name.find('.');
   const std::string_view label = name.substr(0, dot);
   // A text with blanks and the like is no host name, whatever its property is
   // called.
   if (!IsName(label))
      return;
   LearnAllCases(EMaskKind::kHost, label);
   if (dot != std::string_view::npos)
      LearnAllCases(EMaskKind::kDomain, name.substr(dot + 1));
}

void TMask::LearnLiteral(EMaskKind kind, std::string_view text)
{
   constexpr std::size_t kShortestWithoutLetter = 4;
   const bool isShort =
      text.size() < kShortestWithoutLetter && std::none_of(text.begin(), text.end(), IsLetter);
   const bool isNobody = kind != EMaskKind::kTerm && IdentifiesNobody(kind, text);
   if (isShort || isNobody)
      return;
   const EWhere where = FindWhere(kind, text);
   const auto [known, isNew] = fLiterals.emplace(text, TLiteral{kind, where, ""});
   // What it identifies elsewhere may tell more.
   if (!isNew)
      known->second.fWhere = std::min(known->second.fWhere, where);
}

void TMask::LearnAllCases(EMaskKind kind, std::string_view text)
{
   text = TrimName(text);
   LearnLiteral(kind, text);
   LearnLiteral(kind, Lower(text));
   LearnLiteral(kind, Upper(text));
}

// Replacing.

const std::string* TMask::FindStandIn(const TIdentifier& identifier) const
{
   if (!identifier.fIsCertain) {
      const auto found = fHexIdentifiers.find(identifier.fCanonical);
      return found != fHexIdentifiers.end() ? found->second : nullptr;
   }
   const auto found = fIdentifiers.find({identifier.fKind, identifier.fCanonical});
   return found != fIdentifiers.end() ? &found->second : nullptr;
}

/// Calls replacer(start, size, stand-in) for each original in the text, from
/// left to right.
template <typename TReplacer>
void TMask::Scan(const TStoreText& text, TReplacer replacer) const
{
   // Kept for the next text, as there are many.
   static thread_local std::vector<TIdentifier> identifiers;
   FindIdentifiers(text.fText, text.fKind != EMaskKind::kVersion, identifiers);
   const bool isIdentifying = IsIdentifying(text.fKind);
   auto next = identifiers.begin();
   std::size_t at = 0;
   while (at < text.fText.size()) {
      while (next != identifiers.end() && next->fStart < at)
         ++next;
      const TLiteralSearch::TFound literal = fSearch.Match(text.fText, at, isIdentifying);
      const bool isIdentifier = next != identifiers.end() && next->fStart == at;
      const std::string* const standIn = isIdentifier ? FindStandIn(*next) : nullptr;
      if (standIn != nullptr && next->fSize >= literal.fSize) {
         const std::string_view original = text.fText.substr(at, next->fSize);
         const bool isAddress = next->fKind == EMaskKind::kIPv4 ||
                                next->fKind == EMaskKind::kIPv6 || next->fKind == EMaskKind::kSID;
         replacer(at, next->fSize, isAddress ? *standIn : WriteLike(*standIn, original));
         at += next->fSize;
      } else if (literal.fSize > 0) {
         replacer(at, literal.fSize, fByNumber[literal.fNumber]->second.fStandIn);
         at += literal.fSize;
      } else {
         // Nothing is looked for inside an identifier that stays.
         at += isIdentifier && next->fIsCertain ? next->fSize : 1;
      }
   }
}

bool TMask::Replace(const TStoreText& text, std::string& replaced) const
{
   replaced.clear();
   std::size_t copied = 0;
   Scan(text, [&](std::size_t start, std::size_t size, const std::string& standIn) {
      replaced += text.fText.substr(copied, start - copied);
      replaced += standIn;
      copied = start + size;
   });
   if (copied == 0)
      return false;
   replaced += text.fText.substr(copied);
   return true;
}

std::size_t TMask::Apply(TMemoryStore& store) const
{
   std::size_t count = 0;
   ForEachText(store, [this, &count](const TStoreText& text, std::string& replaced) {
      const bool isReplaced = Replace(text, replaced);
      count += isReplaced ? 1 : 0;
      return isReplaced;
   });
   return count;
}

std::string TMask::FindLeft(TMemoryStore& store) const
{
   std::string left;
   ForEachText(store, [this, &left](const TStoreText& text, std::string&) {
      if (left.empty())
         Scan(text, [&](std::size_t, std::size_t, const std::string&) {
            left = text.fClass.GetName() + '.' + text.fClass.GetSlotName(text.fSlot);
         });
      return false;
   });
   return left;
}

std::vector<TMask::TEntry> TMask::GetEntries() const
{
   std::vector<TEntry> entries;
   for (const auto& [name, standIn] : fIdentifiers)
      entries.push_back({name.first, name.second, standIn});
   for (const auto& [original, literal] : fLiterals)
      entries.push_back({literal.fKind, original, literal.fStandIn});
   std::stable_sort(entries.begin(), entries.end(),
                    [](const TEntry& a, const TEntry& b) { return a.fKind < b.fKind; });
   return entries;
}

std::vector<std::string> TMask::GetShortNames() const
{
   std::vector<std::string> names;
   for (const auto& [original, literal] : fLiterals)
      if (IsOfNames(literal.fKind) && literal.fWhere == EWhere::kIdentifyingOnly &&
          original == Lower(original))
         names.push_back(original);
   return names;
}

}  // namespace NZANQSX20
