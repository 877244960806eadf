#include <algorithm>
#include <vector>

#include "run/Corrections.h"
#include "run/TReport.h"
#include "writer/StoreWalk.h"

namespace {

constexpr const char* kRemoval = "removal detected";
/// Stands in every record that this correction has touched or made.
constexpr const char* kMark = "(possibly RAID drive)";
// The blanks and the spelling are as the readers of these records know them.
constexpr const char* kAdvice = " Check Corvane or TLM Event or IPMI Event  for more infomation.";

std::string ReadMessage(const boost::shared_ptr<ICIMInstance>& record)
{
   return static_cast<std::string>(ReadValue(record, "Message"));
}

enum class EEvents
{
   kUntouched,
   kRewritten,
   kDoneBefore
};

/// Adds the hint to the critical events that tell of a removed drive.
EEvents RewriteEvents(const TInstances& events)
{
   EEvents result = EEvents::kUntouched;
   for (const boost::shared_ptr<ICIMInstance>& event : events) {
      std::string message;
      IgnoreFailure([&] { message = ReadMessage(event); });
      if (Contains(message, kMark))
         return EEvents::kDoneBefore;
      const std::size_t removal = message.find(kRemoval);
      if (removal == std::string::npos || !Contains(message, "GBX") ||
          !Contains(message, "Hard drive"))
         continue;
      result = EEvents::kRewritten;
      IgnoreFailure([&] {
         WriteValue(event, "Message",
                    message.substr(0, removal) + kMark + " " + message.substr(removal) + kAdvice);
      });
   }
   return result;
}

/// Whether a record's message has all of the texts. Missing: a record that can't be read has none.
bool AnyMessageHas(const TInstances& records, const std::vector<const char*>& texts)
{
   for (const boost::shared_ptr<ICIMInstance>& record : records) {
      std::string message;
      IgnoreFailure([&] { message = ReadMessage(record); });
      if (std::all_of(texts.begin(), texts.end(),
                      [&](const char* text) { return Contains(message, text); }))
         return true;
   }
   return false;
}

/// Whether one of the logs tells of a removed drive.
bool LogsTellRemoval(const boost::shared_ptr<ICIMNamespace>& cimNamespace)
{
   // Spelled with a small l, unlike the class of the log report.
   return AnyMessageHas(FindInstances(cimNamespace, "ZANSG_TLMlog"), {"Hard drive", kRemoval}) ||
          // "Assertion" or "assertion".
          AnyMessageHas(FindInstances(cimNamespace, "ZANSG_IPMILogRecord"),
                        {"Disk or disk bay", "ssertion", "Drive Slot Present"});
}

void AddEvent(const boost::shared_ptr<ICIMClass>& events)
{
   // Without the class of critical events the empty handle ends in the assertion hook.
   const boost::shared_ptr<ICIMInstance> event = events->CreateInstance({});
   event->SetProperty("CreationClassName", "Test", {});
   event->SetProperty("LogName", "Test", {});
   event->SetProperty("LogCreationClassName", "Test", {});
   event->SetProperty("Message",
                      std::string("Hard drive ") + kMark + " " + kRemoval + "." + kAdvice, {});
   event->SetProperty("MessageTimestamp", TCIMDateTime(2000, 1, 1, 1, 1, 1, 1, 1), {});
   event->SetProperty("RecordID", "0", {});
   event->Save({});
}

}  // namespace

void TReport::fixCriticalDetailforRaidDiskRemoval()
{
   IgnoreFailure([&] {
      const boost::shared_ptr<ICIMClass> events =
         FindClass(fNamespace, "ZANSG_HeavyHittersLogRecord");
      if (events && RewriteEvents(EnumerateInstances(events)) != EEvents::kUntouched)
         return;
      if (LogsTellRemoval(fNamespace))
         AddEvent(events);
   });
}
