#include "store/StoredPath.h"

#include <string_view>

#include "TCIMReference.h"
#include "store/ObjectPath.h"
#include "store/TStoredClass.h"
#include "store/ValueText.h"

namespace NZANQSX20 {

using TType = TCIMValue::TCIMType;

namespace {

/// Nested quotes double their backslashes with each level, so a path of paths is kept shallow.
constexpr int kMaxDepth = 4;
constexpr int kMaxNestedPaths = 64;

class TPathText
{
public:
   void AppendKeys(std::string& path, const TStoredInstance& instance, int depth)
   {
      const std::vector<TSlot>& keys = instance.GetClass().GetKeySlots();
      const bool isTooFar = depth > kMaxDepth || fNestedPathsLeft < 0;
      if (keys.empty() || isTooFar) {
         path += '.';
         path += kNumberKey;
         path += '=';
         AppendUnsigned(path, instance.GetNumber());
         return;
      }
      bool isFirst = true;
      for (const TSlot key : keys) {
         AppendKey(path, isFirst, instance, key, depth);
         isFirst = false;
      }
   }

   void AppendText(std::string& text, const TStoredValue& value, int depth)
   {
      if (value.IsNull())
         return;
      if (value.IsArray()) {
         for (std::uint32_t i = 0; i < value.GetCount(); ++i) {
            if (i > 0)
               text += ',';
            AppendText(text, value.GetElements()[i], depth);
         }
         return;
      }
      const TStoredValue::ECIMType type = value.GetType();
      if (const TStoredInstance* target = value.GetTarget()) {
         --fNestedPathsLeft;
         text += target->GetClass().GetName();
         AppendKeys(text, *target, depth);
      } else if (type == TType::kString || type == TType::kReference)
         text += value.GetText();
      else if (type == TType::kDateTime)
         text += value.GetDateTime().ToString();
      else if (type == TType::kBoolean)
         text += GetBooleanText(value.GetUnsigned() != 0);
      else if (type == TType::kChar16)
         AppendChar16(text, value.GetUnsigned());
      else if (IsRealType(type))
         AppendReal(text, value.GetReal(), type);
      else if (IsSignedType(type))
         AppendSigned(text, value.GetSigned());
      else
         AppendUnsigned(text, value.GetUnsigned());
   }

private:
   void AppendKey(std::string& path, bool isFirst, const TStoredInstance& instance, TSlot key,
                  int depth)
   {
      const TStoredClass& storedClass = instance.GetClass();
      const std::string& name = storedClass.GetSlotName(key);
      const TStoredValue* value = instance.Find(key);
      if (value == nullptr) {
         bool isQuoted = false;
         const std::string text = GetKeyText(storedClass.FindProperty(key)->GetDefault(), isQuoted);
         AppendKeyBinding(path, isFirst, name, text, isQuoted);
         return;
      }
      if (value->GetType() == TType::kString && !value->IsArray() && !value->IsNull()) {
         AppendKeyBinding(path, isFirst, name, value->GetText(), true);
         return;
      }
      std::string text;
      AppendText(text, *value, depth + 1);
      if (value->IsNull())
         text = "NULL";
      const bool isQuoted =
         !value->IsNull() && (value->IsArray() || IsQuotedType(value->GetType()));
      AppendKeyBinding(path, isFirst, name, text, isQuoted);
   }

   int fNestedPathsLeft = kMaxNestedPaths;
};

}  // namespace

void AppendKeys(std::string& path, const TStoredInstance& instance)
{
   TPathText().AppendKeys(path, instance, 0);
}

void AppendText(std::string& text, const TStoredValue& value)
{
   TPathText().AppendText(text, value, 0);
}

}  // namespace NZANQSX20
