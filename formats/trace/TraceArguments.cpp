#include "trace/TraceArguments.h"

namespace {

/// Writes the value that the read gives, null where the store fails.
template <typename Read>
void WriteOrNull(TJsonWriter& json, Read read)
{
   try {
      const std::string text = read();
      WriteJsonText(json, text);
   } catch (const TQSXException&) {
      json.Null();
   }
}

int GetNamespaceIndex(const TCIMReference& path)
{
   const auto index = path.GetContext().find(kNamespaceIndexKey);
   return index == path.GetContext().end() ? 0 : static_cast<unsigned short>(index->second);
}

void WriteCell(TJsonWriter& json, const TTableCell& cell)
{
   json.StartArray();
   WriteJsonText(json, cell.fText);
   WriteJsonText(json, cell.fSecondText);
   json.Bool(cell.fMonospaced);
   json.Bool(cell.fSame);
   json.Bool(cell.fSameShade);
   json.Bool(cell.fSameCentred);
   json.EndArray();
}

void WriteCells(TJsonWriter& json, const T2DArray<TTableCell>& cells)
{
   json.StartArray();
   for (std::size_t row = 0; row < cells.GetRows(); ++row) {
      json.StartArray();
      for (std::size_t column = 0; column < cells.GetColumns(); ++column)
         WriteCell(json, cells(row, column));
      json.EndArray();
   }
   json.EndArray();
}

}  // namespace

void WriteJson(TJsonWriter& json, const std::string& text)
{
   WriteJsonText(json, text);
}

void WriteJson(TJsonWriter& json, bool flag)
{
   json.Bool(flag);
}

void WriteJson(TJsonWriter& json, int number)
{
   json.Int(number);
}

void WriteJson(TJsonWriter& json, const boost::shared_ptr<ICIMInstance>& instance)
{
   if (!instance) {
      json.Null();
      return;
   }
   try {
      const TCIMReference path = instance->GetReference(TContext());
      const int index = GetNamespaceIndex(path);
      const std::string text = path.GetPath();
      json.StartObject();
      WriteJsonMember(json, "path", text);
      WriteJsonMember(json, "ns", index);
      json.EndObject();
   } catch (const TQSXException&) {
      json.Null();
   }
}

void WriteJson(TJsonWriter& json, const std::vector<boost::shared_ptr<ICIMInstance>>& instances)
{
   json.StartArray();
   for (const boost::shared_ptr<ICIMInstance>& instance : instances)
      WriteJson(json, instance);
   json.EndArray();
}

void WriteJson(TJsonWriter& json, const boost::shared_ptr<ICIMClass>& cimClass)
{
   if (!cimClass)
      json.Null();
   else
      WriteOrNull(json, [&cimClass] { return cimClass->GetName(TContext()); });
}

void WriteJson(TJsonWriter& json, const boost::shared_ptr<ICIMProperty>& property)
{
   if (!property) {
      json.Null();
      return;
   }
   json.StartObject();
   json.Key("name");
   WriteOrNull(json, [&property] { return property->GetDecl(TContext())->GetName(TContext()); });
   json.Key("text");
   WriteOrNull(json, [&property] { return property->GetValueString(); });
   json.EndObject();
}

void WriteJson(TJsonWriter& json, const boost::shared_ptr<const ICIMPropertyDecl>& decl)
{
   if (!decl)
      json.Null();
   else
      WriteOrNull(json, [&decl] { return decl->GetName(TContext()); });
}

void WriteJson(TJsonWriter& json, const TTableGrid& grid)
{
   json.StartObject();
   json.Key("columnWidths");
   json.StartArray();
   for (const int width : grid.fColumnWidths)
      json.Int(width);
   json.EndArray();
   WriteJsonMember(json, "tableWidth", grid.fTableWidth);
   WriteJsonMember(json, "sortable", grid.fSortable);
   WriteJsonMember(json, "firstRowIsHeader", grid.fFirstRowIsHeader);
   WriteJsonMember(json, "firstColumnIsHeader", grid.fFirstColumnIsHeader);
   WriteJsonMember(json, "transposed", grid.fTransposed);
   WriteJsonMember(json, "rows", grid.fRows);
   WriteJsonMember(json, "columns", grid.fColumns);
   WriteJsonMember(json, "marked", grid.fMarked);
   json.Key("cells");
   WriteCells(json, grid.fCells);
   json.EndObject();
}

std::string GetTraceSeparatorText(TReportParameters::TReportProperty::ArrayValueSeparator separator)
{
   using TReportProperty = TReportParameters::TReportProperty;
   switch (separator) {
      case TReportProperty::kSeparatorBlank:
         return " ";
      case TReportProperty::kSeparatorSemicolon:
         return "; ";
      case TReportProperty::kSeparatorSlash:
         return " / ";
      case TReportProperty::kSeparatorDefault:
         break;
   }
   return ", ";
}

std::string EncodeTraceText(const std::string& text)
{
   std::string encoded;
   encoded.reserve(text.size());
   for (const char character : text) {
      switch (character) {
         case '&':
            encoded += "&amp;";
            break;
         case '<':
            encoded += "&lt;";
            break;
         case '>':
            encoded += "&gt;";
            break;
         case '"':
            encoded += "&quot;";
            break;
         default:
            encoded += character;
      }
   }
   return encoded;
}

std::string GetTracePath(const std::string& path, const std::string& outputDirectory)
{
   const std::string folder = outputDirectory + TOSSpecific::kFileSeparator;
   return path.compare(0, folder.size(), folder) == 0 ? path.substr(folder.size()) : path;
}
