#pragma once

#include <string>
#include <vector>

#include "CIMStore.h"

/// Something that the collection says it could not have. Missing: empty texts.
struct TGap
{
   /// In plain words: "Drive health".
   std::string fSubject;
   /// A file or a program.
   std::string fSource;
   /// "not installed" and the like.
   std::string fReason;
   std::string fDetail;
   /// The classes that hold nothing or less because of it.
   std::vector<std::string> fClasses;
};

/// Missing: empty where the collection has no class for them, which most have not.
std::vector<TGap> ReadGaps(const boost::shared_ptr<ICIMNamespace>& cimNamespace);
