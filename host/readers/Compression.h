#pragma once

namespace NZANQSX20 {

/// How the bytes of a file are compressed.
enum class ECompression
{
   kNone,
   kGzip,
   kZstandard
};

}  // namespace NZANQSX20
