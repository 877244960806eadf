#pragma once

#include <string>

#include "common/OutputFile.h"
#include "trace/TraceArguments.h"

/// The file of a traced run: one JSON object a line, in the order of the calls.
///
/// Throws: TOutputError when the file can't be created or written.
class TTraceFile
{
public:
   static constexpr const char* kName = "trace.ndjson";

   explicit TTraceFile(const std::string& directory);

   /// {"op":"WriteTableTitle","args":["Memory",false,false]}
   template <typename... Arguments>
   void WriteOperation(const std::string& operation, const Arguments&... arguments)
   {
      WriteObject([&](TJsonWriter& json) {
         WriteJsonMember(json, "op", operation);
         json.Key("args");
         json.StartArray();
         (WriteJson(json, arguments), ...);
         json.EndArray();
      });
   }

   /// {"log":3,"text":"..."}
   void WriteLogLine(int level, const std::string& text);

   /// {"end":"ok"}; the last line of a run that came to its end.
   void WriteEnd();
   /// {"end":"exception","status":15}; the last line of a run that a failure of the store ended.
   void WriteEnd(const TQSXException& failure);
   /// The last line of a run that any other failure ended: the status is null, "text" tells it.
   void WriteEnd(const std::exception& failure);

   /// Closes the file; lines may reach it no earlier.
   void Finish();

private:
   // The line is complete before any of it is written: reading an argument may log a line of its
   // own.
   template <typename WriteMembers>
   void WriteObject(WriteMembers writeMembers)
   {
      rapidjson::StringBuffer line;
      TJsonWriter json(line);
      json.StartObject();
      writeMembers(json);
      json.EndObject();
      WriteLine(line);
   }

   void WriteLine(const rapidjson::StringBuffer& line);

   TOutputFile fFile;
};
