#pragma once

#include <map>
#include <string>
#include <vector>

#include <boost/make_shared.hpp>
#include <boost/weak_ptr.hpp>

#include "writer/TWriter.h"

/// The kinds of a finding, bits of TInstanceDelta::fDeltaType.
enum EDeltaType : unsigned int
{
   kDeltaMissing = 1,
   kDeltaUnique = 2,
   kDeltaProperty = 4
};

/// One report class of a comparison with its records, and the associated classes below it.
///
/// Owner: a class owns its records and children; both refer back without owning, so that a report
/// gives
///        its memory back when it ends.
struct TWriter::TClassDelta
{
   boost::shared_ptr<ICIMNamespace> fNamespace;
   /// The class that this one was reached from; empty at the top level.
   boost::weak_ptr<TClassDelta> fBackAssociatedClass;
   std::vector<boost::shared_ptr<TClassDelta>> fAssociatedClasses;
   /// Owner: the definition of the running report.
   TReportClass* fReportClass = nullptr;
   bool fKeyNamesKnown = false;
   std::vector<std::string> fKeyNames;
   /// The records by object path, in byte order of the paths.
   std::map<std::string, boost::shared_ptr<TInstanceDelta>> fInstances;

   /// Gives a copy of the reference. The key names that it collects are consulted by nobody.
   TCIMReference ConvertReference(TCIMReference& reference, TContext context);
};

/// One compared instance that the report has to show.
struct TWriter::TInstanceDelta
{
   TInstanceDelta(const boost::shared_ptr<TClassDelta>& classDelta, std::string name)
      : fClassDelta(classDelta), fName(std::move(name))
   {}

   boost::weak_ptr<TClassDelta> fClassDelta;
   /// The object path.
   std::string fName;
   /// Records of child classes shown below this one, in order of discovery.
   std::vector<boost::shared_ptr<TInstanceDelta>> fAssociatedDeltas;
   /// By association property: the value text in each namespace.
   std::map<std::string, std::vector<std::string>> fAssocProperties;
   /// By namespace; an empty handle where the instance is unknown. May be shorter than the labels.
   std::vector<boost::shared_ptr<ICIMInstance>> fInstances;
   /// The findings; empty for a record that only an association pass made.
   std::vector<boost::shared_ptr<ICIMInstance>> fDeltas;
   /// The bits of all findings, and inherited ones.
   unsigned int fDeltaType = 0;

   /// The instance in that namespace. Missing: an empty handle.
   boost::shared_ptr<ICIMInstance> GetInstance(std::size_t namespaceIndex) const;

   /// The lowest namespace that has the instance. Missing: the number of entries.
   std::size_t FindFirstNamespace() const;
};

/// What the files of the comparison share: reading findings and resolving paths.
namespace Delta {

/// A context that names a namespace.
TContext NamespaceContext(std::size_t namespaceIndex);

/// The value of a finding's property. Throws: what the read throws.
TCIMValue ReadValue(const boost::shared_ptr<ICIMInstance>& finding, const std::string& property);
unsigned int ReadType(const boost::shared_ptr<ICIMInstance>& finding);

/// "NamespaceIndices" without those at or beyond the number of namespaces.
std::vector<std::size_t> ReadNamespaceIndices(const boost::shared_ptr<ICIMInstance>& finding,
                                              std::size_t namespaceCount);

/// The instance at a path in one namespace. Missing: an empty handle.
boost::shared_ptr<ICIMInstance> ResolveInstance(
   const boost::shared_ptr<ICIMNamespace>& cimNamespace, const std::string& path,
   std::size_t namespaceIndex);

}  // namespace Delta
