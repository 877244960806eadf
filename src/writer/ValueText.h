#pragma once

#include <string>

#include <boost/function.hpp>

#include "definitions/TReportParameters.h"
#include "writer/StoreWalk.h"

/// How properties become the text of cells, shared by all writers.

/// Turns the properties of one column into text.
///
/// Owner: keeps the declaration that it saw last, so that a column of date-times looks their
///        qualifier up once and not for every cell.
class TValueText
{
public:
   /// Makes a text of the store safe for the writer's format.
   using TEncoder = boost::function<std::string(std::string)>;

   enum EDateTimeRule
   {
      kQualifierOptional,  // a date-time is told whatever its declaration says
      kQualifierRequired   // a date-time without the qualifier has no text
   };

   explicit TValueText(TEncoder encode, EDateTimeRule dateTimeRule)
      : fEncode(std::move(encode)), fDateTimeRule(dateTimeRule)
   {}

   /// The text of a property; raw gives the untranslated one.
   ///
   /// Shape:   the elements of an array are joined by the separator; raw gives none of them.
   /// Missing: the empty text for an empty handle and whenever the store fails.
   std::string Make(const boost::shared_ptr<ICIMProperty>& property, const std::string& separator,
                    bool raw);

   /// The texts of all properties, joined by the same separator.
   std::string Make(const TProperties& properties, const std::string& separator, bool raw);

private:
   std::string MakeDateTime(ICIMProperty& property, bool raw);
   std::string MakeArray(ICIMProperty& property, const std::string& separator);
   int AskForQualifier(ICIMProperty& property);

   TEncoder fEncode;
   EDateTimeRule fDateTimeRule;
   boost::shared_ptr<const ICIMPropertyDecl> fLastDecl;
   /// The status of the lookup in that declaration, 0 when the qualifier is there.
   int fLastStatus = 0;
};

/// The text of values as that writer makes them safe. Owner: the writer stays the caller's.
template <typename TWriterType>
TValueText MakeValueText(TWriterType& writer, TValueText::EDateTimeRule dateTimeRule)
{
   return TValueText(
      [&writer](std::string text) { return writer.EncodeValueText(std::move(text)); },
      dateTimeRule);
}

/// A date-time, or each of an array followed by one blank, the last one too.
/// Missing: the empty text for a null. Throws: TQSXException for a value of another type.
std::string MakeDateTimeText(const TCIMValue& value);

/// The label that a declaration gives, "Value" for an empty handle.
/// Throws: TQSXException of any status but "not found".
std::string MakeDisplayName(const boost::shared_ptr<const ICIMPropertyDecl>& decl);

/// The label of a column: the override, else what the class that holds the property declares, else
/// the property's name.
/// Throws: TQSXException of any status but "not found".
std::string MakeHeaderLabel(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                            ICIMClass& cimClass, const TReportParameters::TReportProperty& property,
                            const TContext& context);
