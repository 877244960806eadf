#include "readers/CollectionLoader.h"

#include <memory>
#include <utility>

#include <fmt/format.h>
#include <boost/make_shared.hpp>

#include "readers/CIMXMLReader.h"
#include "readers/Decompression.h"
#include "readers/MOFReader.h"
#include "readers/TByteSource.h"
#include "readers/TInputFiles.h"

namespace NZANQSX20 {

namespace {

/// A file that is open, its compression taken off.
struct TInput
{
   std::unique_ptr<TPeekableBytes> fBytes;
   ECompression fCompression = ECompression::kNone;
   std::uint64_t fSizeHint = 0;
};

TInput Uncompress(TOpenedFile file, const std::string& name, const TReadLimits& limits)
{
   auto stored = std::make_unique<TPeekableBytes>(std::move(file.fBytes));
   const ECompression compression = FindCompression(stored->Peek());
   if (compression == ECompression::kNone)
      return {std::move(stored), compression, file.fSize};
   auto content = Decompress(compression, std::move(stored), name, limits);
   return {std::make_unique<TPeekableBytes>(std::move(content)), compression, 0};
}

/// Whether the first character of a text in UTF-8 or UTF-16 opens a tag: no MOF begins so.
bool IsXML(std::string_view start)
{
   constexpr std::string_view kLittleEndian = "\xFF\xFE";
   constexpr std::string_view kBigEndian = "\xFE\xFF";
   for (const std::string_view mark : {kByteOrderMark, kLittleEndian, kBigEndian})
      if (start.substr(0, mark.size()) == mark)
         start.remove_prefix(mark.size());
   const std::size_t first = start.find_first_not_of(std::string_view(" \t\r\n\0", 5));
   return first != std::string_view::npos && start[first] == '<';
}

class TLoading
{
public:
   explicit TLoading(const TReadLimits& limits)
      : fLimits(limits),
        fFiles(limits),
        fStore(boost::make_shared<TMemoryStore>()),
        fBuilder(fStore, limits)
   {}

   void ReadPath(const std::string& path)
   {
      if (path == "-") {
         ReadInput(kStandardInputName, OpenStandardInput(fLimits), false);
         return;
      }
      const std::vector<std::string> files = fFiles.List(path);
      const bool isFolder = files.size() != 1 || files.front() != path;
      for (const std::string& file : files) {
         if (isFolder && !TInputFiles::IsReadable(file))
            fWarnings.push_back(
               FormatPlaced(file, {}, "warning: cannot be opened; it is passed over"));
         else if (fFiles.Begin(file))
            ReadInput(file, OpenFile(file, fLimits), true);
      }
   }

   void ReadText(const std::string& name, std::string text)
   {
      ReadInput(name, OpenText(std::move(text)), false);
   }

   TCollection Finish()
   {
      fBuilder.Finish();
      TCollection collection;
      collection.fStore = fStore;
      collection.fFiles = std::move(fFacts);
      collection.fCounts = fBuilder.GetCounts();
      collection.fWarnings = std::move(fWarnings);
      const std::vector<std::string>& warnings = fBuilder.GetWarnings();
      collection.fWarnings.insert(collection.fWarnings.end(), warnings.begin(), warnings.end());
      return collection;
   }

private:
   /// mayInclude: whether the input lies in a folder, so that an include can be relative to it.
   void ReadInput(const std::string& name, TOpenedFile file, bool mayInclude)
   {
      const TReadCounts before = fBuilder.GetCounts();
      TInput input = Uncompress(std::move(file), name, fLimits);
      TFileFacts facts;
      facts.fName = name;
      facts.fCompression = GetCompressionName(input.fCompression);
      if (IsXML(input.fBytes->Peek())) {
         facts.fFormat = "CIM-XML";
         ReadCIMXML(*input.fBytes, name, fBuilder);
      } else {
         facts.fFormat = "MOF";
         ReadMOF(ReadSource(name, input), fBuilder,
                 [this, mayInclude](const TSource& including, std::size_t mark,
                                    std::string_view included) {
                    if (!mayInclude)
                       including.Fail(mark,
                                      "expected no include in a text that lies in no folder, "
                                      "found one");
                    return OpenInclude(including, mark, included);
                 });
      }
      const TReadCounts& after = fBuilder.GetCounts();
      facts.fClasses = after.fClassesRead - before.fClassesRead;
      facts.fInstances = after.fInstancesRead - before.fInstancesRead;
      fFacts.push_back(std::move(facts));
   }

   static std::shared_ptr<TSourceText> ReadSource(const std::string& name, TInput& input)
   {
      return std::make_shared<TSourceText>(
         name, ConvertToUtf8(name, ReadAll(*input.fBytes, input.fSizeHint)));
   }

   std::shared_ptr<TSourceText> OpenInclude(const TSource& including, std::size_t mark,
                                            std::string_view name)
   {
      const std::string path = fFiles.Resolve(including, mark, name);
      if (!fFiles.Begin(path))
         return nullptr;
      TInput input = Uncompress(OpenFile(path, fLimits), path, fLimits);
      return ReadSource(path, input);
   }

   const TReadLimits fLimits;
   TInputFiles fFiles;
   boost::shared_ptr<TMemoryStore> fStore;
   TCollectionBuilder fBuilder;
   std::vector<TFileFacts> fFacts;
   std::vector<std::string> fWarnings;
};

}  // namespace

TCollection LoadCollection(const std::vector<std::string>& paths, const TReadLimits& limits)
{
   TLoading loading(limits);
   for (const std::string& path : paths)
      loading.ReadPath(path);
   TCollection collection = loading.Finish();
   if (!paths.empty() && collection.fCounts.fClassesRead + collection.fCounts.fInstancesRead == 0)
      collection.fWarnings.push_back(FormatPlaced(fmt::format("{}", fmt::join(paths, ", ")), {},
                                                  "warning: it holds no class and no instance"));
   return collection;
}

TCollection LoadCollectionText(const std::string& name, std::string text, const TReadLimits& limits)
{
   TLoading loading(limits);
   loading.ReadText(name, std::move(text));
   return loading.Finish();
}

}  // namespace NZANQSX20
