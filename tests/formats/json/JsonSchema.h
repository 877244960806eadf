#pragma once

#include <fstream>
#include <iterator>
#include <string>

#include <rapidjson/document.h>
#include <rapidjson/schema.h>
#include <rapidjson/stringbuffer.h>

inline rapidjson::SchemaDocument ReadSchema(const char* path)
{
   std::ifstream stream(path);
   const std::string text{std::istreambuf_iterator<char>(stream), {}};
   rapidjson::Document document;
   document.Parse(text.c_str());
   return rapidjson::SchemaDocument(document);
}

/// Why a text is no document of a schema. Missing: the empty text for one that is.
inline std::string FindSchemaError(const std::string& json, const rapidjson::SchemaDocument& schema)
{
   rapidjson::Document document;
   document.Parse<rapidjson::kParseValidateEncodingFlag>(json.data(), json.size());
   if (document.HasParseError())
      return "no JSON, at byte " + std::to_string(document.GetErrorOffset());
   rapidjson::SchemaValidator validator(schema);
   if (document.Accept(validator))
      return "";
   rapidjson::StringBuffer where;
   validator.GetInvalidDocumentPointer().StringifyUriFragment(where);
   return std::string(where.GetString()) + " fails " + validator.GetInvalidSchemaKeyword();
}

/// By docs/report.schema.json.
inline std::string FindSchemaError(const std::string& json)
{
   static const rapidjson::SchemaDocument kSchema = ReadSchema(QSX_SCHEMA);
   return FindSchemaError(json, kSchema);
}
