#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "TFleet.h"

/// A manifest.json that is none of a report, or none that can be read. what() says why.
class TManifestError : public std::runtime_error
{
public:
   using std::runtime_error::runtime_error;
};

/// What a manifest says, before it is compared with others.
struct TReadManifest
{
   TFleetMachine fMachine;

   struct TLevel
   {
      std::string fName;
      std::string fVersion;
   };

   std::vector<TLevel> fFirmware;
};

/// Reads the manifest of a report. It may be anybody's: only a regular file is opened, what is
/// large is refused, and nothing in it is taken for granted.
///
/// Throws: TManifestError.
TReadManifest ReadManifest(const std::string& path);
