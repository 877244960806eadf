#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "readers/Compression.h"
#include "readers/TByteSource.h"
#include "readers/TReadLimits.h"

namespace NZANQSX20 {

/// Tells the compression from the first bytes of a file.
ECompression FindCompression(std::string_view start);

/// "gzip", "Zstandard", or the empty text.
const char* GetCompressionName(ECompression compression);

/// The content of a compressed file, decompressed while it is read; several members or frames one
/// behind the other are one content.
///
/// Throws: TReadError from Read where the data is damaged, cut off, or grows beyond the limits.
std::unique_ptr<TByteSource> Decompress(ECompression compression,
                                        std::unique_ptr<TByteSource> bytes, const std::string& name,
                                        const TReadLimits& limits);

}  // namespace NZANQSX20
