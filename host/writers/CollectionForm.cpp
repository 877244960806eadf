#include "writers/CollectionForm.h"

#include "writers/CIMXMLWriter.h"
#include "writers/MOFWriter.h"

namespace NZANQSX20 {

namespace {

bool TakeEnding(std::string_view& name, std::string_view ending)
{
   const bool hasEnding =
      name.size() >= ending.size() && name.substr(name.size() - ending.size()) == ending;
   if (hasEnding)
      name.remove_suffix(ending.size());
   return hasEnding;
}

}  // namespace

bool FindCollectionForm(std::string_view name, TCollectionForm& form)
{
   TCollectionForm found;
   if (TakeEnding(name, ".gz"))
      found.fCompression = ECompression::kGzip;
   else if (TakeEnding(name, ".zst"))
      found.fCompression = ECompression::kZstandard;
   found.fIsXML = TakeEnding(name, ".xml");
   if (!found.fIsXML && !TakeEnding(name, ".mof"))
      return false;
   form = found;
   return true;
}

std::vector<std::string> WriteCollection(const TMemoryStore& store, const TCollectionForm& form,
                                         TByteSink& sink)
{
   const std::unique_ptr<TByteSink> compressed = Compress(form.fCompression, sink);
   std::vector<std::string> notes;
   if (form.fIsXML)
      WriteCIMXML(store, *compressed);
   else
      notes = WriteMOF(store, *compressed);
   compressed->Finish();
   return notes;
}

}  // namespace NZANQSX20
