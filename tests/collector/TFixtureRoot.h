#pragma once

#include <string>

/// A root tree made of one text, in a folder of its own that goes with the object.
///
///    == /proc/stat                      a file, its content in the lines up to the next "=="
///    == /sys/class/net/eth0 -> ../../x  a symbolic link
///    == /etc/pipe fifo                  a named pipe
///    == /var/log/endless sparse         a file that is as good as endless
///    == /run/empty folder
///
/// A line "\" at the end of a content takes its last line end away; "\xNN" is a byte.
class TFixtureRoot
{
public:
   explicit TFixtureRoot(const std::string& text);
   /// Of tests/collector/NAME.tree.
   static std::string ReadTree(const std::string& name);
   ~TFixtureRoot();
   TFixtureRoot(const TFixtureRoot&) = delete;
   TFixtureRoot& operator=(const TFixtureRoot&) = delete;

   const std::string& GetPath() const { return fPath; }

private:
   std::string fPath;
};
