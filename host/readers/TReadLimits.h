#pragma once

#include <cstddef>
#include <cstdint>

namespace NZANQSX20 {

/// How much a collection may ask for. Each bound is named in the error that it causes; the defaults
/// are far above any real collection and far below what would harm the machine.
struct TReadLimits
{
   /// Bytes of one input file as it is stored.
   std::uint64_t fFileBytes = std::uint64_t{4} << 30;
   /// Bytes of one input file once it is decompressed.
   std::uint64_t fExpandedBytes = std::uint64_t{4} << 30;
   /// Decompressed bytes per stored byte, asked beyond the first kFreeExpandedBytes.
   std::uint64_t fExpansionRatio = 250;
   /// Bytes of one text value.
   std::size_t fTextBytes = std::size_t{16} << 20;
   /// Bytes of the name of a class, property, qualifier or alias.
   std::size_t fNameBytes = 1024;
   /// Elements inside elements.
   std::size_t fDepth = 100;
   /// Files that include files.
   std::size_t fIncludeDepth = 32;
   /// Files of one collection, the included ones among them.
   std::size_t fFiles = 100'000;
   std::size_t fClasses = 1'000'000;
   std::size_t fInstances = 20'000'000;
   /// Properties of one class or instance; qualifiers of one declaration.
   std::size_t fProperties = 10'000;
   std::size_t fArrayItems = 1'000'000;
};

/// Expansion that is allowed whatever the ratio: small files of blanks compress very well.
constexpr std::uint64_t kFreeExpandedBytes = std::uint64_t{16} << 20;

}  // namespace NZANQSX20
