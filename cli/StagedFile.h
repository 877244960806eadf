#pragma once

#include <sys/types.h>

#include <memory>
#include <string>

class TInterruptCleanup;

/// A file that a command writes: it appears whole or not at all.
///
/// Shape:  what is written goes into a staging file beside the target, which only its owner can
///         read; Publish moves it into place in one step. Without Publish the target stays as it
///         was.
/// Throws: TCommandFailure that names the file and the system's reason, exit code 4.
class TStagedFile
{
public:
   /// Of a file made in the ordinary way: everybody's, less what the umask takes away.
   static constexpr mode_t kOrdinaryMode = 0666;
   /// The owner's alone, whatever the umask says.
   static constexpr mode_t kPrivateMode = 0600;

   /// Looks at the target and changes nothing. A file that exists needs force. Refused in any case:
   /// what is no regular file, a symbolic link among it.
   TStagedFile(const std::string& target, bool force, mode_t mode);
   /// Removes the staging file.
   ~TStagedFile();

   TStagedFile(const TStagedFile&) = delete;
   TStagedFile& operator=(const TStagedFile&) = delete;

   /// Makes the staging file. An interrupt removes it from here on; one file at a time can be
   /// watched so.
   void Stage();
   /// Makes the staging file without a watch, for what is written at one go.
   void StageUnwatched();

   int GetDescriptor() const { return fDescriptor; }

   /// The staging file, for who reads it back.
   const std::string& GetWorkPath() const { return fStaging; }

   void Publish();

   /// The path as the user gave it.
   const std::string& GetTarget() const { return fTarget; }

private:
   void CheckTarget(bool force);
   void Close();
   [[noreturn]] void Fail(const std::string& what, int error) const;

   std::string fTarget;
   mode_t fMode;
   bool fReplaces = false;
   std::string fStaging;
   int fDescriptor = -1;
   std::unique_ptr<TInterruptCleanup> fCleanup;
};
