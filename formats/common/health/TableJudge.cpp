#include "common/health/TableJudge.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "common/health/Quantities.h"
#include "common/health/Sentence.h"

namespace {

/// Longer texts of the collection are cut in a sentence. Units: bytes.
constexpr std::size_t kLongestText = 80;
constexpr const char* kHardSpace = "\u00A0";

bool StartsWith(std::string_view text, std::string_view begin)
{
   return text.substr(0, begin.size()) == begin;
}

bool HasWord(const TStateWords& words, std::string_view text)
{
   return std::any_of(words.begin(), words.end(),
                      [text](const TStateWord& known) { return IsSameWord(known.fWord, text); });
}

/// "12.06 V".
std::string WithUnit(double number, std::string_view unit)
{
   std::string text = MakeNumberText(number);
   if (!unit.empty())
      text += fmt::format("{}{}", kHardSpace, unit);
   return text;
}

/// Where a reading lies, and how it is told. Missing: kOk and no text within the limits.
struct TRange
{
   EState fState = EState::kOk;
   std::string fText;
};

TRange FindRange(double reading, const TSensorLimits& limits, std::string_view unit)
{
   const auto describe = [unit](const char* side, const char* kind, double limit) {
      return fmt::format("is {} its {} limit of {}", side, kind, WithUnit(limit, unit));
   };
   if (limits.fUpperCritical && reading > *limits.fUpperCritical)
      return {EState::kFailed, describe("above", "critical", *limits.fUpperCritical)};
   if (limits.fLowerCritical && reading < *limits.fLowerCritical)
      return {EState::kFailed, describe("below", "critical", *limits.fLowerCritical)};
   if (limits.fUpperWarning && reading > *limits.fUpperWarning)
      return {EState::kAttention, describe("above", "warning", *limits.fUpperWarning)};
   if (limits.fLowerWarning && reading < *limits.fLowerWarning)
      return {EState::kAttention, describe("below", "warning", *limits.fLowerWarning)};
   return {};
}

/// The number that a drive keeps in bytes, the lowest first: "80 7 0 0 0 0".
/// Missing: nothing where it is no list of bytes.
std::optional<double> ReadRawCount(std::string_view text)
{
   double count = 0;
   double factor = 1;
   while (!text.empty()) {
      const std::size_t end = text.find_first_of(" ,");
      const std::string_view part = text.substr(0, end);
      const std::optional<TQuantity> byte = ReadQuantity(part);
      if (!part.empty() && !byte)
         return std::nullopt;
      if (byte) {
         count += byte->fNumber * factor;
         factor *= 256;
      }
      text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
   }
   return count;
}

}  // namespace

void TTableJudge::BeginPage(std::size_t page, const std::string& linkName)
{
   fPage = page;
   fLinkName = linkName;
   fName.clear();
   fRules.clear();
}

void TTableJudge::BeginTable(const std::string& reportTitle, const std::string& tableTitle,
                             const TTableShape& shape)
{
   fReportTitle = reportTitle;
   fTableTitle = tableTitle;
   fShape = shape;
   fRules.clear();
   for (const THealthRule& rule : GetHealthRules())
      if (fLinkName == rule.fPage && StartsWith(fTableTitle, rule.fTitle))
         fRules.push_back(&rule);
}

TTableJudge::TMarks TTableJudge::Judge(const TTableRows& rows, unsigned table,
                                       std::uint64_t firstRow)
{
   TMarks marks;
   if (fRules.empty())
      return marks;
   const TLabelledTable labelled(fShape, rows);
   for (const THealthRule* rule : fRules)
      JudgeByRule(*rule, labelled, table, firstRow, marks);
   return marks;
}

void TTableJudge::JudgeByRule(const THealthRule& rule, const TLabelledTable& table, unsigned number,
                              std::uint64_t firstRow, TMarks& marks)
{
   std::vector<std::size_t> labels;
   if (rule.fProperty == std::string_view("*"))
      for (std::size_t i = 0; i < table.GetLabelCount(); ++i)
         labels.push_back(i);
   else
      labels = table.FindLabels(GetLabel(rule, rule.fProperty));
   for (const std::size_t label : labels)
      for (std::size_t instance = 0; instance < table.GetInstanceCount(); ++instance) {
         const TLabelledTable::TPosition position{instance, label};
         TPagePlace place;
         place.fPage = fPage;
         place.fTable = number;
         place.fRow = firstRow + table.GetRow(position) + 1;
         place.fColumn = static_cast<unsigned>(table.GetColumn(position) + 1);
         JudgeValue({rule, table, position, table.GetValue(position), place}, marks);
      }
}

void TTableJudge::JudgeValue(const TValue& value, TMarks& marks)
{
   if (!IsConcerned(value))
      return;
   const EJudgement judgement = value.fRule.fJudgement;
   if (value.fCell.fText.empty() && judgement != EJudgement::kPresent)
      return;
   switch (judgement) {
      case EJudgement::kWords:
         return JudgeWords(value, marks);
      case EJudgement::kUsedSpace:
         return JudgeUsedSpace(value, marks);
      case EJudgement::kPercent:
         return JudgePercent(value, marks);
      case EJudgement::kReading:
         return JudgeReading(value, marks);
      case EJudgement::kAttributes:
         return JudgeAttribute(value, marks);
      case EJudgement::kRawCount:
         return JudgeRawCount(value, marks);
      case EJudgement::kErrorShare:
         return JudgeErrorShare(value, marks);
      case EJudgement::kPresent:
         return JudgePresence(value, marks);
      case EJudgement::kName:
         fName = MakeThing(value);
         return;
   }
}

bool TTableJudge::IsConcerned(const TValue& value) const
{
   const THealthRule& rule = value.fRule;
   if (*rule.fWhere == '\0')
      return true;
   return HasWord(rule.fOnly, FindText(value, rule.fWhere)) != rule.fIsExcept;
}

void TTableJudge::JudgeWords(const TValue& value, TMarks& marks)
{
   const THealthRule& rule = value.fRule;
   const EState state = FindState(rule.fWords, value.fCell.fText);
   const bool isFreeText =
      rule.fProperty == std::string_view("*") || rule.fSubsystem == ESubsystem::kNone;
   if (state == EState::kNone && isFreeText)
      return;
   if (state == EState::kNone || state == EState::kUnknown)
      return TellUnknown(value, marks);
   Tell(
      value, state,
      [&] {
         if (*rule.fPredicate != '\0')
            return FillTemplate(rule.fPredicate, [&value](std::string_view) {
               return MakeSmall(Shorten(value.fCell.fText, kLongestText));
            });
         const std::string_view word = FindUrgentWord(rule.fWords, value.fCell.fText);
         const std::string_view phrase = FindPhrase(word);
         return phrase.empty() ? "is " + MakeSmall(word) : std::string(phrase);
      },
      marks);
   marks[{value.fPlace.fRow, value.fPlace.fColumn}] = state;
}

void TTableJudge::JudgeUsedSpace(const TValue& value, TMarks& marks)
{
   const std::string_view totalText = FindText(value, value.fRule.fOther);
   const std::optional<double> free = ReadBytes(value.fCell.fText);
   const std::optional<double> total = ReadBytes(totalText);
   const bool isUsable = free && total && *total > 0 && *free >= 0 && *free <= *total;
   if (!isUsable) {
      // File systems of the system's own have no size.
      if (!total || *total > 0)
         TellUnknown(value, marks);
      return;
   }
   const double percent = 100 * (*total - *free) / *total;
   const EState state = percent >= value.fRule.fLimit ? EState::kAttention : EState::kOk;
   // Rounded down, so that 100 says that nothing is left.
   Tell(
      value, state,
      [&] { return fmt::format("is {:.0f}{}% full", std::floor(percent), kHardSpace); }, marks);
   THealthPictures& pictures = fLedger.GetPictures();
   if (pictures.fVolumes.size() >= THealthPictures::kMostVolumes)
      return;
   pictures.fVolumes.push_back(
      {MakeThing(value), percent, value.fRule.fLimit, MakeSizeText(*total), state, value.fPlace});
}

void TTableJudge::JudgePercent(const TValue& value, TMarks& marks)
{
   const std::optional<TQuantity> percent = ReadQuantity(value.fCell.fText);
   if (!percent)
      return TellUnknown(value, marks);
   const EState state = percent->fNumber >= value.fRule.fLimit ? EState::kAttention : EState::kOk;
   Tell(
      value, state, [&] { return "is used to " + WithUnit(percent->fNumber, "%"); }, marks);
   const bool isMemory = value.fRule.fProperty == std::string_view("MemoryLoad");
   const std::optional<double> total =
      ReadBytes(FindText(value, isMemory ? "TotalVisibleMemorySize" : "TotalSwapSpaceSize"));
   fLedger.GetPictures().fMemory.push_back({isMemory ? "Memory" : "Swap", percent->fNumber,
                                            value.fRule.fLimit, total ? MakeSizeText(*total) : "",
                                            state, value.fPlace});
}

void TTableJudge::JudgeReading(const TValue& value, TMarks& marks)
{
   const std::optional<TQuantity> reading = ReadQuantity(value.fCell.fText);
   if (!reading)
      return TellUnknown(value, marks);
   THealthPictures& pictures = fLedger.GetPictures();
   const std::string name(FindText(
      value, value.fRule.fClass == std::string_view("CIM_NumericSensor") ? "ElementName"
                                                                         : "SensorDescription"));
   const auto limits = fLimits.find(name);
   if (limits == fLimits.end() || limits->second.IsEmpty()) {
      ++pictures.fSensorsWithoutLimits;
      return fLedger.AddUnjudged(value.fRule);
   }
   const std::string unit(GetShortUnit(FindText(value, value.fRule.fOther)));
   const TRange range = FindRange(reading->fNumber, limits->second, unit);
   Tell(
      value, range.fState, [&range] { return range.fText; }, marks);
   if (pictures.fSensors.size() >= THealthPictures::kMostSensors)
      return;
   TSensorReading sensor;
   sensor.fName = MakeThing(value);
   sensor.fReading = reading->fNumber;
   sensor.fUnit = unit;
   sensor.fText = WithUnit(reading->fNumber, unit);
   sensor.fLimits = limits->second;
   sensor.fState = range.fState;
   sensor.fPlace = value.fPlace;
   pictures.fSensors.push_back(std::move(sensor));
}

void TTableJudge::JudgeAttribute(const TValue& value, TMarks& marks)
{
   TDriveAttribute attribute;
   attribute.fName = FindText(value, "attribName");
   if (!attribute.SetValues(value.fCell.fText, FindText(value, "worst"),
                            FindText(value, value.fRule.fOther)))
      return TellUnknown(value, marks);
   if (attribute.fThreshold == 0)
      return;
   const EState state = std::max(attribute.GetState(), EState::kOk);
   Tell(
      value, state,
      [&] {
         if (state == EState::kFailed)
            return fmt::format("is {}, at or below its threshold of {}", attribute.fValue,
                               attribute.fThreshold);
         return fmt::format("was {} at its worst, at or below its threshold of {}",
                            attribute.fWorst, attribute.fThreshold);
      },
      marks);
   std::vector<TDrive>& drives = fLedger.GetPictures().fDrives;
   const bool isNew = drives.empty() || drives.back().fName != fName ||
                      drives.back().fPlace.fTable != value.fPlace.fTable;
   if (isNew && drives.size() < THealthPictures::kMostDrives) {
      TDrive& drive = drives.emplace_back();
      drive.fName = fName;
      drive.fPlace = value.fPlace;
   }
   if (drives.back().fName == fName)
      drives.back().fAttributes.Add(attribute);
}

void TTableJudge::JudgeRawCount(const TValue& value, TMarks& marks)
{
   const std::optional<double> count = ReadRawCount(value.fCell.fText);
   if (!count)
      return TellUnknown(value, marks);
   Tell(
      value, *count > 0 ? EState::kAttention : EState::kOk,
      [&count] { return "counts " + MakeNumberText(*count) + " so far"; }, marks);
}

void TTableJudge::JudgeErrorShare(const TValue& value, TMarks& marks)
{
   const std::optional<TQuantity> errors = ReadQuantity(value.fCell.fText);
   const std::optional<TQuantity> packets = ReadQuantity(FindText(value, value.fRule.fOther));
   if (!errors)
      return TellUnknown(value, marks);
   const bool isMany =
      errors->fNumber > 0 && packets && errors->fNumber * value.fRule.fLimit >= packets->fNumber;
   Tell(
      value, isMany ? EState::kAttention : EState::kOk,
      [&] {
         return fmt::format("counts {} of {} packets as {}", MakeNumberText(errors->fNumber),
                            MakeNumberText(packets->fNumber),
                            GetLabel(value.fRule, value.fRule.fProperty));
      },
      marks);
}

void TTableJudge::JudgePresence(const TValue& value, TMarks& marks)
{
   if (!value.fCell.fText.empty())
      fLedger.AddFirmware({MakeThing(value), std::string(value.fCell.fText)});
   Tell(
      value, value.fCell.fText.empty() ? EState::kUnknown : EState::kOk,
      [&value, this] {
         return "has no " + MakeSmall(GetLabel(value.fRule, value.fRule.fProperty));
      },
      marks);
}

void TTableJudge::Tell(const TValue& value, EState state,
                       const std::function<std::string()>& makeEnd, TMarks& marks)
{
   // What a finding rests on stands out where it stands; an empty cell stays empty.
   const bool isMarked = state > EState::kOk && !value.fCell.fText.empty();
   if (isMarked) {
      EState& mark = marks[{value.fPlace.fRow, value.fPlace.fColumn}];
      mark = std::max(mark, state);
   }
   const std::string source = state == EState::kOk
                                 ? (fTableTitle.empty() ? fReportTitle : fTableTitle) + ": " +
                                      GetLabel(value.fRule, value.fRule.fProperty)
                                 : std::string();
   TPagePlace place = value.fPlace;
   if (!isMarked)
      place.fColumn = 0;
   if (state == EState::kOk)
      place.fRow = 0;
   fLedger.Add(value.fRule, state, place, source, [&] {
      TFinding finding;
      finding.fState = state;
      finding.fText = MakeThing(value) + " " + makeEnd() + ".";
      finding.fSource = MakeSource(value);
      finding.fPlace = place;
      return finding;
   });
}

void TTableJudge::TellUnknown(const TValue& value, TMarks& marks)
{
   const std::string_view label = value.fTable.GetLabel(value.fPosition.fLabel);
   const bool isToldUnknown = FindState(value.fRule.fWords, value.fCell.fText) == EState::kUnknown;
   Tell(
      value, EState::kUnknown,
      [&] {
         return isToldUnknown ? fmt::format("does not tell its {}", MakeSmall(label))
                              : fmt::format("says of \"{}\" what no rule knows: {}", label,
                                            Shorten(value.fCell.fText, kLongestText));
      },
      marks);
}

const std::string& TTableJudge::GetLabel(const THealthRule& rule, std::string_view property) const
{
   const auto [known, isNew] =
      fLabels.emplace(std::make_pair(std::string(rule.fClass), std::string(property)), "");
   if (isNew)
      known->second =
         *rule.fClass == '\0' ? std::string(property) : fGetLabel(rule.fClass, known->first.second);
   return known->second;
}

/// Of several, the one ahead of the value.
std::string_view TTableJudge::FindText(const TValue& value, std::string_view property) const
{
   const std::vector<std::size_t> labels = value.fTable.FindLabels(GetLabel(value.fRule, property));
   if (labels.empty())
      return {};
   std::size_t label = labels.front();
   for (const std::size_t at : labels)
      if (!value.fTable.IsUpright() && at <= value.fPosition.fLabel)
         label = at;
   return value.fTable.GetValue({value.fPosition.fInstance, label}).fText;
}

std::string TTableJudge::MakeThing(const TValue& value) const
{
   const std::string_view pattern = value.fRule.fThing;
   std::string thing = FillTemplate(pattern, [&](std::string_view name) {
      if (name == "name")
         return fName;
      if (name == "property")
         return std::string(value.fTable.GetLabel(value.fPosition.fLabel));
      return Shorten(FindText(value, name), kLongestText);
   });
   thing.erase(thing.find_last_not_of(' ') + 1);
   if (thing.empty())
      return fmt::format("A {}", value.fRule.fNoun);
   return thing;
}

std::string TTableJudge::MakeSource(const TValue& value) const
{
   std::string source = fTableTitle.empty() ? fReportTitle : fTableTitle;
   if (value.fTable.IsUpright())
      source += fmt::format(", row {}", MakeNumberText(static_cast<double>(value.fPlace.fRow)));
   source += fmt::format(": {}", value.fTable.GetLabel(value.fPosition.fLabel));
   if (value.fCell.fText.empty())
      return source + " is empty";
   return source + " = " + Shorten(value.fCell.fText, kLongestText);
}
