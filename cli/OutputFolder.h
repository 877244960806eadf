#pragma once

#include <sys/types.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class TInterruptCleanup;

/// The folder that a command writes: it appears whole or not at all.
///
/// Shape:  work goes into a staging folder beside the target, which only its owner can enter;
///         Publish moves it into place in one step. Without Publish the target stays as it was.
/// Throws: TCommandFailure that names the folder and the system's reason, exit code 4.
class TOutputFolder
{
public:
   /// Looks at the target and changes nothing. A folder that is not empty needs force, and is then
   /// replaced whole. Refused in any case: a symbolic link, what is no folder, and a folder that
   /// holds the working directory or one of the inputs.
   TOutputFolder(const std::string& target, bool force, const std::vector<std::string>& inputs);
   /// Removes the staging folder.
   ~TOutputFolder();

   TOutputFolder(const TOutputFolder&) = delete;
   TOutputFolder& operator=(const TOutputFolder&) = delete;

   /// Makes the staging folder, and the folders above the target that are missing. An interrupt
   /// removes it from here on.
   void Stage();

   bool IsStaged() const { return !fStaging.empty(); }

   /// The staging folder, with a subfolder of that name where one is asked for.
   std::string GetWorkFolder(const std::string& subfolder);

   /// Moves the staging folder to the target's place.
   void Publish();

   bool HasFile(const std::string& subfolder, const std::string& name) const;

   /// Moves one file of a failed run to its place in the target, whose other content stays.
   void PublishFile(const std::string& subfolder, const std::string& name);

   /// The path as the user gave it.
   const std::string& GetTarget() const { return fTarget; }

   /// The message with the target in place of the staging folder.
   std::string NameTarget(std::string message) const;

private:
   void CheckParent(const std::filesystem::path& parent) const;
   void CheckTarget(bool force);
   void CheckInputs(const std::vector<std::string>& inputs) const;
   void MakeParents(const std::filesystem::path& folder);
   void SwapWithTarget();
   [[noreturn]] void Fail(const std::string& what, int error) const;

   std::string fTarget;
   /// The target's place with all links of the folders above it resolved.
   std::string fPlace;
   bool fTargetExists = false;
   std::string fStaging;
   /// That the published folder gets.
   mode_t fMode = 0;
   /// The folders above the target that were missing, from the top; a failed run takes them away.
   std::vector<std::string> fMadeParents;
   std::unique_ptr<TInterruptCleanup> fCleanup;
};
