#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/TMemoryStore.h"
#include "writers/TByteSink.h"

namespace NZANQSX20 {

/// How a collection is written.
struct TCollectionForm
{
   bool fIsXML = false;
   ECompression fCompression = ECompression::kNone;
};

/// The form that the ending of a name asks for: ".mof" or ".xml", each also with ".gz" or ".zst".
/// Missing: false for any other name; the form is then left alone.
QSX_API bool FindCollectionForm(std::string_view name, TCollectionForm& form);

/// All endings, for messages.
constexpr const char* kCollectionEndings = ".mof or .xml, each also with .gz or .zst";

/// Writes the store in that form and finishes the sink.
///
/// Shape:  the sentences that come back tell what the form says in another way than the store.
/// Throws: TWriteError; what the sink throws.
QSX_API std::vector<std::string> WriteCollection(const TMemoryStore& store,
                                                 const TCollectionForm& form, TByteSink& sink);

}  // namespace NZANQSX20
