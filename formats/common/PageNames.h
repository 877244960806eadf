#pragma once

#include <map>
#include <string>

/// File names for pages, made from link names that a collection may have chosen.
///
/// Shape: letters, digits, "_", "-" and ".", never a leading ".", at most 80 bytes, without an
///        extension; no name that some file system keeps for itself. A link name that has this
///        shape stays as it is. Names differ without regard to case, and one that is asked for
///        twice gets "-2", "-3". "~" is left to the writers, to number the parts of a page.
class TPageNames
{
public:
   /// Keeps a name for a page of the writer's own.
   void Reserve(const std::string& name);

   /// A name that no other call of this run got; the same calls give the same names.
   std::string Assign(const std::string& linkName);

private:
   /// The names taken, in lower case, each with the number that the next one of that name tries.
   std::map<std::string, unsigned> fTaken;
};
