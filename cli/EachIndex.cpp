#include "EachIndex.h"

#include <algorithm>
#include <fstream>

#include <fmt/format.h>
#include <rapidjson/document.h>
#include <rapidjson/istreamwrapper.h>

namespace {

constexpr const char* kHead = R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><meta name="viewport" content="width=device-width">
<title>{0} collections</title><style>
:root {{ color-scheme: light dark; font: 16px/1.5 system-ui, sans-serif }}
body {{ margin: 2rem auto; max-width: 70rem; padding: 0 1rem }}
table {{ border-collapse: collapse; width: 100% }}
th, td {{ border-bottom: 1px solid #8886; padding: .3rem .6rem; text-align: left; vertical-align: top }}
</style></head><body><h1>{0} collections</h1>
)";

std::string Escape(std::string_view text)
{
   std::string escaped;
   for (const char c : text) {
      switch (c) {
         case '&':
            escaped += "&amp;";
            break;
         case '<':
            escaped += "&lt;";
            break;
         case '>':
            escaped += "&gt;";
            break;
         case '"':
            escaped += "&quot;";
            break;
         default:
            escaped += c;
      }
   }
   return escaped;
}

/// A relative path as the target of a link.
std::string MakeLink(std::string_view path)
{
   constexpr std::string_view kPlain = "-._~/";
   std::string link = "./";
   for (const char c : path) {
      const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') ||
                           (c >= 'a' && c <= 'z') || kPlain.find(c) != std::string_view::npos;
      if (isPlain)
         link += c;
      else
         link += fmt::format("%{:02X}", static_cast<unsigned char>(c));
   }
   return link;
}

/// The manifest that a report leaves beside its pages. Missing: a null value.
rapidjson::Document ReadManifest(const std::string& path)
{
   rapidjson::Document manifest;
   std::ifstream file(path);
   rapidjson::IStreamWrapper stream(file);
   if (!file || manifest.ParseStream(stream).HasParseError() || !manifest.IsObject())
      manifest.SetNull();
   return manifest;
}

/// Missing: the empty text where there is no such text.
std::string GetText(const rapidjson::Value& object, const char* name)
{
   if (!object.IsObject())
      return {};
   const auto member = object.FindMember(name);
   return member != object.MemberEnd() && member->value.IsString() ? member->value.GetString() : "";
}

std::string GetMachineName(const rapidjson::Value& manifest)
{
   const bool isNamed = manifest.IsObject() && manifest.HasMember("machine");
   return isNamed ? GetText(manifest["machine"], "name") : "";
}

/// What a verdict is called. Missing: the empty text for none.
std::string_view GetVerdictText(std::string_view verdict)
{
   if (verdict == "failed")
      return "Failed";
   if (verdict == "attention")
      return "Needs attention";
   if (verdict == "ok")
      return "OK";
   return verdict.empty() ? "" : "Unknown";
}

/// The manifest lies beside the page to open first.
std::string MakeRow(const std::string& outputFolder, const TEachReport& report)
{
   const std::string page = report.fFolder + '/' + report.fEntry;
   const auto manifest =
      ReadManifest(outputFolder + '/' + page.substr(0, page.rfind('/')) + "/manifest.json");
   return fmt::format("<tr><td><a href=\"{}\">{}</a></td><td>{}</td><td>{}</td></tr>\n",
                      MakeLink(page), Escape(report.fCollection), Escape(GetMachineName(manifest)),
                      GetVerdictText(GetText(manifest, "verdict")));
}

}  // namespace

std::string MakeEachIndex(const std::string& outputFolder, const std::vector<TEachReport>& reports)
{
   std::string page = fmt::format(kHead, reports.size());
   const auto hasFailed = [](const TEachReport& report) { return !report.fFailure.empty(); };
   if (std::any_of(reports.begin(), reports.end(), hasFailed)) {
      page += "<h2>Without pages</h2>\n<table><tr><th>Collection</th><th>Reason</th></tr>\n";
      for (const TEachReport& report : reports)
         if (hasFailed(report))
            page += fmt::format("<tr><td>{}</td><td>{}</td></tr>\n", Escape(report.fCollection),
                                Escape(report.fFailure));
      page += "</table>\n<h2>Reports</h2>\n";
   }
   page += "<table><tr><th>Collection</th><th>System</th><th>State</th></tr>\n";
   for (const TEachReport& report : reports)
      if (!hasFailed(report))
         page += MakeRow(outputFolder, report);
   return page + "</table></body></html>\n";
}
