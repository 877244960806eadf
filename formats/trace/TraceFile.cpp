#include "trace/TraceFile.h"

#include <cerrno>
#include <system_error>

TTraceFile::TTraceFile(const std::string& directory)
   : fPath(directory + TOSSpecific::kFileSeparator + kName),
     fStream(fPath, std::ios::binary | std::ios::trunc)
{
   if (!fStream)
      throw std::system_error(errno, std::generic_category(), fPath);
}

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
   errno = 0;
   fStream.close();
   if (!fStream && fError == 0)
      fError = errno != 0 ? errno : EIO;
   if (fError != 0)
      throw std::system_error(fError, std::generic_category(), fPath);
}

void TTraceFile::WriteLine(const rapidjson::StringBuffer& line)
{
   errno = 0;
   fStream.write(line.GetString(), static_cast<std::streamsize>(line.GetSize())).put('\n');
   if (!fStream && fError == 0)
      fError = errno != 0 ? errno : EIO;
}
