#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include <rapidjson/document.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>

/// Why a text is no document of docs/report.schema.json. Missing: the empty text for one that is.
inline std::string FindSchemaError(const std::string& json)
{
   static const rapidjson::SchemaDocument* const schema = [] {
      std::ifstream stream(QSX_SCHEMA);
      const std::string text{std::istreambuf_iterator<char>(stream), {}};
      static rapidjson::Document document;
      document.Parse(text.c_str());
      return new rapidjson::SchemaDocument(document);
   }();
   rapidjson::Document document;
   document.Parse<rapidjson::kParseValidateEncodingFlag>(json.data(), json.size());
   if (document.HasParseError())
      return "no JSON, at byte " + std::to_string(document.GetErrorOffset());
   rapidjson::SchemaValidator validator(*schema);
   if (document.Accept(validator))
      return "";
   rapidjson::StringBuffer where;
   validator.GetInvalidDocumentPointer().StringifyUriFragment(where);
   return std::string(where.GetString()) + " fails " + validator.GetInvalidSchemaKeyword();
}
