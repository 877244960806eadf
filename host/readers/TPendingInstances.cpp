#include "readers/TPendingInstances.h"

#include <cstring>

namespace NZANQSX20 {

namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 20;

/// Writes numbers and texts one behind the other.
class TRecordWriter
{
public:
   TRecordWriter(std::string& block, const TSource& source) : fBlock(block), fSource(source) {}

   void PutNumber(std::uint64_t number)
   {
      for (; number >= 0x80; number >>= 7)
         fBlock += static_cast<char>((number & 0x7F) | 0x80);
      fBlock += static_cast<char>(number);
   }

   void PutText(std::string_view text)
   {
      PutNumber(text.size());
      fBlock += text;
   }

   void PutMark(std::size_t mark) { PutNumber(TPlacedSource::MakeMark(fSource.Locate(mark))); }

   void Put(const TValuesDraft& values)
   {
      PutNumber(values.fFirst);
      PutNumber(values.fCount);
      PutNumber((values.fIsArray ? 1U : 0U) | (values.fIsGiven ? 2U : 0U));
   }

   void Put(const TValueDraft& value)
   {
      PutNumber(value.fForm);
      PutText(value.fText);
      PutMark(value.fMark);
   }

   void Put(const TPropertyDraft& property)
   {
      PutText(property.fName);
      PutMark(property.fMark);
      PutNumber(property.fType);
      PutNumber((property.fIsArray ? 1U : 0U) | (property.fIsKey ? 2U : 0U));
      PutText(property.fReferenceClass);
      Put(property.fValues);
      PutNumber(property.fFirstQualifier);
      PutNumber(property.fQualifierCount);
   }

   void Put(const TQualifierDraft& qualifier)
   {
      PutText(qualifier.fName);
      PutMark(qualifier.fMark);
      PutNumber(qualifier.fType);
      Put(qualifier.fValues);
   }

   template <typename T>
   void PutAll(const std::vector<T>& items)
   {
      PutNumber(items.size());
      for (const T& item : items)
         Put(item);
   }

private:
   std::string& fBlock;
   const TSource& fSource;
};

/// Reads what TRecordWriter wrote; texts are views of the block.
class TRecordReader
{
public:
   explicit TRecordReader(std::string_view block) : fRest(block) {}

   bool IsAtEnd() const { return fRest.empty(); }

   std::uint64_t GetNumber()
   {
      std::uint64_t number = 0;
      for (unsigned shift = 0;; shift += 7) {
         const auto byte = static_cast<unsigned char>(fRest.front());
         fRest.remove_prefix(1);
         number |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
         if (byte < 0x80)
            return number;
      }
   }

   std::string_view GetText()
   {
      const std::size_t size = GetNumber();
      const std::string_view text = fRest.substr(0, size);
      fRest.remove_prefix(size);
      return text;
   }

   void Get(TValuesDraft& values)
   {
      values.fFirst = static_cast<std::uint32_t>(GetNumber());
      values.fCount = static_cast<std::uint32_t>(GetNumber());
      const std::uint64_t flags = GetNumber();
      values.fIsArray = (flags & 1) != 0;
      values.fIsGiven = (flags & 2) != 0;
   }

   void Get(TValueDraft& value)
   {
      value.fForm = static_cast<TValueDraft::EForm>(GetNumber());
      value.fText = GetText();
      value.fMark = GetNumber();
   }

   void Get(TPropertyDraft& property)
   {
      property.fName = GetText();
      property.fMark = GetNumber();
      property.fType = static_cast<TCIMValue::ECIMType>(GetNumber());
      const std::uint64_t flags = GetNumber();
      property.fIsArray = (flags & 1) != 0;
      property.fIsKey = (flags & 2) != 0;
      property.fReferenceClass = GetText();
      Get(property.fValues);
      property.fFirstQualifier = static_cast<std::uint32_t>(GetNumber());
      property.fQualifierCount = static_cast<std::uint32_t>(GetNumber());
   }

   void Get(TQualifierDraft& qualifier)
   {
      qualifier.fName = GetText();
      qualifier.fMark = GetNumber();
      qualifier.fType = static_cast<TCIMValue::ECIMType>(GetNumber());
      Get(qualifier.fValues);
   }

   template <typename T>
   void GetAll(std::vector<T>& items)
   {
      items.resize(GetNumber());
      for (T& item : items)
         Get(item);
   }

private:
   std::string_view fRest;
};

}  // namespace

void TPendingInstances::Push(const TObjectDraft& draft, const TSource& source)
{
   if (fBlocks.empty() || fBlocks.back().size() >= kBlockBytes)
      fBlocks.emplace_back();
   TRecordWriter record(fBlocks.back(), source);
   record.PutNumber(FindSource(source));
   record.PutText(draft.fClassName);
   record.PutMark(draft.fMark);
   record.PutText(draft.fAlias);
   record.PutMark(draft.fAlias.empty() ? draft.fMark : draft.fAliasMark);
   record.PutNumber(draft.fIsOpen ? 1 : 0);
   record.PutAll(draft.fValues);
   record.PutAll(draft.fQualifiers);
   record.PutAll(draft.fProperties);
}

void TPendingInstances::Replay(
   TObjectDraft& draft, const std::function<void(const TObjectDraft&, const TSource&)>& callback)
{
   for (; !fBlocks.empty(); fBlocks.pop_front()) {
      TRecordReader record(fBlocks.front());
      while (!record.IsAtEnd()) {
         draft.Clear();
         const TSource& source = *fSources[record.GetNumber()];
         draft.fClassName = record.GetText();
         draft.fMark = record.GetNumber();
         draft.fAlias = record.GetText();
         draft.fAliasMark = record.GetNumber();
         draft.fIsOpen = record.GetNumber() != 0;
         record.GetAll(draft.fValues);
         record.GetAll(draft.fQualifiers);
         record.GetAll(draft.fProperties);
         callback(draft, source);
      }
   }
}

std::uint64_t TPendingInstances::FindSource(const TSource& source)
{
   const auto found = fSourceNumbers.emplace(source.GetName(), fSources.size());
   if (found.second)
      fSources.push_back(std::make_unique<TPlacedSource>(source.GetName()));
   return found.first->second;
}

}  // namespace NZANQSX20
