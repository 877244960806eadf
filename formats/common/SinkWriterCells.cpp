// The labels and values that the library writes cell by cell.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "common/ByteDump.h"
#include "common/TSinkWriter.h"
#include "writer/InstanceAccess.h"

namespace {

constexpr const char* kCadenzaCommonValues = "CadenzaCommonValues";
constexpr const char* kCadenzaCommonFrequencies = "CadenzaCommonFrequencies";

bool HasAnyValue(const TWriter::TProperties& properties)
{
   return std::any_of(properties.begin(), properties.end(),
                      [](const auto& property) { return property && property->HasValue(); });
}

/// Whether a cell of these may have an untranslated value. A date-time without one is told apart
/// here, as its texts cost a look-up each.
bool MayHaveRawForm(const TWriter::TProperties& properties)
{
   if (!HasAnyValue(properties))
      return false;
   if (properties.size() != 1)
      return true;
   try {
      ICIMProperty& property = *properties.front();
      return property.GetType({}) != TCIMValue::TCIMType::kDateTime ||
             !property.GetValue().IsNull();
   } catch (const TQSXException&) {
      return true;
   }
}

/// False for an integer that the library's int can't hold: what it makes of it has wrapped.
bool FitsInt(ICIMInstance& instance, const char* name)
{
   try {
      const TCIMValue value = instance.GetProperty(name, {})->GetValue(TContext());
      const TCIMValue::ECIMType type = value.GetType();
      if (type < TCIMValue::TCIMType::kUInt32 || type > TCIMValue::TCIMType::kSInt64)
         return true;
      const std::string digits = value.ToString(10);
      int number = 0;
      return std::from_chars(digits.data(), digits.data() + digits.size(), number).ec !=
             std::errc::result_out_of_range;
   } catch (const TQSXException&) {
      // Told by the library.
      return true;
   }
}

}  // namespace

std::string GetSeparatorText(TReportParameters::TReportProperty::ArrayValueSeparator separator)
{
   using TProperty = TReportParameters::TReportProperty;
   switch (separator) {
      case TProperty::kSeparatorBlank:
         return " ";
      case TProperty::kSeparatorSemicolon:
         return "; ";
      case TProperty::kSeparatorSlash:
         return " / ";
      case TProperty::kSeparatorDefault:
         break;
   }
   return ", ";
}

void TSinkWriter::WriteHeaderCell(boost::shared_ptr<ICIMClass> cimClass, TReportProperty property)
{
   const std::string name =
      property.HasLabelOverride() ? property.GetLabelOverride() : property.GetProperty();
   const std::string label = cimClass ? GetTableHeaderLabel(*cimClass, property, {}) : name;
   fHeaderClass = cimClass ? cimClass->GetName({}) : "";
   fHeaderProperties.push_back(property.GetProperty());
   // The two share a column.
   if (fIsCadenzaPage && property.GetProperty() == kCadenzaCommonValues) {
      fCommonValuesLabel = label;
      return;
   }
   if (fIsCadenzaPage && property.GetProperty() == kCadenzaCommonFrequencies)
      return WriteLabel(fCommonValuesLabel + " / " + label, property);
   WriteLabel(label, property);
}

void TSinkWriter::WriteValueCell(boost::shared_ptr<ICIMInstance> instance, TReportProperty property)
{
   TProperties& properties = fCellProperties;
   properties.clear();
   AddProperties(instance, property.GetProperty(), property.GetAssociationClass(),
                 property.GetAssociationTarget(), properties);
   if (properties.empty() && property.HasSecondaryAssociationTarget())
      AddProperties(instance, property.GetProperty(), "", property.GetSecondaryAssociationTarget(),
                    properties);
   const std::string separator = GetArrayValueSeparatorText(property.GetArrayValueSeparator());
   const std::string untranslated =
      MayHaveRawForm(properties) ? fValueText.Make(properties, separator, true) : "";
   const std::string text = fValueText.Make(properties, separator, false);
   WriteValue(text, untranslated, property.IsMonospaced(), ReadSeverity(instance, property));
}

void TSinkWriter::WriteTextCell(TReportProperty property, std::string text)
{
   WriteValue(text, "", property.IsMonospaced());
}

void TSinkWriter::WriteHeaderTextCell(std::string text, TReportProperty property)
{
   WriteLabel(text, property);
}

void TSinkWriter::WriteNumericSensorCell(boost::shared_ptr<ICIMInstance> instance, TReportProperty)
{
   const std::string value = GetNumericSensorValue(instance, false);
   const bool isNumber = FitsInt(*instance, "CurrentReading") &&
                         FitsInt(*instance, "UnitModifier") &&
                         std::isfinite(std::strtod(value.c_str(), nullptr));
   // A number that wrapped on its way, or "inf", is no reading.
   WriteValue(isNumber ? value : "", "", false);
}

void TSinkWriter::WriteCadenzaRow(boost::shared_ptr<ICIMInstance> instance, TReportProperty score,
                                  TReportProperty type, TReportProperty cimType,
                                  TReportProperty propertyName, TReportProperty value,
                                  TReportProperty frequency, TReportProperty commonValues,
                                  TReportProperty commonFrequencies, int)
{
   fFlow->BeginTableRow();
   const std::string scoreText = ReadText(instance, score);
   TCell scoreCell;
   scoreCell.fText = scoreText;
   scoreCell.fKind = ECellKind::kScore;
   fFlow->AddCell(scoreCell);
   for (const TReportProperty& property : {type, cimType, propertyName, value, frequency})
      WriteValueCell(instance, property);

   const std::string values = ReadLines(instance, commonValues);
   const std::string frequencies = ReadLines(instance, commonFrequencies);
   TCell common;
   common.fText = values;
   common.fSecondText = frequencies;
   common.fKind = ECellKind::kFrequencies;
   fFlow->AddCell(common);
}

void TSinkWriter::PrepareCadenzaReport()
{
   fIsCadenzaPage = true;
}

void TSinkWriter::WriteRawDataCell(boost::shared_ptr<ICIMProperty> property)
{
   const std::string separator = GetArrayValueSeparatorText(TReportProperty::kSeparatorBlank);
   std::string text;
   if (!DumpBytes(property, text))
      text = GetValueFromProperty(property, separator, false);
   WriteValue(text, "", true);
}

void TSinkWriter::WriteDeclHeaderCell(boost::shared_ptr<const ICIMPropertyDecl> decl)
{
   WriteLabel(GetDisplayName(decl), TReportProperty());
}

void TSinkWriter::WritePropertyValueCell(boost::shared_ptr<ICIMInstance>,
                                         boost::shared_ptr<ICIMProperty> property)
{
   const std::string separator = GetArrayValueSeparatorText(TReportProperty::kSeparatorDefault);
   const std::string text = GetValueFromProperty(property, separator, false);
   WriteValue(text, GetValueFromProperty(property, separator, true), false);
}

void TSinkWriter::WriteRegisterValueCell(boost::shared_ptr<ICIMInstance>,
                                         boost::shared_ptr<ICIMProperty> property)
{
   const std::string separator = GetArrayValueSeparatorText(TReportProperty::kSeparatorDefault);
   WriteValue(GetValueFromProperty(property, separator, false), "", true);
}

void TSinkWriter::WriteCadenzaHeader()
{
   fFlow->WriteNote(
      "The bar shows the score on a scale to 100. Beside each common value stands how frequent it "
      "is.");
}

std::string TSinkWriter::GetArrayValueSeparatorText(TReportProperty::ArrayValueSeparator separator)
{
   return GetSeparatorText(separator);
}

std::string TSinkWriter::EncodeValueText(std::string text)
{
   return text;
}

void TSinkWriter::WriteLabel(const std::string& label, const TReportProperty& property)
{
   TCell cell;
   cell.fText = label;
   cell.fIsLabel = true;
   fFlow->AddCell(cell);
   fFlow->SetColumnWidth(TReportParameters::ConvertPercent(property.GetColumnWidth()));
}

void TSinkWriter::WriteValue(const std::string& text, const std::string& untranslated,
                             bool isMonospaced, ESeverity severity)
{
   TCell cell;
   cell.fSeverity = severity;
   cell.fText = text;
   cell.fSecondText = GetShownSecondText(text, untranslated);
   cell.fMonospaced = isMonospaced;
   fFlow->AddCell(cell);
}

std::string TSinkWriter::ReadText(const boost::shared_ptr<ICIMInstance>& instance,
                                  const TReportProperty& property)
{
   return GetPropertyValue(instance, property.GetProperty(), ", ");
}

/// The elements of an array, a line each.
std::string TSinkWriter::ReadLines(const boost::shared_ptr<ICIMInstance>& instance,
                                   const TReportProperty& property)
{
   return GetPropertyValue(instance, property.GetProperty(), "\n");
}
