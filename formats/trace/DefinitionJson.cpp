#include "trace/DefinitionJson.h"

using TReportClass = TReportParameters::TReportClass;
using TReportProperty = TReportParameters::TReportProperty;
using TInstanceSorter = TReportParameters::TInstanceSorter;

namespace {

template <typename T>
void WriteList(TJsonWriter& json, const char* name, const std::vector<T>& items)
{
   json.Key(name);
   json.StartArray();
   for (const T& item : items)
      WriteJson(json, item);
   json.EndArray();
}

/// The way from an instance of the parent table to the instances of this one.
void WriteFilter(TJsonWriter& json, const TReportClass& reportClass)
{
   json.Key("filter");
   json.StartArray();
   WriteJsonText(json, reportClass.GetAssocClass());
   WriteJsonText(json, reportClass.GetResultClass());
   WriteJsonText(json, reportClass.GetRole());
   WriteJsonText(json, reportClass.GetResultRole());
   json.EndArray();
}

void WriteSortKeys(TJsonWriter& json, const TInstanceSorter& sorter)
{
   json.Key("sort");
   json.StartArray();
   for (const TInstanceSorter::TPropertyInfo& key : sorter.GetKeys()) {
      json.StartArray();
      WriteJsonText(json, key.fProperty);
      json.Bool(key.fAscending);
      json.Bool(key.fEmbeddedNumeric);
      json.EndArray();
   }
   json.EndArray();
}

}  // namespace

void WriteJson(TJsonWriter& json, const TReportParameters& params)
{
   json.StartObject();
   WriteJsonMember(json, "link", params.GetLinkName());
   WriteJsonMember(json, "name", params.GetReportName());
   WriteJsonMember(json, "showTitle", params.ShowReportTitle());
   WriteJsonMember(json, "linkSortable", params.GetLinkSortable());
   WriteList(json, "classes", params.GetClasses());
   json.EndObject();
}

void WriteJson(TJsonWriter& json, const TReportClass& reportClass)
{
   json.StartObject();
   WriteJsonMember(json, "class", reportClass.GetClass());
   WriteJsonMember(json, "title", reportClass.GetTitle());
   WriteJsonMember(json, "hasTitle", reportClass.HasTitle());
   WriteJsonMember(json, "subTitle", reportClass.SubTitleEnabled());
   WriteJsonMember(json, "width", reportClass.GetTableWidth());
   WriteJsonMember(json, "style", static_cast<int>(reportClass.GetReportStyle()));
   WriteJsonMember(json, "headerWidth", reportClass.GetRowReportHeaderWidth());
   WriteList(json, "properties", reportClass.GetProperties());
   WriteJsonMember(json, "uniqueId", reportClass.GetUniqueIdProperty());
   WriteJsonMember(json, "hasAssociatedClass", reportClass.HasAssociatedClass());
   WriteFilter(json, reportClass);
   WriteJsonMember(json, "excludeProps", reportClass.HasExcludeProps());
   WriteSortKeys(json, reportClass.GetInstanceSorter());
   WriteJsonMember(json, "sortable", reportClass.IsTableSortable());
   WriteList(json, "associated", reportClass.GetAssociatedClasses());
   WriteJsonMember(json, "max", reportClass.GetMaxInstancesPerTable());
   json.EndObject();
}

void WriteJson(TJsonWriter& json, const TReportProperty& property)
{
   json.StartObject();
   WriteJsonMember(json, "property", property.GetProperty());
   WriteJsonMember(json, "width", property.GetColumnWidth());
   WriteJsonMember(json, "assocClass", property.GetAssociationClass());
   WriteJsonMember(json, "assocTarget", property.GetAssociationTarget());
   WriteJsonMember(json, "secondaryTarget", property.GetSecondaryAssociationTarget());
   WriteJsonMember(json, "label", property.GetLabelOverride());
   WriteJsonMember(json, "separator", static_cast<int>(property.GetArrayValueSeparator()));
   WriteJsonMember(json, "monospaced", property.IsMonospaced());
   json.EndObject();
}
