#pragma once

#include <string>
#include <vector>

#include "CIMStore.h"
#include "trace/DefinitionJson.h"
#include "writer/TTableGrid.h"

// The arguments of the output operations as JSON. An empty handle is null; what the store can't
// tell of a handle is null too, so that no operation throws.

void WriteJson(TJsonWriter& json, const std::string& text);
void WriteJson(TJsonWriter& json, bool flag);
void WriteJson(TJsonWriter& json, int number);
/// {"path":"...","ns":0}
void WriteJson(TJsonWriter& json, const boost::shared_ptr<ICIMInstance>& instance);
void WriteJson(TJsonWriter& json, const std::vector<boost::shared_ptr<ICIMInstance>>& instances);
/// Its name.
void WriteJson(TJsonWriter& json, const boost::shared_ptr<ICIMClass>& cimClass);
/// {"name":"...","text":"..."}
void WriteJson(TJsonWriter& json, const boost::shared_ptr<ICIMProperty>& property);
/// Its name.
void WriteJson(TJsonWriter& json, const boost::shared_ptr<const ICIMPropertyDecl>& decl);
void WriteJson(TJsonWriter& json, const TTableGrid& grid);
// A literal would otherwise choose the flag.
void WriteJson(TJsonWriter& json, const char* text) = delete;

/// What joins the elements of an array in a traced run.
std::string GetTraceSeparatorText(
   TReportParameters::TReportProperty::ArrayValueSeparator separator);

/// Replaces &, <, > and " by their entities.
std::string EncodeTraceText(const std::string& text);

/// A page's path without the output directory and the separator behind it.
std::string GetTracePath(const std::string& path, const std::string& outputDirectory);
