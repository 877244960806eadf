#include "writer/ValueText.h"

#include <algorithm>
#include <cstdlib>

#include "writer/TWriter.h"

namespace {

constexpr const char* kEllipsis = "...";
/// Characters that the short form of TruncString leaves.
constexpr int kTruncatedLength = 54;
constexpr const char* kDigits = "0123456789ABCDEF";

bool IsNumberBase(int base)
{
   return base >= 2 && base <= 16;
}

/// Puts a backslash ahead of each of the characters.
void EscapeCharacter(std::string& text, char character)
{
   for (std::size_t i = text.find(character); i != std::string::npos; i = text.find(character, i)) {
      text.insert(i, 1, '\\');
      i += 2;
   }
}

void RemoveCharacter(std::string& text, char character)
{
   text.erase(std::remove(text.begin(), text.end(), character), text.end());
}

/// The status of looking for the qualifier of date-times; 0 when it is there, whatever it says.
int LookUpQualifier(const boost::shared_ptr<const ICIMPropertyDecl>& decl)
{
   try {
      bool found = false;
      decl->GetQualifier("NOTIMEPRECISION", found, {});
      return 0;
   } catch (const TQSXException& failure) {
      return failure.fStatusCode.fStatusCode;
   }
}

}  // namespace

std::string TValueText::Make(const boost::shared_ptr<ICIMProperty>& property,
                             const std::string& separator, bool raw)
{
   if (!property)
      return {};
   try {
      if (property->GetType({}) == TCIMValue::TCIMType::kDateTime)
         return MakeDateTime(*property, raw);
      if (property->IsArray({}))
         return raw ? std::string() : MakeArray(*property, separator);
      return fEncode(raw ? property->GetRawValueString() : property->GetValueString());
   } catch (const TQSXException&) {
      return {};
   }
}

std::string TValueText::Make(const TProperties& properties, const std::string& separator, bool raw)
{
   if (properties.size() == 1)
      return Make(properties.front(), separator, raw);
   std::string text;
   for (std::size_t i = 0; i < properties.size(); ++i) {
      if (i > 0)
         text += separator;
      text += Make(properties[i], separator, raw);
   }
   return text;
}

std::string TValueText::MakeDateTime(ICIMProperty& property, bool raw)
{
   const int status = AskForQualifier(property);
   const bool isMissing = status == kStatusNotFound;
   if (status != 0 && !(isMissing && fDateTimeRule == kQualifierOptional))
      return {};
   return MakeDateTimeText(raw ? property.GetValue() : property.GetValue(TContext()));
}

std::string TValueText::MakeArray(ICIMProperty& property, const std::string& separator)
{
   std::string text;
   bool isFirst = true;
   for (std::string& item : property.GetValueStrings()) {
      if (!isFirst)
         text += separator;
      isFirst = false;
      text += fEncode(std::move(item));
   }
   return text;
}

int TValueText::AskForQualifier(ICIMProperty& property)
{
   try {
      const boost::shared_ptr<const ICIMPropertyDecl> decl = property.GetDecl({});
      if (!decl || decl != fLastDecl) {
         fLastStatus = LookUpQualifier(decl);
         fLastDecl = decl;
      }
      return fLastStatus;
   } catch (const TQSXException& failure) {
      return failure.fStatusCode.fStatusCode;
   }
}

std::string MakeDateTimeText(const TCIMValue& value)
{
   if (value.IsNull())
      return {};
   if (!value.IsArray())
      return static_cast<TCIMDateTime>(value).ToUIString();
   std::string text;
   for (const TCIMValue& element : static_cast<const std::vector<TCIMValue>&>(value))
      text += static_cast<TCIMDateTime>(element).ToUIString() + ' ';
   return text;
}

std::string MakeDisplayName(const boost::shared_ptr<const ICIMPropertyDecl>& decl)
{
   if (!decl)
      return "Value";
   try {
      bool found = false;
      const auto qualifier = decl->GetQualifier("DisplayName", found, {});
      if (found)
         return static_cast<std::string>(qualifier->GetValue({}));
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
   }
   return decl->GetName({});
}

std::string MakeHeaderLabel(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                            ICIMClass& cimClass, const TReportParameters::TReportProperty& property,
                            const TContext& context)
{
   if (property.HasLabelOverride())
      return property.GetLabelOverride();
   const std::string name = property.GetProperty();
   try {
      boost::shared_ptr<const ICIMPropertyDecl> decl;
      if (!property.HasAssociationTarget())
         decl = cimClass.GetPropertyDecl(name, context);
      else if (const auto target = cimNamespace->GetClass(property.GetAssociationTarget(), context))
         decl = target->GetPropertyDecl(name, context);
      if (decl)
         return MakeDisplayName(decl);
   } catch (const TQSXException& failure) {
      RethrowUnlessNotFound(failure);
   }
   return name;
}

std::string TWriter::GetValuesFromProperties(TProperties properties, const std::string& separator,
                                             bool raw)
{
   return MakeValueText(*this, TValueText::kQualifierOptional).Make(properties, separator, raw);
}

std::string TWriter::GetValueFromProperty(boost::shared_ptr<ICIMProperty> property,
                                          std::string separator, bool raw)
{
   return MakeValueText(*this, TValueText::kQualifierOptional).Make(property, separator, raw);
}

std::string TWriter::GetDisplayName(boost::shared_ptr<const ICIMPropertyDecl> decl)
{
   return MakeDisplayName(decl);
}

std::string TWriter::EscapeString(std::string text)
{
   EscapeCharacter(text, '\\');
   EscapeCharacter(text, '"');
   RemoveCharacter(text, '\n');
   RemoveCharacter(text, '\r');
   return text;
}

std::string TWriter::TruncString(std::string text)
{
   return TruncString(std::move(text), kTruncatedLength);
}

std::string TWriter::TruncString(std::string text, int length)
{
   if (length < 0 || text.size() <= static_cast<std::size_t>(length))
      return text;
   // The dots come on top, so the result is longer than the limit.
   text.resize(static_cast<std::size_t>(length));
   return text + kEllipsis;
}

std::string TWriter::PadString(std::string text, int width, bool trimLeading)
{
   RemoveCharacter(text, '\n');
   RemoveCharacter(text, '\t');
   if (trimLeading)
      text.erase(0, text.find_first_not_of(' '));
   if (width >= 0 && text.size() < static_cast<std::size_t>(width)) {
      text.resize(static_cast<std::size_t>(width), ' ');
      return text;
   }
   return TruncString(std::move(text), width);
}

int TWriter::GetNumberInString(std::string& text)
{
   const std::size_t start = text.find_first_of("0123456789");
   if (start == std::string::npos)
      return 0;
   return static_cast<int>(std::strtol(text.c_str() + start, nullptr, 10));
}

int TWriter::GetLenOfInt(int value, int base)
{
   if (value < 0 || !IsNumberBase(base))
      return -1;
   int length = 1;
   while (value >= base) {
      value /= base;
      ++length;
   }
   return length;
}

std::string TWriter::IntToStr(int value, int base)
{
   const int length = GetLenOfInt(value, base);
   if (length < 0)
      return {};
   std::string text(static_cast<std::size_t>(length), '0');
   for (auto digit = text.rbegin(); digit != text.rend(); ++digit) {
      *digit = kDigits[value % base];
      value /= base;
   }
   return text;
}
