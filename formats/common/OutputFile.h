#pragma once

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

/// An output file could not be created, written or read back.
/// what() names the file and the system's reason: "cannot write out/cv.html: No space left on
/// device".
class TOutputError : public std::system_error
{
public:
   TOutputError(int errorNumber, const std::string& path)
      : std::system_error(errorNumber, std::generic_category(), "cannot write " + path)
   {}
};

/// A file written through one buffer.
///
/// Owner:  the descriptor. The destructor closes without a report: call Close where the content
///         matters.
/// Throws: TOutputError, from every operation that reaches the file.
class TOutputFile
{
public:
   /// Creates the file or empties it. A symbolic link at its place is an error.
   explicit TOutputFile(const std::string& path);
   /// A file without a name in that folder, gone with this object; CopyFrom reads it.
   static TOutputFile MakeTemporary(const std::string& directory);

   TOutputFile(TOutputFile&& other) noexcept;
   TOutputFile& operator=(TOutputFile&&) = delete;
   ~TOutputFile();

   void Write(std::string_view bytes)
   {
      if (bytes.size() > kBufferSize - fUsed)
         return WriteThrough(bytes);
      // An empty view may have no address, which memcpy must not be given.
      if (!bytes.empty())
         std::memcpy(fBuffer.get() + fUsed, bytes.data(), bytes.size());
      fUsed += bytes.size();
   }

   /// Appends a run of bytes that the other file has.
   void CopyFrom(TOutputFile& other, std::uint64_t offset, std::uint64_t length);

   /// Reads a run of bytes of a temporary file.
   void ReadBack(std::uint64_t offset, char* bytes, std::size_t count);

   /// Bytes written so far.
   std::uint64_t GetSize() const { return fFlushed + fUsed; }

   void Close();

private:
   TOutputFile(int descriptor, std::string path);

   void Flush();
   void WriteThrough(std::string_view bytes);
   void WriteToFile(const char* bytes, std::size_t count);
   std::size_t ReadAt(std::uint64_t offset, char* bytes, std::size_t count);

   static constexpr std::size_t kBufferSize = 256 * 1024;

   int fDescriptor;
   std::string fPath;
   std::unique_ptr<char[]> fBuffer;
   std::size_t fUsed = 0;
   std::uint64_t fFlushed = 0;
};
