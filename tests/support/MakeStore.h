#pragma once

#include <string>

#include <boost/shared_ptr.hpp>

#include "ICIMNamespace.h"
#include "readers/CollectionLoader.h"
#include "store/TMemoryStore.h"

/// The store that a MOF text makes: MakeStore(R"(class A { [Key] string Name; };)").
///
/// Throws: TReadError, whose text names the line of what is wrong.
inline boost::shared_ptr<NZANQSX20::TMemoryStore> MakeStore(const std::string& mof)
{
   return NZANQSX20::LoadCollectionText("test.mof", mof).fStore;
}

/// The namespace over the store that a MOF text makes.
inline boost::shared_ptr<NZANQSX20::ICIMNamespace> MakeNamespace(const std::string& mof)
{
   return NZANQSX20::OpenNamespace(MakeStore(mof));
}
