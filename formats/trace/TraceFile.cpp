#include "trace/TraceFile.h"

TTraceFile::TTraceFile(const std::string& directory)
   : fFile(directory + TOSSpecific::kFileSeparator + kName)
{}

void TTraceFile::WriteLogLine(int level, const std::string& text)
{
   WriteObject([&](TJsonWriter& json) {
      WriteJsonMember(json, "log", level);
      WriteJsonMember(json, "text", text);
   });
}

void TTraceFile::WriteEnd()
{
   WriteObject([](TJsonWriter& json) { WriteJsonMember(json, "end", std::string("ok")); });
}

void TTraceFile::WriteEnd(const TQSXException& failure)
{
   WriteObject([&](TJsonWriter& json) {
      WriteJsonMember(json, "end", std::string("exception"));
      WriteJsonMember(json, "status", failure.fStatusCode.fStatusCode);
   });
}

void TTraceFile::WriteEnd(const std::exception& failure)
{
   WriteObject([&](TJsonWriter& json) {
      WriteJsonMember(json, "end", std::string("exception"));
      json.Key("status");
      json.Null();
      WriteJsonMember(json, "text", std::string(failure.what()));
   });
}

void TTraceFile::Finish()
{
   fFile.Close();
}

void TTraceFile::WriteLine(const rapidjson::StringBuffer& line)
{
   fFile.Write({line.GetString(), line.GetSize()});
   fFile.Write("\n");
}
