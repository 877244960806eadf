#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "readers/TCollectionBuilder.h"
#include "readers/TSourceText.h"

namespace NZANQSX20 {

/// Gives the file that an include names, as seen from the including file. Missing: null when that
/// file was read before. Throws: TReadError where the file cannot be read or must not be.
using TIncludeOpener = std::function<std::shared_ptr<TSourceText>(
   const TSource& including, std::size_t mark, std::string_view name)>;

/// `object ref Name;` declares a reference to instances of any class.
constexpr const char* kAnyClass = "object";

/// Reads a MOF text and what it includes into the builder.
///
/// Owner:  the text is shared with the store where values are kept as views of it.
/// Throws: TReadError at the first thing that is no MOF.
void ReadMOF(std::shared_ptr<TSourceText> source, TCollectionBuilder& builder,
             const TIncludeOpener& openInclude);

}  // namespace NZANQSX20
