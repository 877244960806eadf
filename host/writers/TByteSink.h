#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "QSXExport.h"
#include "readers/Compression.h"

namespace NZANQSX20 {

/// Where the bytes of a written collection go, from the first to the last.
class QSX_API TByteSink
{
public:
   virtual ~TByteSink() = default;

   /// Throws: std::system_error where the bytes cannot be written.
   virtual void Write(std::string_view bytes) = 0;

   /// Writes what is held back; nothing is written after it. Throws: as Write does.
   virtual void Finish() {}
};

/// An open file, a pipe, a terminal. Owner: the descriptor stays the caller's.
class QSX_API TDescriptorBytes : public TByteSink
{
public:
   /// name is what an error tells.
   TDescriptorBytes(int descriptor, std::string name);

   void Write(std::string_view bytes) override;

private:
   int fDescriptor;
   std::string fName;
};

/// A text in memory. Owner: the text stays the caller's.
class QSX_API TTextBytes : public TByteSink
{
public:
   explicit TTextBytes(std::string& text) : fText(text) {}

   void Write(std::string_view bytes) override { fText += bytes; }

private:
   std::string& fText;
};

/// A sink that hands on what it is given compressed, or as it is for kNone.
/// Owner: the sink below stays the caller's; Finish finishes it, too.
QSX_API std::unique_ptr<TByteSink> Compress(ECompression compression, TByteSink& below);

}  // namespace NZANQSX20
