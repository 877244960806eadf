#pragma once

#include <string>
#include <vector>

#include <boost/shared_ptr.hpp>

#include "QSXExport.h"
#include "TCIMValue.h"

namespace NZANQSX20 {

class ICIMNamespace;

/// The log levels that the library uses.
enum ELogLevel : int
{
   kLogError = 0,         // an operation failed and a result is missing or unsorted
   kLogMissing = 1,       // a definition or a collection lacks an expected thing
   kLogMissingClass = 2,  // a report's class is missing and the report is left
   kLogTrace = 3,         // progress of the reports and results of the probes
   kLogNotice = 100       // meant for whoever runs the collection
};

/// The host's logger. Log is the third of its virtual operations.
class QSX_API TLogger
{
public:
   virtual ~TLogger() = default;

   /// Whether lines of this level go anywhere; a caller may skip building a text that does not.
   virtual bool IsLevelEnabled(int level) const = 0;

   /// Writes the text at that level. Nobody tests the result.
   virtual void Log(int level, const std::string& text) = 0;
};

/// The connection to a remote service processor over IPMI LAN.
class QSX_API IIPMILan
{
public:
   virtual ~IIPMILan() = default;

   /// True when the collection ran against a remote service processor.
   virtual bool getipmiLanStatus() = 0;

   /// Writes the controller's address as a zero-ended text into a buffer of size bytes.
   virtual void getIPMIAddress(char* buffer, int size) = 0;
};

/// The services that every host supplies.
class QSX_API TRootObject
{
public:
   /// Owner: the host's; never empty, and outlives every call of the library.
   static TLogger* GetCoreLogger();

   /// Missing: empty when the host has no IPMI LAN connection.
   static IIPMILan* GetipmiLanIns();
};

class QSX_API TOSSpecific
{
public:
   /// Runs a program and gives what it printed. Units: timeout in seconds.
   /// Missing: the empty text when the program can't be run.
   static std::string SpawnProcess(std::string program, std::vector<std::string> arguments,
                                   int timeout);

   static const std::string kFileSeparator;
};

/// Questions on the schema of the collected data.
class QSX_API TCIMSchemaHelper
{
public:
   /// Throws: status 15 when the collection does not tell its machine type.
   static std::string GetMachineType(boost::shared_ptr<ICIMNamespace> cimNamespace);

   /// Missing: the empty text.
   static std::string GetOperatingSystemVersion(boost::shared_ptr<ICIMNamespace> cimNamespace);

   /// Throws: status 15 when the collection does not tell its data source.
   static std::string GetDataSourceMinorVersion(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                                TContext context);

   /// Missing: the empty text.
   static std::string GetRawSerialNumberString(boost::shared_ptr<ICIMNamespace> cimNamespace,
                                               TContext context);
};

}  // namespace NZANQSX20
